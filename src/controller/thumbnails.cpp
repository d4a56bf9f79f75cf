#include "controller/thumbnails.h"

#include <utility>

namespace tarvin {

namespace {

constexpr int maxPictures = 500;

}  // namespace

Thumbnails::Thumbnails(QSize size, QString previewProgram, QObject* parent)
    : QObject(parent), size_(size), pictures_(maxPictures), previews_(std::move(previewProgram)) {
    connect(&previews_, &ImagePreview::ready, this, &Thumbnails::keep);
    connect(&previews_, &ImagePreview::nothing, this, [this] { keep({}); });
}

QPixmap Thumbnails::of(const std::string& path) {
    const QByteArray key = QByteArray::fromStdString(path);
    if (const QPixmap* picture = pictures_.object(key)) {
        return *picture;
    }
    if (key != current_) {
        waiting_.removeOne(key);
        waiting_.append(key);
        if (waiting_.size() > maxWaiting) {
            waiting_.removeFirst();
        }
        makeNext();
    }
    return {};
}

void Thumbnails::makeNext() {
    if (current_.isEmpty() && !waiting_.isEmpty()) {
        current_ = waiting_.takeLast();
        previews_.resizeImageAtPath(current_.toStdString(), size_.width(), size_.height());
    }
}

/// A file that is not an image is cached as a null image, so that it is not retried.
void Thumbnails::keep(const QImage& image) {
    const bool fits = image.width() <= size_.width() && image.height() <= size_.height();
    QImage small =
        fits ? image : image.scaled(size_, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    small.setDevicePixelRatio(1);  // one image pixel per pixel of the size
    const QByteArray path = std::exchange(current_, {});
    pictures_.insert(path, new QPixmap(QPixmap::fromImage(small)));
    makeNext();
    Q_EMIT ready(path);
}

}  // namespace tarvin
