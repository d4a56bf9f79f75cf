#include "controller/result_texts.h"

#include "controller/shown_numbers.h"

namespace tarvin {

QString ResultTexts::filesOfSet(std::size_t files, std::uint64_t bytesEach) {
    const QString size = ShownNumbers::size(bytesEach);
    return files < 2 ? tr("1 file, %1").arg(size)
                     : tr("%1 files, %2 each").arg(ShownNumbers::count(files), size);
}

QString ResultTexts::canBeRegained(std::uint64_t bytes) {
    return tr("%1 can be regained").arg(ShownNumbers::size(bytes));
}

QString ResultTexts::duplicates(ResultView category, std::uint64_t files) {
    const QString count = QString::number(files);
    switch (category) {
        case ResultView::image:
            return tr("Image Duplicates: %1").arg(count);
        case ResultView::video:
            return tr("Video Duplicates: %1").arg(count);
        case ResultView::audio:
            return tr("Audio Duplicates: %1").arg(count);
        case ResultView::documents:
            return tr("Documents Duplicates: %1").arg(count);
        case ResultView::other:
            return tr("Other Duplicates: %1").arg(count);
        case ResultView::all:
            break;
    }
    return {};
}

QString ResultTexts::noDuplicates(ResultView category) {
    switch (category) {
        case ResultView::image:
            return tr("No Image Duplicates Found");
        case ResultView::video:
            return tr("No Video Duplicates Found");
        case ResultView::audio:
            return tr("No Audio Duplicates Found");
        case ResultView::documents:
            return tr("No Documents Duplicates Found");
        case ResultView::other:
            return tr("No Other Duplicates Found");
        case ResultView::all:
            break;
    }
    return {};
}

QString ResultTexts::filesLeft(std::uint64_t files) {
    return files == 1 ? tr("1 file was left where it is.")
                      : tr("%1 files were left where they are.").arg(ShownNumbers::count(files));
}

QString ResultTexts::filesNotBack(std::uint64_t files) {
    return files == 1
               ? tr("1 file in the Trash may be the last copy.")
               : tr("%1 files in the Trash may be last copies.").arg(ShownNumbers::count(files));
}

QString ResultTexts::filesLeftAndNotBack(std::uint64_t left, std::uint64_t notBack) {
    return tr("Left: %1. Maybe last copies: %2.")
        .arg(ShownNumbers::count(left), ShownNumbers::count(notBack));
}

QString ResultTexts::exceptionQuestion(bool exact) {
    return exact ? tr("The selected files will be excluded from all future scans. Press \"OK\" to "
                      "exclude.")
                 : tr("The selected similar photos will be excluded from all future scans. Press "
                      "\"Ok\" to exclude.");
}

QString ResultTexts::exceptionQuestionFor(std::string_view fileName) {
    constexpr int maxCharacters = 40;
    return tr("The file \"%1\" will be excluded from all future scans. Press \"OK\" to exclude.")
        .arg(shortTextOfName(fileName, maxCharacters));
}

}  // namespace tarvin
