#include "controller/location_model.h"

#include "controller/rows.h"
#include "controls/custom_table_cell_view.h"
#include "support/fake_platform.h"
#include "support/file_tree.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QIcon>
#include <QMimeData>
#include <QSignalSpy>
#include <QUrl>
#include <chrono>
#include <string>
#include <vector>

namespace tarvin {
namespace {

using Paths = std::vector<std::string>;

class LocationModelTest : public ::testing::Test {
 protected:
    [[nodiscard]] QVariant cell(int row, int column, int role) const {
        return model_.index(row, column).data(role);
    }

    [[nodiscard]] QString text(int row, int role = Qt::DisplayRole) const {
        return cell(row, LocationModel::mainCell, role).toString();
    }

    bool drop(const QMimeData& data, int row = -1, const QModelIndex& parent = {}) {
        return model_.dropMimeData(&data, Qt::CopyAction, row, -1, parent);
    }

    bool dropPaths(const Paths& paths, int row = -1, const QModelIndex& parent = {}) {
        QByteArray list;
        for (const std::string& path : paths) {
            list += "file://" + QByteArray::fromStdString(path).toPercentEncoding("/") + "\r\n";
        }
        QMimeData data;
        data.setData(QStringLiteral("text/uri-list"), list);
        return drop(data, row, parent);
    }

    FileTree tree_;
    FakePlatform platform_;
    LocationList list_{platform_};
    LocationModel model_{list_};
    // Aborts if the model is inconsistent.
    QAbstractItemModelTester tester_{&model_,
                                     QAbstractItemModelTester::FailureReportingMode::Fatal};
    QSignalSpy dropped_{&model_, &LocationModel::dropped};
};

class LocationCells : public LocationModelTest {};
class LocationChanges : public LocationModelTest {};
class LocationDrops : public LocationModelTest {};

TEST_F(LocationCells, AreTwoInARow) {
    EXPECT_EQ(model_.rowCount(), 0);
    EXPECT_EQ(model_.columnCount(), 2);
    list_.addFolders({"/a", "/b"});
    EXPECT_EQ(model_.rowCount(), 2);
    EXPECT_EQ(model_.rowCount(model_.index(0, 0)), 0);
    EXPECT_EQ(model_.columnCount(model_.index(0, 0)), 0);
}

TEST_F(LocationCells, AreUnderTheirHeaders) {
    const auto header = [this](int section, int role) {
        return model_.headerData(section, Qt::Horizontal, role).toString();
    };
    QSignalSpy changed(&model_, &QAbstractItemModel::headerDataChanged);
    model_.setHeader(QStringLiteral("Select Drive"));
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(header(0, Qt::DisplayRole), "Select Drive");
    EXPECT_EQ(header(1, Qt::DisplayRole), "Scan");
    EXPECT_EQ(header(0, LocationModel::identifier), "MainCell");
    EXPECT_EQ(header(1, LocationModel::identifier), "buttonCell");
    EXPECT_FALSE(model_.headerData(2, Qt::Horizontal, Qt::DisplayRole).isValid());
    EXPECT_FALSE(model_.headerData(0, Qt::Vertical, Qt::DisplayRole).isValid());
}

TEST_F(LocationCells, ShowAFolder) {
    list_.addFolders({"/home/ann/My photos"});
    EXPECT_EQ(text(0), "/home/ann/My photos");
    EXPECT_EQ(text(0, CustomTableCellView::additionalTextCountRole), "My photos");
    EXPECT_EQ(text(0, CustomTableCellView::additionalTextRole), "");
    EXPECT_EQ(text(0, LocationModel::imageName), "folder.png");
    EXPECT_EQ(text(0, LocationModel::thumbnailPath), "");
    EXPECT_TRUE(cell(0, 0, LocationModel::isFolder).toBool());
    EXPECT_EQ(cell(0, 1, Qt::DisplayRole), QVariant());
}

TEST_F(LocationCells, ShowADriveWithItsPicture) {
    platform_.setMountedVolumes({{"/", "ext4", VolumeKind::internal}});
    list_.setInitialState();
    EXPECT_EQ(text(0, CustomTableCellView::additionalTextCountRole), "/");
    EXPECT_EQ(text(0, LocationModel::imageName), "g5_apple_drive.png");
    EXPECT_TRUE(cell(0, 0, Qt::DecorationRole).canConvert<QIcon>());
}

TEST_F(LocationCells, ShowAFileWithItsSize) {
    const std::string image = tree_.writeFile("a.png", std::string(1050, 'x'));
    list_.addFiles({image});
    EXPECT_EQ(text(0, CustomTableCellView::additionalTextCountRole), "a.png");
    EXPECT_EQ(text(0, CustomTableCellView::additionalTextRole), "1.05 KB");
    EXPECT_EQ(text(0, LocationModel::imageName), "");
    EXPECT_EQ(cell(0, 0, LocationModel::thumbnailPath).toByteArray().toStdString(), image);
    EXPECT_FALSE(cell(0, 0, LocationModel::isFolder).toBool());
}

TEST_F(LocationCells, ShowTheSmallPictureOfAFileWhenItArrives) {
    const std::string image = tree_.writeFile("a.png");
    list_.addFolders({"/other"});
    list_.addFiles({image});
    EXPECT_FALSE(cell(1, 0, Qt::DecorationRole).value<QIcon>().isNull());
    bool hasArrived = false;
    Paths asked;
    model_.setThumbnailSource([&](const std::string& path) {
        asked.push_back(path);
        return hasArrived ? QPixmap(74, 74) : QPixmap();
    });
    EXPECT_FALSE(cell(1, 0, Qt::DecorationRole).value<QIcon>().isNull());
    EXPECT_EQ(asked, Paths{image});
    QSignalSpy changed(&model_, &QAbstractItemModel::dataChanged);
    hasArrived = true;
    model_.thumbnailArrived(image);
    model_.thumbnailArrived("/gone.png");
    ASSERT_EQ(changed.size(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex(), model_.index(1, 0));
    EXPECT_EQ(cell(1, 0, Qt::DecorationRole).value<QPixmap>().size(), QSize(74, 74));
}

TEST_F(LocationCells, ShowNamesThatAreNotTextAndKeepTheirBytes) {
    list_.addFolders({"/a\xff/b\xfe"});
    EXPECT_EQ(text(0), QStringLiteral("/a\uFFFD/b\uFFFD"));
    EXPECT_EQ(text(0, CustomTableCellView::additionalTextCountRole), QStringLiteral("b\uFFFD"));
    EXPECT_EQ(cell(0, 0, LocationModel::pathBytes).toByteArray(), QByteArray("/a\xff/b\xfe"));
}

TEST_F(LocationCells, HaveToolTipsThatAreNoMarkup) {
    list_.addFolders({"/a", "/<b>bold</b>"});
    EXPECT_EQ(text(0, Qt::ToolTipRole), "/a");
    EXPECT_TRUE(text(1, Qt::ToolTipRole).contains("&lt;b&gt;bold&lt;/b&gt;"));
    EXPECT_EQ(cell(0, 1, Qt::ToolTipRole).toString(), "/a");
}

TEST_F(LocationCells, HaveNamesForAssistiveTechnology) {
    list_.addFolders({"/home/ann/Photos"});
    EXPECT_EQ(text(0, Qt::AccessibleTextRole), "Photos");
    EXPECT_EQ(cell(0, 1, Qt::AccessibleTextRole).toString(), "Scan this location: Photos");
}

TEST_F(LocationCells, TakeDropsAndTheSecondAClick) {
    list_.addFolders({"/a"});
    EXPECT_TRUE(model_.flags({}) & Qt::ItemIsDropEnabled);
    EXPECT_TRUE(model_.flags(model_.index(0, 0)) & Qt::ItemIsDropEnabled);
    EXPECT_FALSE(model_.flags(model_.index(0, 0)) & Qt::ItemIsUserCheckable);
    EXPECT_TRUE(model_.flags(model_.index(0, 1)) & Qt::ItemIsUserCheckable);
    EXPECT_FALSE(model_.flags(model_.index(0, 1)) & Qt::ItemIsEditable);
}

TEST_F(LocationChanges, CheckARowAndSayWhichOne) {
    list_.addFolders({"/a", "/b"});
    QSignalSpy clicked(&model_, &LocationModel::checkButtonClicked);
    QSignalSpy changed(&model_, &QAbstractItemModel::dataChanged);
    EXPECT_EQ(cell(1, 1, Qt::CheckStateRole), Qt::Checked);
    EXPECT_EQ(cell(1, 0, Qt::CheckStateRole), QVariant());
    EXPECT_TRUE(model_.setData(model_.index(1, 1), Qt::Unchecked, Qt::CheckStateRole));
    EXPECT_EQ(cell(1, 1, Qt::CheckStateRole), Qt::Unchecked);
    EXPECT_EQ(statesOf(list_), (std::vector<bool>{true, false}));
    ASSERT_EQ(clicked.size(), 1);
    EXPECT_EQ(clicked[0][0].toInt(), 1);
    ASSERT_EQ(changed.size(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex(), model_.index(1, 1));
    EXPECT_TRUE(model_.setData(model_.index(1, 1), Qt::Checked, Qt::CheckStateRole));
    EXPECT_EQ(list_.stateArray(), Paths{"/b"});
}

TEST_F(LocationChanges, AreRefusedOutsideTheCheckBoxes) {
    list_.addFolders({"/a"});
    QSignalSpy clicked(&model_, &LocationModel::checkButtonClicked);
    EXPECT_FALSE(model_.setData(model_.index(0, 0), Qt::Unchecked, Qt::CheckStateRole));
    EXPECT_FALSE(model_.setData(model_.index(0, 1), "text", Qt::EditRole));
    EXPECT_FALSE(model_.setData({}, Qt::Unchecked, Qt::CheckStateRole));
    EXPECT_EQ(statesOf(list_), std::vector<bool>{true});
    EXPECT_EQ(clicked.size(), 0);
}

TEST_F(LocationChanges, ReachTheViews) {
    tree_.makeFolder("top/a");
    tree_.makeFolder("top/b");
    platform_.setMountedVolumes({{"/", "ext4", VolumeKind::internal}});
    QSignalSpy inserted(&model_, &QAbstractItemModel::rowsInserted);
    QSignalSpy reset(&model_, &QAbstractItemModel::modelReset);
    QSignalSpy changed(&model_, &QAbstractItemModel::dataChanged);
    list_.setInitialState();
    list_.addFolders({"/x", "/y"});
    list_.addFolders({"/x"});
    ASSERT_EQ(inserted.size(), 2);
    EXPECT_EQ(inserted[1][1].toInt(), 1);
    EXPECT_EQ(inserted[1][2].toInt(), 2);
    list_.markAllExact();
    ASSERT_EQ(changed.size(), 1);
    EXPECT_EQ(changed[0][1].toModelIndex(), model_.index(2, 1));
    EXPECT_TRUE(list_.loadFolder(tree_.pathOf("top")));
    EXPECT_EQ(reset.size(), 1);
    EXPECT_EQ(model_.rowCount(), 2);
    list_.markAllExact();
    list_.removeFromListExact();
    EXPECT_EQ(reset.size(), 2);
    EXPECT_EQ(model_.rowCount(), 0);
    list_.unmarkAllExact();
    list_.removeAllRows();
    EXPECT_EQ(reset.size(), 3);
    EXPECT_EQ(changed.size(), 2);
}

TEST_F(LocationChanges, AreIgnoredAfterTheModelIsDestroyed) {
    {
        LocationList list(platform_);
        {
            const LocationModel model(list);
        }
        list.addFolders({"/a"});
        list.markAllExact();
        list.removeAllRows();
        EXPECT_TRUE(list.rows().empty());
    }
}

TEST_F(LocationDrops, AreAllAccepted) {
    const QMimeData nothing;
    for (const Qt::DropAction action : {Qt::CopyAction, Qt::MoveAction, Qt::LinkAction}) {
        EXPECT_TRUE(model_.supportedDropActions() & action);
        EXPECT_TRUE(model_.canDropMimeData(&nothing, action, -1, -1, {}));
    }
}

TEST_F(LocationDrops, GoWhereTheyAreDropped) {
    const Paths folders{tree_.makeFolder("a"), tree_.makeFolder("b"), tree_.makeFolder("c"),
                        tree_.makeFolder("d")};
    EXPECT_TRUE(dropPaths({folders[0]}));
    EXPECT_TRUE(dropPaths({folders[1]}));
    EXPECT_TRUE(dropPaths({folders[2]}, 0));
    EXPECT_TRUE(dropPaths({folders[3]}, -1, model_.index(1, 0)));
    EXPECT_EQ(namesOf(list_), (Paths{folders[2], folders[3], folders[0], folders[1]}));
}

TEST_F(LocationDrops, KeepTheirOrder) {
    const Paths folders{tree_.makeFolder("b"), tree_.makeFolder("a"), tree_.makeFolder("c")};
    EXPECT_TRUE(dropPaths(folders));
    EXPECT_EQ(namesOf(list_), folders);
}

TEST_F(LocationDrops, SayWhatBecameOfThem) {
    const std::string folder = tree_.makeFolder("a");
    EXPECT_TRUE(dropPaths({folder}));
    EXPECT_FALSE(dropPaths({folder}));
    EXPECT_FALSE(dropPaths({tree_.writeFile("text.txt")}));
    ASSERT_EQ(dropped_.size(), 3);
    EXPECT_EQ(dropped_[0][0].value<Addition>(), (Addition{1, LocationNotice::none}));
    EXPECT_EQ(dropped_[1][0].value<Addition>(), (Addition{0, LocationNotice::fileAlreadyAdded}));
    EXPECT_EQ(dropped_[2][0].value<Addition>(), (Addition{0, LocationNotice::unsupportedFile}));
}

TEST_F(LocationDrops, OfTextsAndWebUrlsChangeNothing) {
    QMimeData text;
    text.setText(QStringLiteral("/usr"));
    EXPECT_FALSE(drop(text));
    QMimeData web;
    web.setUrls({QUrl(QStringLiteral("https://example.org/a.png"))});
    EXPECT_FALSE(drop(web));
    EXPECT_FALSE(drop(QMimeData()));
    EXPECT_EQ(model_.rowCount(), 0);
    EXPECT_EQ(dropped_.size(), 3);
    for (const QList<QVariant>& each : dropped_) {
        EXPECT_EQ(each[0].value<Addition>(), (Addition{0, LocationNotice::none}));
    }
}

TEST_F(LocationDrops, OfNamesThatAreNotTextKeepTheirBytes) {
    const std::string folder = tree_.makeFolder("\xff\xfe");
    const std::string image = tree_.writeFile("\xfd.png");
    EXPECT_TRUE(dropPaths({folder, image}));
    EXPECT_EQ(namesOf(list_), (Paths{folder, image}));
}

TEST_F(LocationDrops, OfTenThousandFilesOnAsManyRowsAreFast) {
    tree_.makeFiles("images", 10'000, ".png");
    Paths paths;
    Paths rows;
    for (int number = 0; number < 10'000; ++number) {
        paths.push_back(tree_.pathOf("images/" + std::to_string(number) + ".png"));
        rows.push_back("/listed/" + std::to_string(number));
    }
    list_.addFolders(rows);
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_TRUE(dropPaths(paths, 0));
    EXPECT_FALSE(dropPaths(paths, 0));
    const auto took = std::chrono::steady_clock::now() - begin;
    RecordProperty("milliseconds", static_cast<int>(took / std::chrono::milliseconds(1)));
#ifdef TARVIN_SANITIZED
    EXPECT_LT(took, std::chrono::seconds(20));
#else
    EXPECT_LT(took, std::chrono::seconds(1));
#endif
    EXPECT_EQ(model_.rowCount(), 20'000);
    EXPECT_EQ(list_.rows().front().name, paths.front());
    EXPECT_EQ(list_.rows()[9'999].name, paths.back());
    EXPECT_EQ(dropped_[1][0].value<Addition>(), (Addition{0, LocationNotice::fileAlreadyAdded}));
}

}  // namespace
}  // namespace tarvin
