#pragma once

#include "model/marking.h"

#include <QCoreApplication>
#include <QString>
#include <cstdint>
#include <string_view>

namespace tarvin {

/// The texts of the result screen and of what it says and asks, letter for letter: leading line
/// breaks and trailing blanks belong to them. Sizes are as getFormattedStringForSize() writes them.
/// Main thread.
class ResultTexts final {
    Q_DECLARE_TR_FUNCTIONS(tarvin::ResultTexts)

 public:
    /// What the check box of a file, a set or an extension is called.
    [[nodiscard]] static QString checkBoxName(const QString& name);
    /// What a screen reader adds to that name if some of what the box marks is marked, not all.
    [[nodiscard]] static QString partlyMarked();

    // What is marked.

    /// "Marked Duplicate Files: 3".
    [[nodiscard]] static QString selectedCount(std::uint64_t files);
    /// "Marked File Size: 1.05 MB".
    [[nodiscard]] static QString selectedSize(std::uint64_t bytes);
    /// When marking one more file would leave none of its set.
    [[nodiscard]] static QString allFilesOfSet();

    // The file that is looked at.

    /// "Path: /home/ann/a.png", in one line.
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

    /// Its header when it shows the summary of all categories.
    [[nodiscard]] static QString duplicatesFound();
    /// Its header otherwise.
    [[nodiscard]] static QString information();
    /// Its button under a summary.
    [[nodiscard]] static QString review();
    /// Its button otherwise.
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
    /// Followed by the reason, on a line of its own.
    [[nodiscard]] static QString cleanUpNotBegun();
    /// Behind the reason, if what was in the way is so no longer.
    [[nodiscard]] static QString journalKeptAside();
    /// While files are moved.
    [[nodiscard]] static QString deleting();
    [[nodiscard]] static QString stopDeletionQuestion();
    /// The two lines of the report.
    [[nodiscard]] static QString duplicatesCleaned(std::uint64_t files);
    [[nodiscard]] static QString spaceRegained(std::uint64_t bytes);

    /// Below them, if there are such files.
    [[nodiscard]] static QString filesLeft(std::uint64_t files);
    /// Of files that could not be moved back.
    [[nodiscard]] static QString filesNotBack(std::uint64_t files);
    [[nodiscard]] static QString filesLeftAndNotBack(std::uint64_t left, std::uint64_t notBack);

    // Exceptions.

    /// Before marked files are excluded. `exact` says that they come from a scan for identical
    /// files.
    [[nodiscard]] static QString exceptionQuestion(bool exact);
    [[nodiscard]] static QString exceptionsAdded(std::int64_t files);
    [[nodiscard]] static QString removeExceptionsQuestion();
    [[nodiscard]] static QString exceptionsRemoved();

    // The answers to both questions that an alert asks.

    [[nodiscard]] static QString yes();
    [[nodiscard]] static QString no();
};

}  // namespace tarvin
