#include "controller/put_back_list.h"

#include "interface/list_table.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QString>
#include <string>

namespace tarvin {
namespace {

class PutBackListTest : public ::testing::Test {
 protected:
    [[nodiscard]] std::string text(int row, int column, int role = Qt::DisplayRole) const {
        return list_.data(list_.index(row, column), role).toString().toStdString();
    }

    PutBackList list_;
    QAbstractItemModelTester tester_{&list_};
};

TEST_F(PutBackListTest, ShowsNameFolderAndStatus) {
    PutBackForecast forecast;
    PutBackFile file;
    file.path = "/photos/a.jpg";
    file.outcome = PutBackOutcome::toItsPlace;
    forecast.add(file);
    list_.setFiles(forecast);
    ASSERT_EQ(list_.rowCount(), 1);
    EXPECT_EQ(text(0, PutBackList::fileColumn), "a.jpg");
    EXPECT_EQ(text(0, PutBackList::fileColumn, ListTable::secondLineRole), "/photos");
    EXPECT_EQ(text(0, PutBackList::fileColumn, Qt::AccessibleTextRole), "a.jpg, to /photos, Ready");
    EXPECT_EQ(text(0, PutBackList::statusColumn), "Ready");
}

TEST_F(PutBackListTest, CountsInTheLastRowTheFilesThatItDoesNotList) {
    UncheckedCleanUp cleanUp;
    cleanUp.paths = {"/a.jpg", "/b.jpg"};
    cleanUp.all = 2;
    list_.setUnchecked(cleanUp);
    EXPECT_EQ(list_.rowCount(), 2);
    cleanUp.all = 5;
    list_.setUnchecked(cleanUp);
    ASSERT_EQ(list_.rowCount(), 3);
    EXPECT_EQ(text(0, PutBackList::statusColumn), "Checking…");
    EXPECT_EQ(text(2, PutBackList::fileColumn), "and 3 more");
    EXPECT_EQ(text(2, PutBackList::statusColumn), "");
}

TEST_F(PutBackListTest, ListsAtMostTenThousandFiles) {
    PutBackForecast forecast;
    PutBackFile file;
    file.path = "/a.jpg";
    file.outcome = PutBackOutcome::toItsPlace;
    for (int count = 0; count < 10'001; ++count) {
        forecast.add(file);
    }
    list_.setFiles(forecast);
    EXPECT_EQ(list_.rowCount(), 10'001);
    EXPECT_EQ(text(10'000, PutBackList::fileColumn), "and 1 more");
}

}  // namespace
}  // namespace tarvin
