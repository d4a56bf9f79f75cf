#pragma once

#include "controller/alerts.h"
#include "controller/session.h"
#include "model/marking.h"

#include <QString>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace tarvin {

/// The contents of the information window. Empty lines take no space.
struct Information {
    QString informationHeader;
    QString duplicatesCount;   ///< first line
    QString duplicatesSize;    ///< second line
    QString otherInfomration;  ///< third line
    QString informationImage;  ///< name of the image
    QString actionButtonTitle;
    QString keptLine{};  ///< about files that were not moved; if set, its button is shown too
    QString notRead{};   ///< the notice of what was not read; if set, the button for it is shown

    bool operator==(const Information&) const = default;
};

// All below: main thread only. Texts are in the language of the window.

/// Duplicates of each category: the totals of their lists.
struct CategoryTotals {
    std::uint64_t imageFiles = 0;
    std::uint64_t videoFiles = 0;
    std::uint64_t audioFiles = 0;
    std::uint64_t docsFiles = 0;
    std::uint64_t otherFiles = 0;
};

/// Returns the list in view after its totals have been summed again.
using CountedList = std::function<const Modal&()>;

/// Returns the summary of the view that is shown and sets its flag in `shown`; nullopt if the flag
/// was set. Calls `countedList` for the summary of a single category only.
[[nodiscard]] std::optional<Information> informationAccordingTab(const ViewFlags& tabs,
                                                                 SummariesShown& shown,
                                                                 const CountedList& countedList,
                                                                 const CategoryTotals& totals);

/// For a category without duplicates; not for ResultView::all. The caller sets the flag of its
/// summary (flagOf).
[[nodiscard]] Information noDuplicatesInformation(ResultView category);

/// The flag of a view's summary.
[[nodiscard]] bool& flagOf(ResultView view, SummariesShown& shown);

/// The image name of a view; "common_info" for ResultView::all.
[[nodiscard]] QString informationImageOf(ResultView view);

/// When marking one more file would mark all of its set.
[[nodiscard]] Information allFilesOfSetInformation();
/// When no file is marked.
[[nodiscard]] Information nothingToDeleteInformation();
/// When a file cannot be opened.
[[nodiscard]] Information fileIsGoneInformation();
/// When the journal cannot be written, because of `reason`. `aside` is the path that a damaged
/// journal was moved to, if any.
[[nodiscard]] Information noCleanUpInformation(const QString& reason,
                                               const std::optional<std::string>& aside);
/// The report of one run: what it moved, how many files it did not move (`left`), and how many it
/// moved, found no other copy of, and could not move back (`notBack`).
[[nodiscard]] Information deletionReport(const RemovalResult& moved, std::uint64_t left = 0,
                                         std::uint64_t notBack = 0);
/// `files` were excluded, including those that were on the exceptions list already.
[[nodiscard]] Information exceptionsAddedInformation(std::int64_t files);
[[nodiscard]] Information exceptionsRemovedInformation();

// Both have the buttons "YES" and "NO", in this order; Esc is "NO".

[[nodiscard]] Alert stopDeletionAlert();
[[nodiscard]] Alert removeExceptionsAlert();

}  // namespace tarvin
