#include "platform/confinement.h"
#include "platform/file_system.h"
#include "preview/image_file.h"
#include "preview/limits.h"
#include "preview/preview_format.h"

#include <QByteArray>
#include <QFile>
#include <QGuiApplication>
#include <QImageReader>
#include <cstdio>
#include <string>

// Makes the preview of one image file in a separate process, so that a damaged, huge or malicious
// file affects only this process. See preview_format.h for its input and output.

namespace {

constexpr qint64 maxPathBytes = 1024 * 1024;
constexpr unsigned usualSeconds = 10;

/// The limit of elapsed time: the first argument, or the usual one.
unsigned secondsFrom(int argc, char** argv) {
    const unsigned seconds = argc > 1 ? QByteArray(argv[1]).toUInt() : 0;
    return seconds > 0 ? seconds : usualSeconds;
}

/// Text in SVG images requires a QGuiApplication. Prevents it from connecting to a display or a
/// message bus.
void prepareForNoDesktop() {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_NO_GLIB", "1");  // GLib aborts if it cannot open its files
    for (const char* const variable :
         {"DBUS_SESSION_BUS_ADDRESS", "DESKTOP_SESSION", "DISPLAY", "KDE_FULL_SESSION",
          "QT_QPA_PLATFORMTHEME", "SESSION_MANAGER", "WAYLAND_DISPLAY", "XDG_CURRENT_DESKTOP"}) {
        qunsetenv(variable);
    }
}

std::string pathFromInput() {
    QFile input;
    return input.open(stdin, QIODevice::ReadOnly) ? input.read(maxPathBytes).toStdString()
                                                  : std::string();
}

/// Regular files only; a pipe or a device could block.
bool openFile(const tarvin::Descriptor& descriptor, QFile& file) {
    const auto attributes = tarvin::systemFileSystem().attributesOf(descriptor);
    return attributes && attributes->type == tarvin::EntryType::regular &&
           file.open(descriptor.number(), QIODevice::ReadOnly);
}

void writeOutput(const QByteArray& bytes) {
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout);
    std::fflush(stdout);
}

int showImage(QFile& file) {
    QImageReader::setAllocationLimit(tarvin::decodedImageLimit);
    const auto image = tarvin::openImage(file);
    if (!tarvin::confineToOpenFiles() && image->canReferToFiles()) {
        return 1;
    }
    const QSize size = image->size();
    // Before decoding: the size is known even if decoding kills this process.
    if (!size.isEmpty()) {
        writeOutput(tarvin::encodedSize(size));
    }
    const QImage picture = tarvin::picture(*image, tarvin::maxPreviewSide);
    if (picture.isNull()) {
        return 1;
    }
    if (size.isEmpty()) {
        writeOutput(tarvin::encodedSize(picture.size()));
    }
    writeOutput(tarvin::encodedPicture(picture));
    return 0;
}

}  // namespace

#ifdef TARVIN_SANITIZED
/// The leak checker starts a process, which confinement forbids.
extern "C" int __lsan_is_turned_off() {  // NOLINT(readability-identifier-naming): the sanitizer's
    return 1;
}
#endif

int main(int argc, char** argv) {
    tarvin::limitThisProcess(secondsFrom(argc, argv));
    prepareForNoDesktop();
    const QGuiApplication application(argc, argv);
    const auto descriptor = tarvin::systemFileSystem().openFile(pathFromInput());
    QFile file;
    return descriptor && openFile(*descriptor, file) ? showImage(file) : 1;
}
