#include "controller/file_list.h"

#include "model/result_tree.h"

#include <gtest/gtest.h>
#include <malloc.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarvin {
namespace {

std::shared_ptr<Set> setOf(const std::vector<std::string>& paths) {
    auto set = std::make_shared<Set>();
    for (const std::string& path : paths) {
        set->addFiles(FileStore::standalone(path, 1));
    }
    return set;
}

class FileListTest : public ::testing::Test {
 protected:
    [[nodiscard]] QVariant cell(int row, int column, int role = Qt::DisplayRole) const {
        return list_.data(list_.index(row, column), role);
    }

    FileList list_;
    // Aborts if the model is inconsistent.
    QAbstractItemModelTester tester_{&list_, QAbstractItemModelTester::FailureReportingMode::Fatal};
    QSignalSpy changed_{&list_, &QAbstractItemModel::dataChanged};
};

TEST_F(FileListTest, HasNoRowsWithoutASet) {
    EXPECT_EQ(list_.rowCount(), 0);
    EXPECT_EQ(list_.columnCount(), 4);
    EXPECT_EQ(list_.fileAt(0), nullptr);
    list_.allMarksChanged();
    EXPECT_EQ(changed_.size(), 0);
}

TEST_F(FileListTest, HasNoRowsOfAnEmptySet) {
    list_.setSet(std::make_shared<Set>(), 1);
    EXPECT_EQ(list_.rowCount(), 0);
}

TEST_F(FileListTest, HoldsTheMarksThatItShowed) {
    const std::shared_ptr<Set> set = setOf({"/a", "/b"});
    set->markAllFiles();
    list_.setSet(set, 1);
    bool waited = false;
    list_.holdMarks({.wait = [&waited] { waited = true; }, .after = CheckState::off});
    set->unmarkAllFiles();
    EXPECT_EQ(cell(0, FileList::ButtonCell, Qt::CheckStateRole), Qt::Unchecked);
    EXPECT_EQ(cell(1, FileList::ButtonCell, Qt::CheckStateRole), Qt::Checked);
    list_.releaseMarks();
    EXPECT_EQ(cell(1, FileList::ButtonCell, Qt::CheckStateRole), Qt::Unchecked);
    EXPECT_FALSE(waited);
}

TEST_F(FileListTest, ShowsAnotherSetWithTheMarksOfAfterOrWaits) {
    const std::shared_ptr<Set> set = setOf({"/a", "/b"});
    set->markAllFiles();
    int waited = 0;
    list_.holdMarks({.wait = [&waited] { ++waited; }, .after = CheckState::off});
    list_.setSet(set, 1);
    EXPECT_EQ(cell(1, FileList::ButtonCell, Qt::CheckStateRole), Qt::Unchecked);
    EXPECT_EQ(waited, 0);
    list_.holdMarks({.wait = [&waited] { ++waited; }});
    list_.setSet(set, 1);
    EXPECT_EQ(cell(1, FileList::ButtonCell, Qt::CheckStateRole), Qt::Checked);
    EXPECT_EQ(waited, 1);
}

TEST_F(FileListTest, ShowsTheFilesInTheOrderOfTheSet) {
    QSignalSpy reset(&list_, &QAbstractItemModel::modelReset);
    list_.setSet(setOf({"/home/ann/b.png", "/a.png"}), 7);
    EXPECT_EQ(reset.size(), 1);
    EXPECT_EQ(list_.rowCount(), 2);
    EXPECT_EQ(cell(0, FileList::nameText), "b.png");
    EXPECT_EQ(cell(0, FileList::fileLocation), "/home/ann");
    EXPECT_EQ(cell(0, FileList::fileGroup), "7");
    EXPECT_EQ(cell(0, FileList::ButtonCell), QVariant());
    EXPECT_EQ(cell(1, FileList::nameText), "a.png");
    EXPECT_EQ(cell(1, FileList::fileLocation), "/");
    EXPECT_EQ(cell(1, FileList::fileGroup), "7");
    EXPECT_EQ(list_.fileAt(1)->filePath(), "/a.png");
    EXPECT_EQ(list_.fileAt(2), nullptr);
    EXPECT_EQ(list_.fileAt(-1), nullptr);
}

TEST_F(FileListTest, GroupsNumbersWithoutSeparators) {
    list_.setSet(setOf({"/a"}), 123456);
    EXPECT_EQ(cell(0, FileList::fileGroup), "123456");
}

TEST_F(FileListTest, ChecksTheBoxesOfMarkedFiles) {
    const std::shared_ptr<Set> set = setOf({"/a", "/b"});
    list_.setSet(set, 1);
    set->changeStateOfFile(set->files()[1]);
    EXPECT_EQ(cell(0, FileList::ButtonCell, Qt::CheckStateRole).toInt(), Qt::Unchecked);
    EXPECT_EQ(cell(1, FileList::ButtonCell, Qt::CheckStateRole).toInt(), Qt::Checked);
    EXPECT_EQ(cell(1, FileList::nameText, Qt::CheckStateRole), QVariant());
}

TEST_F(FileListTest, ReportsOneMarkInOneCell) {
    list_.setSet(setOf({"/a", "/b", "/c"}), 1);
    list_.markChanged(1);
    ASSERT_EQ(changed_.size(), 1);
    EXPECT_EQ(changed_[0][0].toModelIndex(), list_.index(1, FileList::ButtonCell));
    EXPECT_EQ(changed_[0][1].toModelIndex(), list_.index(1, FileList::ButtonCell));
    list_.markChanged(3);
    list_.markChanged(-1);
    EXPECT_EQ(changed_.size(), 1);
}

TEST_F(FileListTest, ReportsAllMarksInOneColumn) {
    list_.setSet(setOf({"/a", "/b", "/c"}), 1);
    list_.allMarksChanged();
    ASSERT_EQ(changed_.size(), 1);
    EXPECT_EQ(changed_[0][0].toModelIndex(), list_.index(0, FileList::ButtonCell));
    EXPECT_EQ(changed_[0][1].toModelIndex(), list_.index(2, FileList::ButtonCell));
}

TEST_F(FileListTest, NamesItsBoxesForAssistiveTechnology) {
    list_.setSet(setOf({"/home/100%1 photos.png"}), 1);
    EXPECT_EQ(cell(0, FileList::ButtonCell, Qt::AccessibleTextRole), "Mark 100%1 photos.png");
    EXPECT_TRUE(list_.flags(list_.index(0, FileList::ButtonCell)) & Qt::ItemIsUserCheckable);
    EXPECT_FALSE(list_.flags(list_.index(0, FileList::nameText)) & Qt::ItemIsUserCheckable);
    EXPECT_FALSE(list_.flags(list_.index(0, FileList::nameText)) & Qt::ItemIsEditable);
}

TEST_F(FileListTest, HasHeaders) {
    const auto header = [this](int section, int role) {
        return list_.headerData(section, Qt::Horizontal, role).toString();
    };
    const std::vector<QString> identifiers{"nameText", "fileLocation", "fileGroup", "ButtonCell"};
    const std::vector<QString> titles{"Name", "Location", "Set", "Mark"};
    for (int column = 0; column < 4; ++column) {
        const auto position = static_cast<std::size_t>(column);
        EXPECT_EQ(header(column, FileList::identifier), identifiers[position]);
        EXPECT_EQ(header(column, Qt::DisplayRole), titles[position]);
    }
    EXPECT_FALSE(list_.headerData(4, Qt::Horizontal, Qt::DisplayRole).isValid());
    EXPECT_FALSE(list_.headerData(0, Qt::Vertical, Qt::DisplayRole).isValid());
}

TEST_F(FileListTest, ShowsOddNamesInOneLineAndKeepsThePath) {
    const std::string path = "/home/l\xff/photo\n\xe2\x80\xaegnp.exe\xe2\x80\xa8";
    list_.setSet(setOf({path}), 1);
    EXPECT_EQ(cell(0, FileList::nameText), QStringLiteral("photo\uFFFD\uFFFDgnp.exe\uFFFD"));
    EXPECT_EQ(cell(0, FileList::fileLocation), QStringLiteral("/home/l\uFFFD"));
    EXPECT_EQ(cell(0, FileList::ButtonCell, Qt::AccessibleTextRole),
              QStringLiteral("Mark photo\uFFFD\uFFFDgnp.exe\uFFFD"));
    EXPECT_EQ(cell(0, FileList::nameText, Qt::ToolTipRole),
              QStringLiteral("/home/l\uFFFD/photo\uFFFD\uFFFDgnp.exe\uFFFD"));
    EXPECT_EQ(list_.fileAt(0)->filePath(), path);
}

TEST_F(FileListTest, ShowsTheWholePathAsToolTipLetterForLetter) {
    list_.setSet(setOf({"/home/<b>x</b>.png"}), 1);
    EXPECT_EQ(cell(0, FileList::ButtonCell, Qt::ToolTipRole),
              "<span style=\"white-space:pre\">/home/&lt;b&gt;x&lt;/b&gt;.png</span>");
}

TEST_F(FileListTest, LeavesRowsEmptyWhoseFilesHaveGone) {
    const std::shared_ptr<Set> set = setOf({"/a", "/b", "/c"});
    list_.setSet(set, 1);
    set->changeStateOfFile(set->files()[0]);
    EXPECT_EQ(set->addSelectedFilesInSetToException().size(), 1U);
    EXPECT_EQ(list_.rowCount(), 3);
    EXPECT_EQ(cell(2, FileList::nameText), QVariant());
    EXPECT_EQ(list_.fileAt(2), nullptr);
    list_.setSet(set, 1);
    EXPECT_EQ(list_.rowCount(), 2);
    EXPECT_EQ(cell(0, FileList::nameText), "b");
}

TEST(LargeFileList, TakesNoMemoryForItsRows) {
    const auto set = std::make_shared<Set>();
    const std::shared_ptr<FileStore> store = FileStore::create();
    const Directory* const folder = store->addRoot("/large");
    for (int file = 0; file < 500'000; ++file) {
        set->addFiles(store->share(store->addFile(folder, "file", 1, std::nullopt, std::nullopt)));
    }
    FileList list;
    list.setSet(std::make_shared<Set>(), 1);
    const std::size_t before = ::mallinfo2().uordblks;
    list.setSet(set, 1);
    int named = 0;
    for (int row = 0; row < list.rowCount(); ++row) {
        named += static_cast<int>(list.data(list.index(row, FileList::nameText), Qt::DisplayRole) ==
                                  "file");
    }
    list.allMarksChanged();
    EXPECT_EQ(named, 500'000);
    EXPECT_LE(::mallinfo2().uordblks, before + 4096);
}

}  // namespace
}  // namespace tarvin
