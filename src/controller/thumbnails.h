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

/// Small pictures of image files, made by the program that makes previews, one after another and
/// the one asked for last first, because that row is in sight. Kept as long as there is room for a
/// few hundred. Main thread.
class Thumbnails final : public QObject {
    Q_OBJECT

 public:
    /// Of those that wait, the oldest beyond so many are forgotten; they may be asked for again.
    static constexpr int maxWaiting = 100;

    /// Pictures fit into `size`, in pixels. `previewProgram` is the path of that program.
    Thumbnails(QSize size, QString previewProgram, QObject* parent = nullptr);

    /// The picture of a file by its path, native bytes; null until it is ready, and for good if the
    /// file is no image.
    [[nodiscard]] QPixmap of(const std::string& path);

 Q_SIGNALS:
    /// of() may have a picture now.
    void ready(const QByteArray& path);

 private:
    void makeNext();
    void keep(const QImage& image);

    const QSize size_;
    QCache<QByteArray, QPixmap> pictures_;
    QList<QByteArray> waiting_;
    QByteArray current_;  // empty while none is made
    ImagePreview previews_;
};

}  // namespace tarvin
