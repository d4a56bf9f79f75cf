#pragma once

#include "model/marking.h"

#include <QCoreApplication>
#include <QString>
#include <cstdint>
#include <string_view>

namespace tarvin {

/// The texts of the result screen, its notices and questions. Leading newlines and trailing spaces
/// belong to them. Sizes are as getFormattedStringForSize() writes them. Main thread only.
class ResultTexts final {
    Q_DECLARE_TR_FUNCTIONS(tarvin::ResultTexts)

 public:
    /// Accessible name of the check box of a file, a set or an extension.
    [[nodiscard]] static QString checkBoxName(const QString& name);
    /// Accessible description of a check box that is partially checked.
    [[nodiscard]] static QString partlyMarked();

    // Marked files.

    /// "Marked Duplicate Files: 3".
    [[nodiscard]] static QString selectedCount(std::uint64_t files);
    /// "Marked File Size: 1.05 MB".
    [[nodiscard]] static QString selectedSize(std::uint64_t bytes);
    /// When marking one more file would mark all of its set.
    [[nodiscard]] static QString allFilesOfSet();

    // The file in the preview.

    /// "Path: /home/ann/a.png"; see textOfPath().
    [[nodiscard]] static QString selectedPath(std::string_view path);
    /// In place of a preview.
    [[nodiscard]] static QString doubleClickToOpen();

    // Tool tips of the sort controls.

    [[nodiscard]] static QString sortBySize();
    [[nodiscard]] static QString sortByName();
    [[nodiscard]] static QString sortByCreatedDate();
    [[nodiscard]] static QString sortByModifiedDate();
    [[nodiscard]] static QString sortByDimension();
    [[nodiscard]] static QString sortingOrder(bool ascending);

    // The information window.

    /// Header of the summary of all categories.
    [[nodiscard]] static QString duplicatesFound();
    /// Header otherwise.
    [[nodiscard]] static QString information();
    /// Button of a summary.
    [[nodiscard]] static QString review();
    /// Button otherwise.
    [[nodiscard]] static QString ok();
    /// The three lines of the summary of all categories, with counts of files.
    [[nodiscard]] static QString media(std::int64_t files);
    [[nodiscard]] static QString documents(std::int64_t files);
    [[nodiscard]] static QString others(std::int64_t files);
    /// The two lines of the summary of one category; empty for ResultView::all.
    [[nodiscard]] static QString duplicates(ResultView category, std::uint64_t files);
    [[nodiscard]] static QString memoryOccupied(std::uint64_t bytes);
    /// When a category has no duplicates; empty for ResultView::all.
    [[nodiscard]] static QString noDuplicates(ResultView category);

    // Moving to the Trash.

    /// When nothing is marked.
    [[nodiscard]] static QString nothingToDelete();
    /// The reason follows on its own line.
    [[nodiscard]] static QString cleanUpNotBegun();
    /// Follows the reason if the damaged journal was moved aside.
    [[nodiscard]] static QString journalKeptAside();
    /// While files are moved.
    [[nodiscard]] static QString deleting();
    [[nodiscard]] static QString stopDeletionQuestion();
    /// The two lines of the report.
    [[nodiscard]] static QString duplicatesCleaned(std::uint64_t files);
    [[nodiscard]] static QString spaceRegained(std::uint64_t bytes);

    // Below them, about files that were not moved (`left`) or not moved back (`notBack`).

    [[nodiscard]] static QString filesLeft(std::uint64_t files);
    [[nodiscard]] static QString filesNotBack(std::uint64_t files);
    [[nodiscard]] static QString filesLeftAndNotBack(std::uint64_t left, std::uint64_t notBack);

    // Exceptions.

    /// Before marked files are excluded. `exact`: found by a scan for identical files.
    [[nodiscard]] static QString exceptionQuestion(bool exact);
    [[nodiscard]] static QString exceptionsAdded(std::int64_t files);
    [[nodiscard]] static QString removeExceptionsQuestion();
    [[nodiscard]] static QString exceptionsRemoved();

    // The buttons of questions.

    [[nodiscard]] static QString yes();
    [[nodiscard]] static QString no();
};

}  // namespace tarvin
