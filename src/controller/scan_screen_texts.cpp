#include "controller/scan_screen_texts.h"

#include "controller/path_text.h"

namespace tarvin {

QString ScanScreenTexts::collecting() {
    return tr("Collecting Files...");
}

QString ScanScreenTexts::collecting(std::string_view path) {
    return tr("Collecting Files: %1").arg(textOfPath(path));
}

QString ScanScreenTexts::processing(std::string_view path) {
    return tr("Processing File: %1").arg(textOfPath(path));
}

QString ScanScreenTexts::waitingFor(std::string_view path) {
    return tr("Waiting for: %1").arg(textOfPath(path));
}

QString ScanScreenTexts::elapsed(std::string_view text) {
    constexpr std::size_t clockLength = 8;  // hh:mm:ss
    const std::string_view clock = text.substr(text.size() - std::min(text.size(), clockLength));
    return tr("Elapsed Time: %1")
        .arg(QString::fromUtf8(clock.data(), static_cast<qsizetype>(clock.size())));
}

QString ScanScreenTexts::searching() {
    return tr("Searching for duplicate files...");
}

QString ScanScreenTexts::searchingTitle() {
    return tr("Searching for duplicate files");
}

QString ScanScreenTexts::noDuplicates() {
    return tr("No duplicates File found");
}

QString ScanScreenTexts::outOfMemory() {
    return tr("There was not enough memory to finish the scan. The result is incomplete.");
}

QString ScanScreenTexts::pause() {
    return tr("Pause");
}

QString ScanScreenTexts::resume() {
    return tr("Resume");
}

}  // namespace tarvin
