#pragma once

#include <QIcon>
#include <QPixmap>
#include <QSize>
#include <QString>

/// The drawings that belong to the program. Each has a name such as "HomePage1.png",
/// "usb_drive.png" or "ui/tile_drives"; the ending may be left out. They are kept as vectors, so
/// every size and density is sharp. Main thread.
namespace tarvin {

/// A drawing rendered for a place of `logicalSize`, keeping its proportions and centred. The pixmap
/// has `logicalSize` times `devicePixelRatio` pixels. Null if there is no drawing of that name, if
/// it is damaged, or if the size is empty. Repeated calls are answered from a cache.
[[nodiscard]] QPixmap picture(const QString& name, const QSize& logicalSize,
                              double devicePixelRatio);

/// The size a drawing was made for; empty if there is none of that name.
[[nodiscard]] QSize pictureSize(const QString& name);

/// A drawing that is rendered when it is painted. Null if there is none of that name.
[[nodiscard]] QIcon pictureIcon(const QString& name);

}  // namespace tarvin
