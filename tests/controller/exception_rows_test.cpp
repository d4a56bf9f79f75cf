#include "controller/exception_rows.h"

#include "controller/exception_list_texts.h"
#include "interface/list_table.h"

#include <gtest/gtest.h>

#include <array>

namespace tarvin {
namespace {

using Lines = std::vector<std::string>;

class ExceptionRowsTest : public testing::Test {
 protected:
    ExceptionRowsTest() {
        rows.setPaths({"/p/b/map.png", "/p/a/LICENSE.txt", "/p/b/Überblick.pdf", "/p/a/cover.odt",
                       "/media/x/map.png"});
    }

    [[nodiscard]] Lines names() const { return texts(ExceptionRows::name, Qt::DisplayRole); }

    [[nodiscard]] Lines texts(int column, int role) const {
        Lines lines;
        for (int row = 0; row < rows.rowCount(); ++row) {
            lines.push_back(rows.index(row, column).data(role).toString().toStdString());
        }
        return lines;
    }

    void know(std::size_t first, const std::vector<Presence>& presences) {
        rows.setPresences(first, presences);
    }

    ExceptionRows rows;
};

TEST_F(ExceptionRowsTest, AreSortedByNameWithoutRegardToCase) {
    EXPECT_EQ(names(), (Lines{"cover.odt", "LICENSE.txt", "map.png", "map.png", "Überblick.pdf"}));
    EXPECT_EQ(texts(ExceptionRows::folder, Qt::DisplayRole),
              (Lines{"/p/a", "/p/a", "/media/x", "/p/b", "/p/b"}));
    EXPECT_EQ(rows.all(), 5U);
    EXPECT_EQ(rows.pathAt(2), "/media/x/map.png");
}

TEST_F(ExceptionRowsTest, CanBeSortedByFolder) {
    rows.sortBy(ExceptionRows::folder);
    EXPECT_EQ(texts(ExceptionRows::folder, Qt::DisplayRole),
              (Lines{"/media/x", "/p/a", "/p/a", "/p/b", "/p/b"}));
    EXPECT_EQ(names(), (Lines{"map.png", "cover.odt", "LICENSE.txt", "map.png", "Überblick.pdf"}));
    rows.sortBy(ExceptionRows::name);
    EXPECT_EQ(names().front(), "cover.odt");
}

TEST_F(ExceptionRowsTest, AreTurnedRoundIfSortedByTheSameColumnAgain) {
    rows.sortBy(ExceptionRows::name);
    EXPECT_EQ(names(), (Lines{"Überblick.pdf", "map.png", "map.png", "LICENSE.txt", "cover.odt"}));
    rows.sortBy(ExceptionRows::name);
    EXPECT_EQ(names().front(), "cover.odt");
    rows.sortBy(ExceptionRows::folder);
    rows.sortBy(ExceptionRows::folder);
    EXPECT_EQ(texts(ExceptionRows::folder, Qt::DisplayRole),
              (Lines{"/p/b", "/p/b", "/p/a", "/p/a", "/media/x"}));
    EXPECT_EQ(names(), (Lines{"Überblick.pdf", "map.png", "LICENSE.txt", "cover.odt", "map.png"}));
}

TEST_F(ExceptionRowsTest, AreNotTurnedRoundByAnotherColumn) {
    rows.sortBy(ExceptionRows::name);
    rows.sortBy(ExceptionRows::folder);
    EXPECT_EQ(names(), (Lines{"map.png", "cover.odt", "LICENSE.txt", "map.png", "Überblick.pdf"}));
    rows.sortBy(ExceptionRows::folder);
    rows.sortBy(ExceptionRows::name);
    EXPECT_EQ(names().front(), "cover.odt");
}

TEST_F(ExceptionRowsTest, KeepTheSearchWhenTurnedRound) {
    rows.search(QStringLiteral("p/a"));
    rows.sortBy(ExceptionRows::name);
    EXPECT_EQ(names(), (Lines{"LICENSE.txt", "cover.odt"}));
    rows.removeRowsAt({0});
    rows.search(QString());
    EXPECT_EQ(names(), (Lines{"Überblick.pdf", "map.png", "map.png", "cover.odt"}));
}

TEST_F(ExceptionRowsTest, KeepTheOrderOfAChangedList) {
    rows.sortBy(ExceptionRows::name);
    rows.setPaths({"/b/1.jpg", "/a/2.jpg", "/a/3.jpg"});
    EXPECT_EQ(names(), (Lines{"3.jpg", "2.jpg", "1.jpg"}));
    rows.sortBy(ExceptionRows::folder);
    rows.setPaths({"/b/1.jpg", "/a/2.jpg", "/a/3.jpg"});
    EXPECT_EQ(names(), (Lines{"2.jpg", "3.jpg", "1.jpg"}));
}

TEST_F(ExceptionRowsTest, AreSortedByNameAfterAllWereCleared) {
    rows.sortBy(ExceptionRows::folder);
    rows.sortBy(ExceptionRows::folder);
    rows.clear();
    EXPECT_EQ(rows.rowCount(), 0);
    rows.setPaths({"/b/1.jpg", "/a/2.jpg"});
    EXPECT_EQ(names(), (Lines{"1.jpg", "2.jpg"}));
    rows.sortBy(ExceptionRows::folder);
    EXPECT_EQ(names(), (Lines{"2.jpg", "1.jpg"}));
}

TEST_F(ExceptionRowsTest, AreSearchedWithoutRegardToCaseAndAccents) {
    rows.search(QStringLiteral("UBER"));
    EXPECT_EQ(names(), Lines{"Überblick.pdf"});
    rows.search(QStringLiteral("MÄP"));
    EXPECT_EQ(names(), (Lines{"map.png", "map.png"}));
    EXPECT_EQ(rows.all(), 5U);
    rows.search(QString());
    EXPECT_EQ(rows.rowCount(), 5);
}

TEST_F(ExceptionRowsTest, AreSearchedInNamesAndFolders) {
    rows.search(QStringLiteral("P/A"));
    EXPECT_EQ(names(), (Lines{"cover.odt", "LICENSE.txt"}));
    rows.search(QStringLiteral("media/x/m"));
    EXPECT_EQ(names(), Lines{"map.png"});
    rows.search(QStringLiteral("txt/"));
    EXPECT_EQ(names(), Lines());
}

TEST_F(ExceptionRowsTest, KeepTheSearchWhenSorted) {
    rows.search(QStringLiteral("map"));
    rows.sortBy(ExceptionRows::folder);
    EXPECT_EQ(texts(ExceptionRows::folder, Qt::DisplayRole), (Lines{"/media/x", "/p/b"}));
}

TEST_F(ExceptionRowsTest, HaveTheMarksOfTheirFiles) {
    know(0, {Presence::missing, Presence::present});
    know(4, {Presence::notAttached});
    EXPECT_EQ(texts(ExceptionRows::folder, ListTable::markRole),
              (Lines{"", "", "Drive not attached", "Not there any more", ""}));
    EXPECT_EQ(texts(ExceptionRows::name, ListTable::mutedRole),
              (Lines{"false", "false", "true", "true", "false"}));
    EXPECT_EQ(
        texts(ExceptionRows::name, Qt::AccessibleTextRole),
        (Lines{"cover.odt, /p/a", "LICENSE.txt, /p/a", "map.png, /media/x, drive not attached",
               "map.png, /p/b, not there any more", "Überblick.pdf, /p/b"}));
    EXPECT_EQ(rows.missing(), 1U);
    EXPECT_EQ(rows.missingPaths(), Lines{"/p/b/map.png"});
}

TEST_F(ExceptionRowsTest, LoseTheRemovedRows) {
    know(0, {Presence::missing});
    rows.search(QStringLiteral("map"));
    rows.removeRowsAt({1});
    EXPECT_EQ(rows.missing(), 0U);
    EXPECT_EQ(rows.rowCount(), 1);
    rows.search(QString());
    EXPECT_EQ(names(), (Lines{"cover.odt", "LICENSE.txt", "map.png", "Überblick.pdf"}));
    EXPECT_EQ(rows.pathAt(2), "/media/x/map.png");
    // News come in the order of the paths as they were.
    know(1, {Presence::missing, Presence::missing, Presence::present, Presence::missing});
    EXPECT_EQ(rows.missing(), 3U);
}

TEST_F(ExceptionRowsTest, LoseAllMissingFiles) {
    know(0, {Presence::missing, Presence::present, Presence::missing, Presence::present,
             Presence::notAttached});
    rows.search(QStringLiteral("cover"));
    rows.removeMissing();
    rows.search(QString());
    EXPECT_EQ(names(), (Lines{"cover.odt", "LICENSE.txt", "map.png"}));
    EXPECT_EQ(rows.missing(), 0U);
}

TEST_F(ExceptionRowsTest, ShowNamesOfAnyBytes) {
    rows.setPaths({"/\xff.jpg", "/line\nend.jpg", "relative"});
    EXPECT_EQ(names(), (Lines{"line\ufffdend.jpg", "relative", "\ufffd.jpg"}));
    EXPECT_EQ(rows.pathAt(2), "/\xff.jpg");
    EXPECT_EQ(texts(ExceptionRows::folder, Qt::DisplayRole), (Lines{"/", "", "/"}));
}

TEST_F(ExceptionRowsTest, HaveTitles) {
    EXPECT_EQ(rows.headerData(0, Qt::Horizontal, Qt::DisplayRole), QStringLiteral("Name"));
    EXPECT_EQ(rows.headerData(1, Qt::Horizontal, Qt::DisplayRole), QStringLiteral("Folder"));
}

TEST(ExceptionListTexts, CountFiles) {
    EXPECT_EQ(ExceptionListTexts::count(1, 0), QStringLiteral("1 file"));
    EXPECT_EQ(ExceptionListTexts::count(1, 1), QStringLiteral("1 file, not there any more"));
    EXPECT_EQ(ExceptionListTexts::count(38, 0), QStringLiteral("38 files"));
    EXPECT_EQ(ExceptionListTexts::count(1406, 4),
              QStringLiteral("1,406 files, 4 not there any more"));
    EXPECT_EQ(ExceptionListTexts::found(0, 1), QStringLiteral("0 of 1 file"));
    EXPECT_EQ(ExceptionListTexts::found(3, 38), QStringLiteral("3 of 38 files"));
    EXPECT_EQ(ExceptionListTexts::none(QStringLiteral("x%1")),
              QStringLiteral("No exception matches \"x%1\"."));
}

}  // namespace
}  // namespace tarvin
