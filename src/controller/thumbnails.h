#pragma once

#include "controller/image_preview.h"

#include <QByteArray>
#include <QCache>
#include <QList>
#include <QObject>
#include <QPixmap>
#include <QSize>
#include <string>

namespace tarvin {

/// Thumbnails of image files, made by the preview program, one at a time, the latest request first,
/// because its row is visible. A few hundred are cached. Main thread only.
class Thumbnails final : public QObject {
    Q_OBJECT

 public:
    /// Requests. Beyond this the oldest are dropped; they can be repeated.
    static constexpr int maxWaiting = 100;

    /// Thumbnails fit into `size`, in pixels. `previewProgram` is the path of the preview program.
    Thumbnails(QSize size, QString previewProgram, QObject* parent = nullptr);

    /// The thumbnail of a file by its path, native bytes; null until it is ready, or if the file is
    /// not an image. Requests it if it is not cached.
    [[nodiscard]] QPixmap of(const std::string& path);

 Q_SIGNALS:
    /// of() may return a thumbnail now.
    void ready(const QByteArray& path);

 private:
    void makeNext();
    void keep(const QImage& image);

    const QSize size_;
    QCache<QByteArray, QPixmap> pictures_;
    QList<QByteArray> waiting_;
    QByteArray current_;  // empty while idle
    ImagePreview previews_;
};

}  // namespace tarvin
