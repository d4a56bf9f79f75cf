#include "platform/confinement.h"
#include "platform/file_system.h"
#include "preview/image_file.h"
#include "preview/limits.h"
#include "preview/preview_format.h"

#include <QFile>
#include <QGuiApplication>
#include <QImageReader>
#include <cstdio>
#include <string>

// Makes the preview of one image file in a process of its own, so that a file that is damaged, huge
// or made to do harm costs this process at most. See preview_format.h for what comes in and out.

namespace {

constexpr qint64 longestPath = 1024 * 1024;

/// Drawings may hold text, for which Qt wants an application; this one needs no display, and
/// nothing in the desktop's settings leads it to one or to a message bus.
void prepareForNoDesktop() {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_NO_GLIB", "1");  // which ends a process that it cannot have something opened for
    for (const char* const variable :
         {"DBUS_SESSION_BUS_ADDRESS", "DESKTOP_SESSION", "DISPLAY", "KDE_FULL_SESSION",
          "QT_QPA_PLATFORMTHEME", "SESSION_MANAGER", "WAYLAND_DISPLAY", "XDG_CURRENT_DESKTOP"}) {
        qunsetenv(variable);
    }
}

std::string askedPath() {
    QFile input;
    return input.open(stdin, QIODevice::ReadOnly) ? input.read(longestPath).toStdString()
                                                  : std::string();
}

/// A regular file; a pipe or a device could keep its reader waiting.
bool openFile(const tarvin::Descriptor& descriptor, QFile& file) {
    const auto attributes = tarvin::systemFileSystem().attributesOf(descriptor);
    return attributes && attributes->type == tarvin::EntryType::regular &&
           file.open(descriptor.number(), QIODevice::ReadOnly);
}

void tell(const QByteArray& bytes) {
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout);
    std::fflush(stdout);
}

int showImage(QFile& file) {
    QImageReader::setAllocationLimit(tarvin::decodedImageLimit);
    tarvin::ImageFile image(file);
    if (!tarvin::confineToOpenFiles() && image.canReferToFiles()) {
        return 1;
    }
    const QSize size = image.size();
    // At once: whatever the pixels do to this process, the size is known.
    if (!size.isEmpty()) {
        tell(tarvin::encodedSize(size));
    }
    const QImage picture = image.picture(tarvin::longestPreviewSide);
    if (picture.isNull()) {
        return 1;
    }
    if (size.isEmpty()) {
        tell(tarvin::encodedSize(picture.size()));
    }
    tell(tarvin::encodedPicture(picture));
    return 0;
}

}  // namespace

#ifdef TARVIN_SANITIZED
/// The search for leaks starts a process that looks at this one, which is confined by then.
extern "C" int __lsan_is_turned_off() {  // NOLINT(readability-identifier-naming): the sanitizer's
    return 1;
}
#endif

int main(int argc, char** argv) {
    tarvin::limitThisProcess();
    prepareForNoDesktop();
    const QGuiApplication application(argc, argv);
    const auto descriptor = tarvin::systemFileSystem().openFile(askedPath());
    QFile file;
    return descriptor && openFile(*descriptor, file) ? showImage(file) : 1;
}
