#include "model/marking.h"

#include "model/file_store.h"
#include "support/recording_trash.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace tarvin {
namespace {

/// A list of one extension with sets of these numbers of files, of ten bytes each.
class Marking : public ::testing::Test {
 protected:
    std::shared_ptr<Set> addSet(std::size_t files) {
        auto set = std::make_shared<Set>();
        for (std::size_t number = 0; number < files; ++number) {
            set->addFiles(FileStore::standalone("/set " +
                                                    std::to_string(extension_->nummberOfSets()) +
                                                    "/" + std::to_string(number) + ".jpg",
                                                10));
        }
        set->setTotalFilesInSet(files - 1);
        set->setTotalFilesInSetSize(10 * (files - 1));
        extension_->addSet(set);
        extension_->setTotalFilesInExtension(extension_->totalFilesInExtension() + files - 1);
        if (modal_.extensionCount() == 0) {
            modal_.addExtension(extension_);
        }
        modal_.calculateTotalFilesAndSize();
        return set;
    }

    ToggleResult toggle(const std::shared_ptr<Set>& set, std::size_t position) {
        return toggleFile(modal_, extension_, set, position);
    }

    Modal modal_;
    std::shared_ptr<Extensions> extension_ = std::make_shared<Extensions>("jpg");
};

TEST_F(Marking, UnmarksTheFirstFilesOfTheGivenSetsOnly) {
    const auto first = addSet(2);
    const auto second = addSet(3);
    const auto third = addSet(2);
    toggle(first, 0);
    toggle(second, 0);
    toggle(second, 1);
    unmarkFirstFiles(modal_, {second, third});
    EXPECT_EQ(first->files()[0]->state(), CheckState::on);
    EXPECT_EQ(second->files()[0]->state(), CheckState::off);
    EXPECT_EQ(second->files()[1]->state(), CheckState::on);
    EXPECT_EQ(third->files()[0]->state(), CheckState::off);
    EXPECT_EQ(modal_.totalFilesSelected(), 2U);
    EXPECT_EQ(modal_.totalFilesSelectedSize(), 20U);
    EXPECT_EQ(extension_->totalFilesSelectedInExtension(), 2U);
}

TEST_F(Marking, TogglesOneFile) {
    const auto set = addSet(3);
    EXPECT_EQ(toggle(set, 1), ToggleResult::toggled);
    EXPECT_EQ(set->files()[1]->state(), CheckState::on);
    EXPECT_EQ(modal_.totalFilesSelected(), 1U);
    EXPECT_EQ(toggle(set, 1), ToggleResult::toggled);
    EXPECT_EQ(set->files()[1]->state(), CheckState::off);
    EXPECT_EQ(modal_.totalFilesSelected(), 0U);
}

TEST_F(Marking, OfTheSecondOfTwoFilesIsRefused) {
    const auto set = addSet(2);
    EXPECT_EQ(toggle(set, 0), ToggleResult::toggled);
    EXPECT_EQ(toggle(set, 1), ToggleResult::refused);
    EXPECT_EQ(set->files()[1]->state(), CheckState::off);
    EXPECT_EQ(modal_.totalFilesSelected(), 1U);
    EXPECT_EQ(set->setsState(), CheckState::on);
}

TEST_F(Marking, OfTheOnlyRemainingFileIsRefused) {
    const auto set = addSet(2);
    RecordingTrash trash;
    trash.addExisting(set->files()[0]->filePath());
    toggle(set, 0);
    modal_.removeSelectedFilesInSet(set, extension_, trash);
    ASSERT_EQ(set->files().size(), 1U);
    EXPECT_EQ(toggle(set, 0), ToggleResult::refused);
    EXPECT_EQ(set->files()[0]->state(), CheckState::off);
    EXPECT_EQ(modal_.totalFilesSelected(), 0U);
}

TEST_F(Marking, AnyFileMayStayUnmarked) {
    const auto set = addSet(3);
    toggle(set, 0);
    toggle(set, 1);
    EXPECT_EQ(toggle(set, 2), ToggleResult::refused);
    EXPECT_EQ(toggle(set, 0), ToggleResult::toggled);
    EXPECT_EQ(toggle(set, 2), ToggleResult::toggled);
    EXPECT_EQ(set->files()[0]->state(), CheckState::off);
}

TEST_F(Marking, OfASetWhoseFirstFileIsMarkedByHandMarksAll) {
    const auto set = addSet(3);
    toggle(set, 0);
    modal_.changeStateOfExtension(extension_, set, nullptr);
    for (const auto& file : set->files()) {
        EXPECT_EQ(file->state(), CheckState::on);
    }
    EXPECT_EQ(set->totalFilesSelectedInSet(), 2U);
    EXPECT_TRUE(allDuplicatesAreSelectedOfSet(*set));
}

TEST_F(Marking, AllDuplicatesAreSelectedWhenOneFileIsNot) {
    const auto set = addSet(3);
    EXPECT_FALSE(allDuplicatesAreSelectedOfSet(*set));
    toggle(set, 2);
    EXPECT_FALSE(allDuplicatesAreSelectedOfSet(*set));
    toggle(set, 1);
    EXPECT_TRUE(allDuplicatesAreSelectedOfSet(*set));
    // As after marks that toggleFile() would have refused.
    modal_.changeStateOfExtension(extension_, set, set->files()[0]);
    EXPECT_FALSE(allDuplicatesAreSelectedOfSet(*set));
    EXPECT_FALSE(allDuplicatesAreSelectedOfSet(Set()));
}

TEST_F(Marking, SelectionClassFollowsFromTheCounters) {
    const auto set = addSet(3);
    addSet(2);
    EXPECT_EQ(selectionClassOf(modal_), SelectionClass::nothing);
    toggle(set, 1);
    EXPECT_EQ(selectionClassOf(modal_), SelectionClass::some);
    modal_.markAllExtension();
    EXPECT_EQ(selectionClassOf(modal_), SelectionClass::all);
    modal_.setTotalFilesSelected(4);
    EXPECT_EQ(selectionClassOf(modal_), std::nullopt);
    modal_.unmarkAllExtension();
    EXPECT_EQ(selectionClassOf(modal_), SelectionClass::nothing);
}

TEST_F(Marking, SelectionClassOfAnEmptyListIsNothing) {
    EXPECT_EQ(selectionClassOf(Modal()), SelectionClass::nothing);
}

TEST(CurrentView, FollowsTheFlag) {
    EXPECT_EQ(currentViewOf({.allTab = true}), ResultView::all);
    EXPECT_EQ(currentViewOf({.imageTab = true}), ResultView::image);
    EXPECT_EQ(currentViewOf({.videoTab = true}), ResultView::video);
    EXPECT_EQ(currentViewOf({.audioTab = true}), ResultView::audio);
    EXPECT_EQ(currentViewOf({.docsTab = true}), ResultView::documents);
    EXPECT_EQ(currentViewOf({.othrTab = true}), ResultView::other);
    EXPECT_EQ(currentViewOf({}), std::nullopt);
}

TEST(CurrentView, FollowsTheFirstFlagAudioBeforeVideo) {
    ViewFlags flags{.allTab = true,
                    .imageTab = true,
                    .videoTab = true,
                    .audioTab = true,
                    .docsTab = true,
                    .othrTab = true};
    EXPECT_EQ(currentViewOf(flags), ResultView::all);
    flags.allTab = false;
    EXPECT_EQ(currentViewOf(flags), ResultView::image);
    flags.imageTab = false;
    EXPECT_EQ(currentViewOf(flags), ResultView::audio);
    flags.audioTab = false;
    EXPECT_EQ(currentViewOf(flags), ResultView::video);
    flags.videoTab = false;
    EXPECT_EQ(currentViewOf(flags), ResultView::documents);
    flags.docsTab = false;
    EXPECT_EQ(currentViewOf(flags), ResultView::other);
}

TEST_F(Marking, DeletionRequiresMarkedFiles) {
    const auto set = addSet(2);
    EXPECT_EQ(deletionStartFor(modal_, false), DeletionStart::information);
    toggle(set, 1);
    EXPECT_EQ(deletionStartFor(modal_, true), DeletionStart::run);
}

TEST_F(Marking, DeletionNoticeDependsOnTheButtonNotTheCounter) {
    const auto set = addSet(2);
    EXPECT_EQ(deletionStartFor(modal_, true), DeletionStart::nothing);
    toggle(set, 1);
    EXPECT_EQ(deletionStartFor(modal_, false), DeletionStart::information);
}

TEST_F(Marking, ButtonsWithoutAnyExtension) {
    const ButtonStates states = buttonStatesFor(Modal(), true, ResultView::image);
    EXPECT_EQ(states, (ButtonStates{.markAll = false,
                                    .unMarkAll = false,
                                    .sendToRecycle = false,
                                    .deletePermanently = std::nullopt,
                                    .addEceptionBtn = false,
                                    .sortPopupBtn = false,
                                    .currentView = std::nullopt}));
}

TEST_F(Marking, ButtonsWithNothingMarked) {
    addSet(3);
    EXPECT_EQ(buttonStatesFor(modal_, true, ResultView::audio),
              (ButtonStates{.markAll = true,
                            .unMarkAll = false,
                            .sendToRecycle = false,
                            .deletePermanently = false,
                            .addEceptionBtn = false,
                            .sortPopupBtn = true,
                            .currentView = ResultView::audio}));
}

TEST_F(Marking, ButtonsWithSomethingMarked) {
    toggle(addSet(3), 1);
    EXPECT_EQ(buttonStatesFor(modal_, true, ResultView::all),
              (ButtonStates{.markAll = true,
                            .unMarkAll = true,
                            .sendToRecycle = true,
                            .deletePermanently = true,
                            .addEceptionBtn = true,
                            .sortPopupBtn = std::nullopt,
                            .currentView = ResultView::all}));
}

TEST_F(Marking, ButtonsWithEveryDuplicateMarked) {
    addSet(3);
    modal_.markAllExtension();
    EXPECT_EQ(buttonStatesFor(modal_, true, std::nullopt),
              (ButtonStates{.markAll = false,
                            .unMarkAll = true,
                            .sendToRecycle = true,
                            .deletePermanently = true,
                            .addEceptionBtn = true,
                            .sortPopupBtn = std::nullopt,
                            .currentView = std::nullopt}));
}

TEST_F(Marking, ButtonsWithoutASelectionClassStay) {
    addSet(3);
    modal_.setTotalFilesSelected(9);
    EXPECT_EQ(buttonStatesFor(modal_, true, ResultView::other),
              (ButtonStates{.currentView = ResultView::other}));
    EXPECT_EQ(buttonStatesFor(Modal(), false, ResultView::other),
              (ButtonStates{.currentView = ResultView::other}));
}

}  // namespace
}  // namespace tarvin
