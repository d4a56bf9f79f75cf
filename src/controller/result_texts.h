#pragma once

#include "controller/path_text.h"
#include "model/marking.h"
#include "scan/texts.h"

#include <QCoreApplication>
#include <QString>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tarvin {

/// The texts of the result screen, its notices and questions. Leading newlines and trailing spaces
/// belong to them. Sizes are as getFormattedStringForSize() writes them. Main thread only.
class ResultTexts final {
    Q_DECLARE_TR_FUNCTIONS(tarvin::ResultTexts)

 public:
    /// Accessible name of the check box of a file, a set or an extension.
    [[nodiscard]] static QString checkBoxName(const QString& name) {
        return tr("Mark %1").arg(name);
    }
    /// Accessible description of a check box that is partially checked.
    [[nodiscard]] static QString partlyMarked() { return tr("Partly marked"); }

    // The tool tip of a set, line by line.

    /// `files` is at least 1.
    [[nodiscard]] static QString filesOfSet(std::size_t files, std::uint64_t bytesEach);
    [[nodiscard]] static QString canBeRegained(std::uint64_t bytes);

    // Marked files.

    [[nodiscard]] static QString selectedCount(std::uint64_t files) {
        return tr("Marked Duplicate Files: %1").arg(files);
    }
    [[nodiscard]] static QString selectedSize(std::uint64_t bytes) {
        return tr("Marked File Size: %1").arg(sizeText(bytes));
    }
    /// When marking one more file would mark all of its set.
    [[nodiscard]] static QString allFilesOfSet() {
        return tr("All the files of same set cannot be selected");
    }

    // The file in the preview.

    [[nodiscard]] static QString selectedPath(std::string_view path) {
        return tr("Path: %1").arg(textOfPath(path));
    }
    /// In place of a preview.
    [[nodiscard]] static QString doubleClickToOpen() { return tr("Double Click On FIle To Open"); }

    // Tool tips of the sort controls.

    [[nodiscard]] static QString sortBySize() { return tr("Sort by size"); }
    [[nodiscard]] static QString sortByName() { return tr("Sort by name"); }
    [[nodiscard]] static QString sortByCreatedDate() { return tr("Sort by created date"); }
    [[nodiscard]] static QString sortByModifiedDate() { return tr("Sort by modified date"); }
    [[nodiscard]] static QString sortByDimension() { return tr("Sort by dimension"); }
    [[nodiscard]] static QString sortingOrder(bool ascending) {
        return ascending ? tr("Ascending") : tr("Descending");
    }

    // The information window.

    /// Header of the summary of all categories.
    [[nodiscard]] static QString duplicatesFound() { return tr("Duplicates Found"); }
    /// Header otherwise.
    [[nodiscard]] static QString information() { return tr("Information"); }
    /// Button of a summary.
    [[nodiscard]] static QString review() { return tr("Review"); }
    /// Button otherwise.
    [[nodiscard]] static QString ok() { return tr("Ok"); }
    /// The three lines of the summary of all categories, with counts of files.
    [[nodiscard]] static QString media(std::int64_t files) { return tr("Media: %1").arg(files); }
    [[nodiscard]] static QString documents(std::int64_t files) {
        return tr("Documents: %1").arg(files);
    }
    [[nodiscard]] static QString others(std::int64_t files) { return tr("Others: %1").arg(files); }
    /// The two lines of the summary of one category; empty for ResultView::all.
    [[nodiscard]] static QString duplicates(ResultView category, std::uint64_t files);
    [[nodiscard]] static QString memoryOccupied(std::uint64_t bytes) {
        return tr("Memory Occupied: %1").arg(sizeText(bytes));
    }
    /// When a category has no duplicates; empty for ResultView::all.
    [[nodiscard]] static QString noDuplicates(ResultView category);

    // Moving to the Trash.

    /// When nothing is marked.
    [[nodiscard]] static QString nothingToDelete() {
        return tr("Please select any file to delete.");
    }
    /// The reason follows on its own line.
    [[nodiscard]] static QString cleanUpNotBegun() {
        return tr("The clean-up could not begin: its moves cannot be written down.");
    }
    /// Follows the reason if the damaged journal was moved aside.
    [[nodiscard]] static QString journalKeptAside() {
        return tr("The file was set aside; the next clean-up begins a new one.");
    }
    /// When a file cannot be opened.
    [[nodiscard]] static QString fileIsGone() { return tr("The file is not there any more."); }
    /// While files are moved.
    [[nodiscard]] static QString deleting() { return tr("Deleting files, please wait..."); }
    [[nodiscard]] static QString stopDeletionQuestion() {
        return tr("Are you sure, you want to stop this process?");
    }
    /// The two lines of the report.
    [[nodiscard]] static QString duplicatesCleaned(std::uint64_t files) {
        return tr("Duplicates Cleaned: %1").arg(files);
    }
    [[nodiscard]] static QString spaceRegained(std::uint64_t bytes) {
        return tr("Space Regained: %1 ").arg(sizeText(bytes));
    }

    // Below them, about files that were not moved (`left`) or not moved back (`notBack`).

    [[nodiscard]] static QString filesLeft(std::uint64_t files);
    [[nodiscard]] static QString filesNotBack(std::uint64_t files);
    [[nodiscard]] static QString filesLeftAndNotBack(std::uint64_t left, std::uint64_t notBack);

    // Exceptions.

    /// Before marked files are excluded. `exact`: found by a scan for identical files.
    [[nodiscard]] static QString exceptionQuestion(bool exact);
    /// Before one file is excluded; its name is shortened to 40 characters.
    [[nodiscard]] static QString exceptionQuestionFor(std::string_view fileName);
    [[nodiscard]] static QString exceptionsAdded(std::int64_t files) {
        return tr("\nSuccessfully added %1 files to exceptions.").arg(files);
    }
    [[nodiscard]] static QString removeExceptionsQuestion() {
        return tr("Are you sure, you want to remove all exceptions?");
    }
    [[nodiscard]] static QString exceptionsRemoved() {
        return tr("\nAll exceptions has been removed.");
    }

    // The buttons of questions.

    [[nodiscard]] static QString yes() { return tr("YES"); }
    [[nodiscard]] static QString no() { return tr("NO"); }

 private:
    [[nodiscard]] static QString sizeText(std::uint64_t bytes) {
        return QString::fromStdString(getFormattedStringForSize(bytes));
    }
};

}  // namespace tarvin
