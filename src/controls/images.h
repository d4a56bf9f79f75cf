#pragma once

#include <QIcon>
#include <QPixmap>
#include <QSize>
#include <QString>

/// The program's own images. Each has a name such as "HomePage1.png", "usb_drive.png" or
/// "ui/tile_drives"; the suffix may be omitted. They are SVG, so sharp at every size and device
/// pixel ratio. Main thread only.
namespace tarvin {

/// Renders an image into `logicalSize`, centred with its aspect ratio kept. The pixmap has
/// `logicalSize` times `devicePixelRatio` pixels. Null if there is no image of that name, if it is
/// damaged, or if the size is empty. Cached.
[[nodiscard]] QPixmap picture(const QString& name, const QSize& logicalSize,
                              double devicePixelRatio);

/// The design size of an image; empty if there is none of that name.
[[nodiscard]] QSize pictureSize(const QString& name);

/// An icon that renders an image when it is painted. Null if there is none of that name.
[[nodiscard]] QIcon pictureIcon(const QString& name);

}  // namespace tarvin
