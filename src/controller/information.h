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

/// What the information window shows. Lines without text take no room.
struct Information {
    QString informationHeader;
    QString duplicatesCount;   ///< the first line
    QString duplicatesSize;    ///< the second
    QString otherInfomration;  ///< the third
    QString informationImage;  ///< by the name of the drawing
    QString actionButtonTitle;
    QString keptLine{};  ///< about the files that were left; shows the button beside it, too

    bool operator==(const Information&) const = default;
};

// All on the main thread. What people read is in the language of the window.

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

/// For the button of a category without duplicates; not for ResultView::all. The caller sets the
/// flag of that summary (flagOf).
[[nodiscard]] Information noDuplicatesInformation(ResultView category);

/// The flag of a view's summary.
[[nodiscard]] bool& flagOf(ResultView view, SummariesShown& shown);

/// The drawing that belongs to a view: "common_info" to all together. One name begins with a
/// capital letter, as the name of its drawing does.
[[nodiscard]] QString informationImageOf(ResultView view);

/// When marking one more file would leave none of its set.
[[nodiscard]] Information allFilesOfSetInformation();
/// When nothing is marked that could be moved to the Trash.
[[nodiscard]] Information nothingToDeleteInformation();
/// When moves could not be written down, for which `reason` says why. `aside` is where the journal
/// is kept that was in the way, if it was put aside.
[[nodiscard]] Information noCleanUpInformation(const QString& reason,
                                               const std::optional<std::string>& aside);
/// What one run has moved, in files and bytes, how many files it has left where they are, and how
/// many of those it has moved it could not move back, though no other copy was found then.
[[nodiscard]] Information deletionReport(const RemovalResult& moved, std::uint64_t left = 0,
                                         std::uint64_t notBack = 0);
/// `files` have been put on the list of exceptions, those that were on it already included.
[[nodiscard]] Information exceptionsAddedInformation(std::int64_t files);
[[nodiscard]] Information exceptionsRemovedInformation();

/// Both ask with the buttons "YES" and "NO", in this order; Esc is "NO".
[[nodiscard]] Alert stopDeletionAlert();
[[nodiscard]] Alert removeExceptionsAlert();

}  // namespace tarvin
