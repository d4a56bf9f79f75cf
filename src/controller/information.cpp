#include "controller/information.h"

#include "controller/result_tabs.h"
#include "controller/result_texts.h"
#include "interface/product_title.h"

#include <array>

namespace tarvin {

namespace {

Information noticeWith(const QString& firstLine, const QString& secondLine = {}) {
    return {.informationHeader = ResultTexts::information(),
            .duplicatesCount = firstLine,
            .duplicatesSize = secondLine,
            .otherInfomration = {},
            .informationImage = informationImageOf(ResultView::all),
            .actionButtonTitle = ResultTexts::ok()};
}

Information summaryOfAll(const CategoryTotals& totals) {
    const std::uint64_t media = totals.audioFiles + totals.videoFiles + totals.imageFiles;
    return {.informationHeader = ResultTexts::duplicatesFound(),
            .duplicatesCount = ResultTexts::media(static_cast<std::int64_t>(media)),
            .duplicatesSize = ResultTexts::documents(static_cast<std::int64_t>(totals.docsFiles)),
            .otherInfomration = ResultTexts::others(static_cast<std::int64_t>(totals.otherFiles)),
            .informationImage = informationImageOf(ResultView::all),
            .actionButtonTitle = ResultTexts::review()};
}

Information summaryOf(ResultView category, const Modal& modal) {
    return {.informationHeader = ResultTexts::information(),
            .duplicatesCount = ResultTexts::duplicates(category, modal.totalFiles()),
            .duplicatesSize = ResultTexts::memoryOccupied(modal.totalFilesSize()),
            .otherInfomration = {},
            .informationImage = informationImageOf(category),
            .actionButtonTitle = ResultTexts::review()};
}

Alert yesOrNo(const QString& question) {
    return {.messageText = productTitle(),
            .informativeText = question,
            .buttons = {ResultTexts::yes(), ResultTexts::no()},
            .escapeButton = 1};
}

/// The view whose flag is set and whose summary has not been shown. At most one flag is set.
std::optional<ResultView> viewToSummarise(const ViewFlags& tabs, const SummariesShown& shown) {
    return currentViewOf({.allTab = tabs.allTab && !shown.allTabInfo,
                          .imageTab = tabs.imageTab && !shown.imageTabInfo,
                          .videoTab = tabs.videoTab && !shown.videoTabInfo,
                          .audioTab = tabs.audioTab && !shown.audioTabInfo,
                          .docsTab = tabs.docsTab && !shown.docsTabInfo,
                          .othrTab = tabs.othrTab && !shown.othrTabInfo});
}

}  // namespace

std::optional<Information> informationAccordingTab(const ViewFlags& tabs, SummariesShown& shown,
                                                   const CountedList& countedList,
                                                   const CategoryTotals& totals) {
    const std::optional<ResultView> view = viewToSummarise(tabs, shown);
    if (!view) {
        return std::nullopt;
    }
    flagOf(*view, shown) = true;
    if (*view == ResultView::all) {
        return summaryOfAll(totals);
    }
    return summaryOf(*view, countedList());
}

Information noDuplicatesInformation(ResultView category) {
    Information information = noticeWith(ResultTexts::noDuplicates(category));
    information.informationImage = informationImageOf(category);
    return information;
}

bool& flagOf(ResultView view, SummariesShown& shown) {
    static constexpr std::array flags{&SummariesShown::allTabInfo,   &SummariesShown::imageTabInfo,
                                      &SummariesShown::audioTabInfo, &SummariesShown::videoTabInfo,
                                      &SummariesShown::docsTabInfo,  &SummariesShown::othrTabInfo};
    return shown.*ofView(flags, view);
}

QString informationImageOf(ResultView view) {
    static constexpr std::array names{"common_info", "image_info",    "Audio_info",
                                      "video_info",  "document_info", "other_info"};
    return QString::fromLatin1(ofView(names, view));
}

Information allFilesOfSetInformation() {
    return noticeWith(ResultTexts::allFilesOfSet());
}

Information nothingToDeleteInformation() {
    return noticeWith(ResultTexts::nothingToDelete());
}

Information fileIsGoneInformation() {
    return noticeWith(ResultTexts::fileIsGone());
}

Information noCleanUpInformation(const QString& reason, const std::optional<std::string>& aside) {
    Information notice = noticeWith(ResultTexts::cleanUpNotBegun(), reason);
    if (aside) {
        notice.otherInfomration = ResultTexts::journalKeptAside();
    }
    return notice;
}

Information deletionReport(const RemovalResult& moved, std::uint64_t left, std::uint64_t notBack) {
    Information report = noticeWith(ResultTexts::duplicatesCleaned(moved.deletedFilesCount),
                                    ResultTexts::spaceRegained(moved.deletedFilesSize));
    if (left > 0 && notBack > 0) {
        report.keptLine = ResultTexts::filesLeftAndNotBack(left, notBack);
    } else if (left > 0) {
        report.keptLine = ResultTexts::filesLeft(left);
    } else if (notBack > 0) {
        report.keptLine = ResultTexts::filesNotBack(notBack);
    }
    return report;
}

Information exceptionsAddedInformation(std::int64_t files) {
    return noticeWith(ResultTexts::exceptionsAdded(files));
}

Information exceptionsRemovedInformation() {
    return noticeWith(ResultTexts::exceptionsRemoved());
}

Alert stopDeletionAlert() {
    return yesOrNo(ResultTexts::stopDeletionQuestion());
}

Alert removeExceptionsAlert() {
    return yesOrNo(ResultTexts::removeExceptionsQuestion());
}

}  // namespace tarvin
