#include "controller/single_instance.h"

#include "support/fake_running_instances.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <cerrno>
#include <memory>

namespace tarvin {
namespace {

class SingleInstanceTest : public testing::Test {
 protected:
    SingleInstanceTest() {
        instances.setOthers({{3}}, {2});
        instance = std::make_unique<SingleInstance>(instances);
        QObject::connect(instance.get(), &SingleInstance::quitRequested, [this] { ++quits; });
        QObject::connect(instance.get(), &SingleInstance::frontRequested,
                         [this](const QByteArray& token) { tokens << token; });
        QObject::connect(instance.get(), &SingleInstance::foldersRequested,
                         [this](const std::vector<std::string>& given) { folders = given; });
    }

    FakeRunningInstances instances;
    std::unique_ptr<SingleInstance> instance;
    int quits = 0;
    QByteArrayList tokens;
    std::vector<std::string> folders;
};

TEST_F(SingleInstanceTest, JoinsAtOnceAndLeavesAtTheEnd) {
    EXPECT_TRUE(instances.hasJoined());
    instance.reset();
    EXPECT_FALSE(instances.hasJoined());
}

TEST_F(SingleInstanceTest, QueuesRequestsUntilListening) {
    instances.bringThisToFront("token");
    instances.openInThis({"/a", "/b"});
    instances.askThisToQuit();
    QCoreApplication::processEvents();
    EXPECT_EQ(tokens, QByteArrayList());
    EXPECT_EQ(quits, 0);
    instance->listen();
    EXPECT_EQ(tokens, QByteArrayList{"token"});
    EXPECT_EQ(folders, (std::vector<std::string>{"/a", "/b"}));
    EXPECT_EQ(quits, 1);
}

TEST_F(SingleInstanceTest, EmitsLaterRequestsThroughTheEventLoop) {
    instance->listen();
    instances.bringThisToFront("token");
    EXPECT_EQ(tokens, QByteArrayList());
    QCoreApplication::processEvents();
    EXPECT_EQ(tokens, QByteArrayList{"token"});
}

TEST(SingleInstanceOfMany, DoesNotStayAfterAnother) {
    FakeRunningInstances instances;
    instances.setOthers({{1}}, {2});
    EXPECT_FALSE(SingleInstance(instances).keepFirst({}));
}

TEST(SingleInstanceOfMany, StaysIfItCannotJoin) {
    FakeRunningInstances instances;
    instances.setOthers({{1}}, {2});
    instances.refuseToJoin({EACCES});
    SingleInstance instance(instances);
    EXPECT_TRUE(instance.keepFirst({}));
}

}  // namespace
}  // namespace tarvin
