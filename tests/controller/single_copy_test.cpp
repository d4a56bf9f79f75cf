#include "controller/single_copy.h"

#include "support/fake_running_copies.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <cerrno>
#include <memory>

namespace tarvin {
namespace {

class SingleCopyTest : public testing::Test {
 protected:
    SingleCopyTest() {
        copies.setOthers({{3}}, {2});
        copy = std::make_unique<SingleCopy>(copies);
        QObject::connect(copy.get(), &SingleCopy::quitRequested, [this] { ++quits; });
        QObject::connect(copy.get(), &SingleCopy::frontRequested,
                         [this](const QByteArray& token) { tokens << token; });
        QObject::connect(copy.get(), &SingleCopy::foldersRequested,
                         [this](const std::vector<std::string>& given) { folders = given; });
    }

    FakeRunningCopies copies;
    std::unique_ptr<SingleCopy> copy;
    int quits = 0;
    QByteArrayList tokens;
    std::vector<std::string> folders;
};

TEST_F(SingleCopyTest, JoinsAtOnceAndLeavesAtTheEnd) {
    EXPECT_TRUE(copies.hasJoined());
    EXPECT_TRUE(copy->isFirst());
    copy.reset();
    EXPECT_FALSE(copies.hasJoined());
}

TEST_F(SingleCopyTest, KeepsWhatIsAskedUntilSomebodyListens) {
    copies.bringThisToFront("token");
    copies.openInThis({"/a", "/b"});
    copies.askThisToQuit();
    QCoreApplication::processEvents();
    EXPECT_EQ(tokens, QByteArrayList());
    EXPECT_EQ(quits, 0);
    copy->listen();
    EXPECT_EQ(tokens, QByteArrayList{"token"});
    EXPECT_EQ(folders, (std::vector<std::string>{"/a", "/b"}));
    EXPECT_EQ(quits, 1);
}

TEST_F(SingleCopyTest, TellsWhatIsAskedFromThenOnThroughTheEventLoop) {
    copy->listen();
    copies.bringThisToFront("token");
    EXPECT_EQ(tokens, QByteArrayList());
    QCoreApplication::processEvents();
    EXPECT_EQ(tokens, QByteArrayList{"token"});
}

TEST(SingleCopyOfMany, IsNotFirstBehindAnother) {
    FakeRunningCopies copies;
    copies.setOthers({{1}}, {2});
    EXPECT_FALSE(SingleCopy(copies).isFirst());
}

TEST(SingleCopyOfMany, IsFirstWhereNobodyCanMeet) {
    FakeRunningCopies copies;
    copies.setOthers({{1}}, {2});
    copies.refuseToJoin({EACCES});
    SingleCopy copy(copies);
    EXPECT_TRUE(copy.isFirst());
    EXPECT_TRUE(copy.keepFirst({}));
}

}  // namespace
}  // namespace tarvin
