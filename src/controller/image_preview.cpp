#include "controller/image_preview.h"

#include "preview/preview_format.h"

#include <algorithm>
#include <utility>

namespace tarvin {

namespace {

/// How long to wait for a killed process. Only one that is blocked by a disk takes longer than some
/// milliseconds.
constexpr std::chrono::milliseconds endPatience{1'000};

/// Sets the device pixel ratio with which `image` fills the field in one direction.
QImage inField(QImage image, QSizeF field) {
    if (!image.isNull() && !field.isEmpty()) {
        image.setDevicePixelRatio(
            std::max(image.width() / field.width(), image.height() / field.height()));
    }
    return image;
}

}  // namespace

ImagePreview::ImagePreview(QString program, std::chrono::milliseconds timeLimit, QObject* parent)
    : QObject(parent), program_(std::move(program)) {
    timeLimit_.setSingleShot(true);
    timeLimit_.setInterval(timeLimit);
    connect(&timeLimit_, &QTimer::timeout, this, &ImagePreview::endProcess);
    endLimit_.setSingleShot(true);
    endLimit_.setInterval(endPatience);
    connect(&endLimit_, &QTimer::timeout, this, &ImagePreview::finish);
}

ImagePreview::~ImagePreview() {
    cancel();
    if (process_ == nullptr) {
        return;
    }
    process_->disconnect(this);
    process_->waitForFinished(static_cast<int>(endPatience.count()));
    if (process_->state() != QProcess::NotRunning) {
        releaseProcess();
    }
}

void ImagePreview::resizeImageAtPath(const std::string& path, double width, double height) {
    cancel();
    const Request request{path, {width, height}};
    if (process_ == nullptr) {
        start(request);
    } else {
        waiting_ = request;
    }
}

void ImagePreview::cancel() {
    waiting_.reset();
    if (process_ != nullptr) {
        isSuperseded_ = true;
        endProcess();
    }
}

void ImagePreview::start(const Request& request) {
    isSuperseded_ = false;
    field_ = request.field;
    reader_ = std::make_unique<PreviewReader>();
    process_ = std::make_unique<QProcess>();
    process_->setStandardErrorFile(QProcess::nullDevice());
    connect(process_.get(), &QProcess::readyReadStandardOutput, this, &ImagePreview::read);
    connect(process_.get(), &QProcess::finished, this, &ImagePreview::finish);
    // Queued, so that an immediate failure is not reported within the request.
    connect(
        process_.get(), &QProcess::errorOccurred, this,
        [this, process = process_.get()](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart && process == process_.get()) {
                finish();
            }
        },
        Qt::QueuedConnection);
    // The process ends itself a second later if this thread is blocked.
    const auto limit = std::chrono::ceil<std::chrono::seconds>(timeLimit_.intervalAsDuration());
    process_->start(program_, {QString::number(limit.count() + 1)});
    if (process_->isWritable()) {
        process_->write(request.path.data(), static_cast<qint64>(request.path.size()));
        process_->closeWriteChannel();
    }
    timeLimit_.start();
}

void ImagePreview::read() {
    const bool wasMeasured = reader_->size().has_value();
    if (process_->isReadable() && !reader_->take(process_->readAllStandardOutput())) {
        endProcess();
        return;
    }
    const std::optional<QSize> size = reader_->size();
    if (size && !wasMeasured && !isSuperseded_) {
        Q_EMIT measured(*size);
    }
}

void ImagePreview::finish() {
    read();
    timeLimit_.stop();
    endLimit_.stop();
    releaseProcess();
    const QImage image = inField(reader_->picture(), field_);
    const bool isWanted = !isSuperseded_;
    if (const std::optional<Request> next = std::exchange(waiting_, std::nullopt)) {
        start(*next);
    }
    if (!isWanted) {
        return;
    }
    if (image.isNull()) {
        Q_EMIT nothing();
    } else {
        Q_EMIT ready(image);
    }
}

void ImagePreview::endProcess() {
    if (!endLimit_.isActive()) {
        process_->kill();
        endLimit_.start();
    }
}

/// A process that is blocked by a disk cannot be killed yet; it is deleted when it ends.
void ImagePreview::releaseProcess() {
    QProcess* const process = process_.release();
    process->disconnect(this);
    if (process->state() == QProcess::NotRunning) {
        process->deleteLater();
    } else {
        connect(process, &QProcess::finished, process, &QObject::deleteLater);
    }
}

}  // namespace tarvin
