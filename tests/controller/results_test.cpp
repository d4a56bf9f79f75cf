#include "controller/results.h"

#include "interface/result_table.h"
#include "interface/result_tree_view.h"
#include "model/result_tree.h"
#include "scan/scan_observer.h"
#include "support/fake_platform.h"
#include "support/on_screen.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QTest>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {
namespace {

/// A list of two extensions, "jpg" with a set of three and one of two files, "png" with one set;
/// the first set is selected and shown in the file table.
class ResultsTest : public testing::Test {
 protected:
    using Lines = std::vector<std::string>;

    ResultsTest() {
        fill(*list_, {jpg_, makeExtension("png", {makeSet("p", {1, 1})})});
        QObject::connect(&results_, &Results::marksChanged, &context_,
                         [this] { reported_.emplace_back("marks"); });
        const auto note = [this](const QAbstractItemModel* model, const std::string& name) {
            QObject::connect(model, &QAbstractItemModel::dataChanged, &context_,
                             [this, name](const QModelIndex& first, const QModelIndex& last) {
                                 reported_.push_back(name + ' ' + rowsBetween(first, last));
                             });
            QObject::connect(model, &QAbstractItemModel::modelReset, &context_,
                             [this, name] { reported_.push_back(name + " reset"); });
        };
        note(results_.treeModel(), "tree");
        note(results_.fileModel(), "files");
    }

    /// Shows the list with its first set selected.
    void begin() {
        results_.begin(list_);
        results_.reload();
        results_.select(set(0, 0));
        results_.showFilesInOrder(true);
        reported_.clear();
    }

    [[nodiscard]] QModelIndex extension(int row) const {
        return results_.tree().indexOfExtension(row);
    }
    [[nodiscard]] QModelIndex set(int extension, int row) const {
        return results_.tree().indexOfSet(extension, row);
    }
    [[nodiscard]] static int boxOf(const QModelIndex& row) {
        return row.data(Qt::CheckStateRole).toInt();
    }
    [[nodiscard]] static std::string nameOf(const QModelIndex& row) {
        return row.siblingAtColumn(ResultTree::name).data().toString().toStdString();
    }

    /// "first-last", for sets "extension/first-last".
    static std::string rowsBetween(const QModelIndex& first, const QModelIndex& last) {
        const std::string rows = std::to_string(first.row()) + '-' + std::to_string(last.row());
        return first.parent().isValid() ? std::to_string(first.parent().row()) + '/' + rows : rows;
    }

    FakePlatform platform_;
    ScanObserver observer_;
    ScanRun scan_{platform_, observer_};
    std::shared_ptr<Set> three_ = makeSet("three", {10, 10, 10});
    std::shared_ptr<Extensions> jpg_ = makeExtension("jpg", {three_, makeSet("two", {5, 5})});
    std::shared_ptr<Modal> list_ = std::make_shared<Modal>();
    Results results_{scan_};
    QAbstractItemModelTester treeTester_{results_.treeModel(),
                                         QAbstractItemModelTester::FailureReportingMode::Fatal};
    QAbstractItemModelTester fileTester_{results_.fileModel(),
                                         QAbstractItemModelTester::FailureReportingMode::Fatal};
    Lines reported_;
    QObject context_;  // ends the connections first
};

class ResultsMarking : public ResultsTest {
 protected:
    ResultsMarking() { begin(); }
};

TEST_F(ResultsMarking, MarkAllReportsEveryRow) {
    results_.markAll();
    EXPECT_EQ(reported_, (Lines{"marks", "tree 0-1", "tree 0/0-1", "tree 1/0-0", "files 0-2"}));
    EXPECT_EQ(results_.list().totalFilesSelected(), 4U);
}

TEST_F(ResultsMarking, MarkAllAfterKeepingAFileLeavesOneOfEachSet) {
    results_.keepFile(1);
    EXPECT_EQ(three_->files()[0]->state(), CheckState::on);
    results_.markAll();
    EXPECT_EQ(three_->files()[0]->state(), CheckState::off);
    EXPECT_EQ(results_.list().totalFilesSelected(), 4U);
}

TEST_F(ResultsMarking, TogglingASetAfterKeepingAFileLeavesOneFile) {
    results_.keepFile(1);
    EXPECT_EQ(results_.toggleFile(2), ToggleResult::toggled);
    results_.toggle(set(0, 0));
    EXPECT_EQ(three_->files()[0]->state(), CheckState::off);
    EXPECT_EQ(three_->totalFilesSelectedInSet(), 2U);
    EXPECT_EQ(results_.list().totalFilesSelected(), 2U);
}

TEST_F(ResultsMarking, TogglingAnExtensionAfterKeepingAFileLeavesOneOfEachSet) {
    results_.keepFile(2);
    EXPECT_EQ(results_.toggleFile(1), ToggleResult::toggled);
    EXPECT_EQ(jpg_->extensionState(), CheckState::mixed);
    results_.toggle(extension(0));
    EXPECT_EQ(three_->files()[0]->state(), CheckState::off);
    EXPECT_EQ(results_.list().totalFilesSelected(), 3U);
}

TEST_F(ResultsMarking, MarkAllAfterARuleLeavesOneOfEachSet) {
    // Only the path of the last file is longer than the others.
    const std::shared_ptr<Set> many = makeSet("many", {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1});
    const auto list = std::make_shared<Modal>();
    fill(*list, {makeExtension("txt", {many})});
    results_.begin(list);
    results_.reload();
    results_.markByRule({.keep = KeepRule::longest});
    EXPECT_EQ(many->files().front()->state(), CheckState::on);
    results_.markAll();
    EXPECT_EQ(many->files().front()->state(), CheckState::off);
    EXPECT_EQ(results_.list().totalFilesSelected(), 10U);
}

TEST_F(ResultsMarking, AFirstFileMarkedByHandStaysMarked) {
    EXPECT_EQ(results_.toggleFile(0), ToggleResult::toggled);
    results_.markAll();
    EXPECT_EQ(three_->files()[0]->state(), CheckState::on);
    results_.keepFile(1);
    results_.unmarkAll();
    EXPECT_EQ(results_.toggleFile(0), ToggleResult::toggled);
    results_.toggle(set(0, 0));
    EXPECT_EQ(three_->files()[0]->state(), CheckState::on);
}

TEST_F(ResultsMarking, NoFolderCanBeMarkedWhileAllAreMarked) {
    EXPECT_TRUE(results_.canMarkFolderOf(1));
    results_.markAll();
    EXPECT_FALSE(results_.canMarkFolderOf(0));
    EXPECT_FALSE(results_.canMarkFolderOf(1));
    EXPECT_EQ(results_.toggleFile(1), ToggleResult::toggled);
    EXPECT_TRUE(results_.canMarkFolderOf(1));
    results_.markAll();
    results_.toggle(set(0, 0));
    EXPECT_TRUE(results_.canMarkFolderOf(1));
    results_.markAll();
    results_.keepFile(1);
    EXPECT_TRUE(results_.canMarkFolderOf(1));
    results_.markAll();
    results_.unmarkAll();
    EXPECT_TRUE(results_.canMarkFolderOf(1));
}

TEST_F(ResultsMarking, UnmarkAllReportsEveryRow) {
    results_.markAll();
    reported_.clear();
    results_.unmarkAll();
    EXPECT_EQ(reported_, (Lines{"marks", "tree 0-1", "tree 0/0-1", "tree 1/0-0", "files 0-2"}));
    EXPECT_EQ(results_.list().totalFilesSelected(), 0U);
}

TEST_F(ResultsMarking, TogglingASetReportsItAndItsExtension) {
    results_.toggle(set(0, 1));
    EXPECT_EQ(reported_, (Lines{"marks", "files 0-2", "tree 0/1-1", "tree 0-0"}));
    EXPECT_EQ(results_.list().totalFilesSelected(), 1U);
}

TEST_F(ResultsMarking, TogglingAnExtensionReportsItAndItsSets) {
    results_.toggle(extension(0));
    EXPECT_EQ(reported_, (Lines{"marks", "files 0-2", "tree 0-0", "tree 0/0-1"}));
    EXPECT_EQ(results_.list().totalFilesSelected(), 3U);
}

TEST_F(ResultsMarking, TogglingAFileReportsItAndItsSet) {
    EXPECT_EQ(results_.toggleFile(2), ToggleResult::toggled);
    EXPECT_EQ(reported_, (Lines{"marks", "files 2-2", "tree 0/0-0", "tree 0-0"}));
    EXPECT_EQ(three_->files()[2]->state(), CheckState::on);
}

TEST_F(ResultsMarking, RefusingTheLastFileOfASetReportsItToo) {
    EXPECT_EQ(results_.toggleFile(0), ToggleResult::toggled);
    EXPECT_EQ(results_.toggleFile(1), ToggleResult::toggled);
    reported_.clear();
    EXPECT_EQ(results_.toggleFile(2), ToggleResult::refused);
    EXPECT_EQ(reported_, (Lines{"marks", "files 2-2", "tree 0/0-0", "tree 0-0"}));
    EXPECT_EQ(three_->files()[2]->state(), CheckState::off);
}

TEST_F(ResultsMarking, TogglingARowThatDoesNotExistOnlyReportsAgain) {
    results_.toggle({});
    EXPECT_EQ(reported_, (Lines{"marks", "files 0-2"}));
    EXPECT_EQ(results_.list().totalFilesSelected(), 0U);
}

TEST_F(ResultsMarking, TogglingAFileThatDoesNotExistReportsNothing) {
    EXPECT_EQ(results_.toggleFile(3), std::nullopt);
    EXPECT_EQ(results_.toggleFile(-1), std::nullopt);
    results_.select({});
    EXPECT_EQ(results_.toggleFile(0), std::nullopt);
    EXPECT_EQ(reported_, Lines());
    EXPECT_EQ(results_.list().totalFilesSelected(), 0U);
}

TEST_F(ResultsMarking, TakingOutMarkedFilesReportsAllRowsAndReloadsTheTable) {
    EXPECT_EQ(results_.toggleFile(1), ToggleResult::toggled);
    reported_.clear();
    EXPECT_EQ(results_.takeOutMarkedFiles(), Lines{"/three1"});
    EXPECT_EQ(reported_, (Lines{"tree 0-1", "tree 0/0-1", "tree 1/0-0", "files reset", "marks"}));
    EXPECT_EQ(results_.files().rowCount(), 2);
    EXPECT_EQ(results_.list().totalFilesSelected(), 0U);
}

TEST_F(ResultsMarking, NumbersOnlyTheSelectedSet) {
    results_.select(set(0, 1));
    EXPECT_EQ(results_.files().rowCount(), 3);  // until the files are shown
    results_.showFilesInOrder(false);
    EXPECT_EQ(results_.files().rowCount(), 2);
    EXPECT_EQ(results_.files().index(0, FileList::fileGroup).data(), QStringLiteral("2"));
    EXPECT_EQ(reported_, Lines{"files reset"});
}

/// Each list is marked by another thread. Nothing reports its end before finishMarking(), because
/// no test runs the event loop.
class ResultsMarkedAside : public ResultsMarking {
 protected:
    ResultsMarkedAside() { results_.setMarkedAsideFrom(0); }
};

TEST_F(ResultsMarkedAside, ShowTheMarksOfBeforeUntilTheyAreReported) {
    EXPECT_EQ(boxOf(set(0, 0)), Qt::Unchecked);
    results_.markAll();
    EXPECT_TRUE(results_.isMarking());
    EXPECT_EQ(reported_, Lines());
    EXPECT_EQ(boxOf(set(0, 0)), Qt::Unchecked);
    EXPECT_EQ(boxOf(results_.files().index(1, FileList::ButtonCell)), Qt::Unchecked);
    results_.finishMarking();
    EXPECT_FALSE(results_.isMarking());
    EXPECT_EQ(reported_, (Lines{"marks", "tree 0-1", "tree 0/0-1", "tree 1/0-0", "files 0-2"}));
    EXPECT_EQ(boxOf(set(0, 0)), Qt::Checked);
    EXPECT_EQ(boxOf(results_.files().index(1, FileList::ButtonCell)), Qt::Checked);
}

TEST_F(ResultsMarkedAside, KeepEveryReaderOfTheListWaiting) {
    results_.markAll();
    EXPECT_EQ(results_.list().totalFilesSelected(), 4U);
    results_.unmarkAll();
    EXPECT_EQ(results_.sharedList()->totalFilesSelected(), 0U);
    results_.markAll();
    EXPECT_EQ(boxOf(set(1, 0)), Qt::Checked);  // was not shown before
    EXPECT_TRUE(results_.isMarking());
}

TEST_F(ResultsMarkedAside, AreShownUnmarkedAtOnceIfTheyAreReloaded) {
    results_.markAll();
    results_.finishMarking();
    EXPECT_EQ(boxOf(set(0, 0)), Qt::Checked);
    results_.unmarkAll();
    EXPECT_EQ(boxOf(set(0, 0)), Qt::Checked);
    results_.reload();
    results_.select(set(0, 0));
    results_.showFilesInOrder(true);
    EXPECT_EQ(boxOf(set(0, 0)), Qt::Unchecked);
    EXPECT_EQ(boxOf(results_.files().index(1, FileList::ButtonCell)), Qt::Unchecked);
    EXPECT_EQ(results_.list().totalFilesSelected(), 0U);
}

TEST_F(ResultsMarkedAside, AreFinishedBeforeAnotherChange) {
    results_.markAll();
    EXPECT_EQ(results_.toggleFile(1), ToggleResult::toggled);
    EXPECT_EQ(results_.list().totalFilesSelected(), 3U);
    results_.markAll();
    results_.toggle(set(0, 0));
    EXPECT_EQ(results_.list().totalFilesSelected(), 2U);
    results_.markAll();
    results_.keepFile(1);
    EXPECT_EQ(three_->files()[0]->state(), CheckState::on);
    results_.unmarkAll();
    EXPECT_EQ(results_.takeOutMarkedFiles(), Lines());
    results_.markAll();
    EXPECT_EQ(results_.takeOutFile(2), "/three2");
    results_.markAll();
    EXPECT_EQ(results_.beginDeletion(), list_);
    EXPECT_FALSE(results_.isMarking());
}

TEST_F(ResultsMarkedAside, AreThoseOfTheLastChange) {
    results_.markByRule({.keep = KeepRule::longest});
    results_.markAll();
    EXPECT_EQ(results_.list().totalFilesSelected(), 4U);
    EXPECT_EQ(three_->files()[0]->state(), CheckState::off);
    results_.unmarkAll();
    results_.markFolderOf(0);
    EXPECT_EQ(results_.list().totalFilesSelected(), 4U);
    results_.unmarkAll();
    results_.toggle(extension(0));
    EXPECT_EQ(results_.list().totalFilesSelected(), 3U);
    results_.toggle(extension(0));
    EXPECT_EQ(results_.list().totalFilesSelected(), 0U);
    EXPECT_EQ(jpg_->extensionState(), CheckState::off);
}

TEST_F(ResultsMarkedAside, AreFinishedBeforeTheListGoes) {
    results_.markAll();
    results_.forget();
    EXPECT_FALSE(results_.isMarking());
    EXPECT_EQ(list_.use_count(), 1);
    EXPECT_EQ(list_->totalFilesSelected(), 4U);
}

TEST_F(ResultsMarkedAside, AreMarkedAtOnceBelowTheLimit) {
    results_.setMarkedAsideFrom(5);
    results_.markAll();  // four duplicates
    EXPECT_FALSE(results_.isMarking());
    results_.setMarkedAsideFrom(4);
    results_.unmarkAll();
    EXPECT_TRUE(results_.isMarking());
    results_.toggle(extension(0));  // of three duplicates
    EXPECT_FALSE(results_.isMarking());
}

class ResultsDeletion : public ResultsTest {
 protected:
    ResultsDeletion() { begin(); }
};

TEST_F(ResultsDeletion, ShowsTheRowsOfItsBeginningUntilItsEnd) {
    const std::shared_ptr<Modal> lent = results_.beginDeletion();
    EXPECT_EQ(lent, list_);
    EXPECT_EQ(results_.files().rowCount(), 0);
    results_.freezeRows(std::make_unique<TreeSnapshot>(*lent));
    EXPECT_EQ(reported_, Lines{"files reset"});
    lent->markAllExtension();
    EXPECT_EQ(lent->addSelectedFilesToExceptionInSet(three_, jpg_).size(), 2U);
    EXPECT_EQ(boxOf(set(1, 0)), Qt::Unchecked);
    EXPECT_EQ(nameOf(set(0, 0)), "Set(2)");

    reported_.clear();
    results_.endDeletion();
    EXPECT_EQ(reported_, (Lines{"tree 0-1", "tree 0/0-1", "tree 1/0-0", "files reset", "marks"}));
    EXPECT_EQ(boxOf(set(1, 0)), Qt::Checked);
    EXPECT_EQ(nameOf(set(0, 0)), "Set(0)");
    EXPECT_EQ(results_.files().rowCount(), 1);
}

TEST_F(ResultsDeletion, ShowsTheListItselfUntilItsRowsAreFrozen) {
    const std::shared_ptr<Modal> lent = results_.beginDeletion();
    lent->markAllExtension();
    EXPECT_EQ(boxOf(set(1, 0)), Qt::Checked);
    results_.freezeRows(std::make_unique<TreeSnapshot>(*lent));
    lent->unmarkAllExtension();
    EXPECT_EQ(boxOf(set(1, 0)), Qt::Checked);
}

class ResultsView : public ResultsTest {};

TEST_F(ResultsView, IsThatOfAllCategoriesAtFirst) {
    begin();
    EXPECT_TRUE(results_.hasResult());
    EXPECT_FALSE(results_.isEmpty());
    EXPECT_EQ(currentViewOf(results_.tabs()), ResultView::all);
    EXPECT_EQ(&results_.list(), list_.get());
}

TEST_F(ResultsView, OfACategoryThatWasNotComparedIsAnEmptyList) {
    begin();
    results_.change(ResultView::audio);
    EXPECT_TRUE(results_.hasResult());
    EXPECT_TRUE(results_.isEmpty());
    EXPECT_EQ(currentViewOf(results_.tabs()), ResultView::audio);
    EXPECT_EQ(results_.filesOf(ResultView::audio), 0U);
    EXPECT_EQ(results_.tree().rowCount(), 2);  // until the next reload()
    results_.reload();
    EXPECT_EQ(results_.tree().rowCount(), 0);
    EXPECT_EQ(results_.files().rowCount(), 0);
}

TEST_F(ResultsView, ReloadSelectsNothing) {
    begin();
    results_.reload();
    EXPECT_EQ(reported_, (Lines{"files reset", "tree reset"}));
    EXPECT_FALSE(results_.selected().isValid());
    EXPECT_EQ(results_.selectedSet(), nullptr);
    EXPECT_EQ(results_.files().rowCount(), 0);
}

TEST_F(ResultsView, ForgettingEmptiesTheModels) {
    begin();
    results_.forget();
    EXPECT_EQ(reported_, (Lines{"files reset", "tree reset"}));
    EXPECT_EQ(results_.tree().rowCount(), 0);
    EXPECT_EQ(results_.tree().modal(), nullptr);
    EXPECT_EQ(results_.files().rowCount(), 0);
    EXPECT_EQ(results_.files().set(), nullptr);
    EXPECT_FALSE(results_.hasResult());
    EXPECT_TRUE(results_.isEmpty());
    EXPECT_FALSE(results_.selected().isValid());
    EXPECT_EQ(list_.use_count(), 1);
}

TEST_F(ResultsView, SumsTheTotalsOfItsListAgain) {
    begin();
    list_->setTotalFiles(7);
    EXPECT_EQ(&results_.countedList(), list_.get());
    EXPECT_EQ(list_->totalFiles(), 4U);
    EXPECT_EQ(list_->totalFilesSize(), 26U);
}

class ResultsWithoutAResult : public ResultsTest {};

TEST_F(ResultsWithoutAResult, ChangeAndReportNothing) {
    results_.markAll();
    results_.unmarkAll();
    results_.toggle({});
    EXPECT_EQ(results_.toggleFile(0), std::nullopt);
    EXPECT_EQ(results_.takeOutMarkedFiles(), Lines());
    results_.showFilesInOrder(true);
    EXPECT_EQ(results_.countedList().totalFiles(), 0U);
    EXPECT_EQ(reported_, Lines());
    EXPECT_FALSE(results_.hasResult());
    EXPECT_TRUE(results_.isEmpty());
}

TEST_F(ResultsWithoutAResult, ChangeOnlyTheTabs) {
    results_.change(ResultView::image);
    EXPECT_EQ(currentViewOf(results_.tabs()), ResultView::image);
    results_.change(ResultView::all);
    EXPECT_EQ(currentViewOf(results_.tabs()), ResultView::all);
    EXPECT_FALSE(results_.hasResult());
}

/// A scan of one pair of files in each category.
class ResultsOfAScan : public ResultsTest {
 protected:
    ResultsOfAScan() {
        for (const char* extension : {"zip", "txt", "mp3", "mp4", "png"}) {
            for (const char* name : {"a.", "b."}) {
                folder_.writeFile(std::string("found/") + name + extension, extension);
            }
        }
        scan_.start({{.name = folder_.pathOf("found"),
                      .image = {},
                      .size = {},
                      .state = true,
                      .folder = true}},
                    ExceptionFilter(Lines()));
        scan_.wait();
        results_.begin();
    }

    [[nodiscard]] Lines extensions() const {
        Lines names;
        for (const std::shared_ptr<Extensions>& extension : results_.list().extensions()) {
            names.push_back(extension->name());
        }
        return names;
    }

    TemporaryFolder folder_;
};

TEST_F(ResultsOfAScan, AreTheListsOfTheCategories) {
    const std::vector<std::pair<ResultView, std::string>> expected{{ResultView::image, "png"},
                                                                   {ResultView::video, "mp4"},
                                                                   {ResultView::audio, "mp3"},
                                                                   {ResultView::documents, "txt"},
                                                                   {ResultView::other, "zip"}};
    for (const auto& [view, extension] : expected) {
        results_.change(view);
        EXPECT_EQ(extensions(), Lines{extension});
        EXPECT_EQ(results_.filesOf(view), 1U) << extension;
        EXPECT_EQ(currentViewOf(results_.tabs()), view) << extension;
    }
}

TEST_F(ResultsOfAScan, JoinAsImagesVideosAudioDocumentsOthers) {
    results_.change(ResultView::other);
    results_.change(ResultView::all);
    EXPECT_EQ(extensions(), (Lines{"png", "mp4", "mp3", "txt", "zip"}));
    EXPECT_EQ(results_.list().totalFiles(), 5U);
    EXPECT_EQ(results_.list().totalFilesSize(), 15U);
}

/// Both lists on the screen with nothing over them, so that only what the models report is painted
/// again. In the program a panel covers them during these operations, and its end repaints all.
class ResultsOnScreen : public ResultsTest {
 protected:
    ResultsOnScreen() {
        outline_.setModel(results_.treeModel());
        outline_.setParent(&window_);
        outline_.setGeometry(0, 0, 250, 300);
        table_.setModel(results_.fileModel());
        table_.setParent(&window_);
        table_.setGeometry(250, 0, 550, 300);
        window_.resize(800, 300);
        begin();
        outline_.expandAll();
        window_.show();
    }

    void SetUp() override { ASSERT_TRUE(QTest::qWaitForWindowExposed(&window_, 20000)); }

    void expectUpToDate() {
        EXPECT_TRUE(isUpToDate(*outline_.viewport()));
        EXPECT_TRUE(isUpToDate(*table_.viewport()));
    }

    QWidget window_;
    ResultTreeView outline_;
    ResultTable table_;
};

TEST_F(ResultsOnScreen, FollowADeletion) {
    const QImage before = onScreen(*outline_.viewport());
    const std::shared_ptr<Modal> lent = results_.beginDeletion();
    results_.freezeRows(std::make_unique<TreeSnapshot>(*lent));
    lent->markAllExtension();
    expectUpToDate();
    EXPECT_TRUE(onScreen(*outline_.viewport()) == before);
    results_.endDeletion();
    EXPECT_FALSE(onScreen(*outline_.viewport()) == before);
    expectUpToDate();
}

TEST_F(ResultsOnScreen, FollowFilesTakenOut) {
    results_.markAll();
    const QImage marked = onScreen(*outline_.viewport());
    EXPECT_EQ(results_.takeOutMarkedFiles().size(), 4U);
    EXPECT_FALSE(onScreen(*outline_.viewport()) == marked);
    expectUpToDate();
}

}  // namespace
}  // namespace tarvin
