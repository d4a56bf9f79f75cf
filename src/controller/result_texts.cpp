#include "controller/result_texts.h"

#include "controller/path_text.h"
#include "controller/shown_numbers.h"
#include "scan/texts.h"

namespace tarvin {

namespace {

QString sizeText(std::uint64_t bytes) {
    return QString::fromStdString(getFormattedStringForSize(bytes));
}

}  // namespace

QString ResultTexts::checkBoxName(const QString& name) {
    return tr("Mark %1").arg(name);
}

QString ResultTexts::partlyMarked() {
    return tr("Partly marked");
}

QString ResultTexts::selectedCount(std::uint64_t files) {
    return tr("Marked Duplicate Files: %1").arg(QString::number(files));
}

QString ResultTexts::selectedSize(std::uint64_t bytes) {
    return tr("Marked File Size: %1").arg(sizeText(bytes));
}

QString ResultTexts::allFilesOfSet() {
    return tr("All the files of same set cannot be selected");
}

QString ResultTexts::selectedPath(std::string_view path) {
    return tr("Path: %1").arg(textOfPath(path));
}

QString ResultTexts::doubleClickToOpen() {
    return tr("Double Click On FIle To Open");
}

QString ResultTexts::sortBySize() {
    return tr("Sort by size");
}

QString ResultTexts::sortByName() {
    return tr("Sort by name");
}

QString ResultTexts::sortByCreatedDate() {
    return tr("Sort by created date");
}

QString ResultTexts::sortByModifiedDate() {
    return tr("Sort by modified date");
}

QString ResultTexts::sortByDimension() {
    return tr("Sort by dimension");
}

QString ResultTexts::sortingOrder(bool ascending) {
    return ascending ? tr("Ascending") : tr("Descending");
}

QString ResultTexts::duplicatesFound() {
    return tr("Duplicates Found");
}

QString ResultTexts::information() {
    return tr("Information");
}

QString ResultTexts::review() {
    return tr("Review");
}

QString ResultTexts::ok() {
    return tr("Ok");
}

QString ResultTexts::media(std::int64_t files) {
    return tr("Media: %1").arg(QString::number(files));
}

QString ResultTexts::documents(std::int64_t files) {
    return tr("Documents: %1").arg(QString::number(files));
}

QString ResultTexts::others(std::int64_t files) {
    return tr("Others: %1").arg(QString::number(files));
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

QString ResultTexts::memoryOccupied(std::uint64_t bytes) {
    return tr("Memory Occupied: %1").arg(sizeText(bytes));
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

QString ResultTexts::nothingToDelete() {
    return tr("Please select any file to delete.");
}

QString ResultTexts::cleanUpNotBegun() {
    return tr("The clean-up could not begin: its moves cannot be written down.");
}

QString ResultTexts::journalKeptAside() {
    return tr("The file was set aside; the next clean-up begins a new one.");
}

QString ResultTexts::deleting() {
    return tr("Deleting files, please wait...");
}

QString ResultTexts::stopDeletionQuestion() {
    return tr("Are you sure, you want to stop this process?");
}

QString ResultTexts::duplicatesCleaned(std::uint64_t files) {
    return tr("Duplicates Cleaned: %1").arg(QString::number(files));
}

QString ResultTexts::spaceRegained(std::uint64_t bytes) {
    return tr("Space Regained: %1 ").arg(sizeText(bytes));
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

QString ResultTexts::exceptionsAdded(std::int64_t files) {
    return tr("\nSuccessfully added %1 files to exceptions.").arg(QString::number(files));
}

QString ResultTexts::removeExceptionsQuestion() {
    return tr("Are you sure, you want to remove all exceptions?");
}

QString ResultTexts::exceptionsRemoved() {
    return tr("\nAll exceptions has been removed.");
}

QString ResultTexts::yes() {
    return tr("YES");
}

QString ResultTexts::no() {
    return tr("NO");
}

}  // namespace tarvin
