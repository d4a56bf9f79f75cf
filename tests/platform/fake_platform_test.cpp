#include "support/fake_platform.h"

#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <vector>

namespace tarvin {
namespace {

using namespace std::chrono_literals;

TEST(FakePlatform, IsEmptyInitially) {
    FakePlatform platform;
    EXPECT_TRUE(platform.mountedVolumes().empty());
    EXPECT_EQ(platform.userName(), std::nullopt);
    EXPECT_EQ(platform.userFolder(UserFolder::home), std::nullopt);
    EXPECT_EQ(platform.applicationSupportFolder(), std::nullopt);
    EXPECT_EQ(&platform.fileSystem(), &systemFileSystem());
}

TEST(FakePlatform, ReturnsTheSetValues) {
    FakePlatform platform;
    const std::vector<Volume> volumes{{"/", "ext4", VolumeKind::internal}};
    platform.setMountedVolumes(volumes);
    platform.setUserName("ann");
    platform.setUserFolder(UserFolder::desktop, "/home/ann/Desktop");
    platform.setApplicationSupportFolder("/home/ann/data");
    EXPECT_EQ(platform.mountedVolumes(), volumes);
    EXPECT_EQ(platform.userName(), "ann");
    EXPECT_EQ(platform.userFolder(UserFolder::desktop), "/home/ann/Desktop");
    EXPECT_EQ(platform.userFolder(UserFolder::pictures), std::nullopt);
    EXPECT_EQ(platform.applicationSupportFolder(), "/home/ann/data");
}

TEST(FakePlatform, RunsAsOneInstanceInitially) {
    FakePlatform platform;
    EXPECT_TRUE(platform.runningInstances().instances().empty());
    ASSERT_TRUE(platform.runningInstances().join({}));
    EXPECT_EQ(platform.runningInstances().instances(), std::vector<RunningInstance>{{1}});
    platform.runningInstances().leave();
    EXPECT_TRUE(platform.runningInstances().instances().empty());
}

TEST(FakeClock, StandsStillUntilAdvanced) {
    FakeClock clock;
    EXPECT_EQ(clock.now(), clock.now());
    EXPECT_EQ(clock.steadyNow(), clock.steadyNow());
}

TEST(FakeClock, AdvancesBothClocks) {
    FakeClock clock;
    const Timestamp now = clock.now();
    const auto steadyNow = clock.steadyNow();
    clock.advance(90s);
    EXPECT_EQ(clock.now() - now, 90s);
    EXPECT_EQ(clock.steadyNow() - steadyNow, 90s);
}

TEST(FakeClock, SettingTheDateKeepsTheSteadyTime) {
    FakeClock clock;
    const auto steadyNow = clock.steadyNow();
    clock.set(Timestamp(1s));
    EXPECT_EQ(clock.now(), Timestamp(1s));
    EXPECT_EQ(clock.steadyNow(), steadyNow);
}

}  // namespace
}  // namespace tarvin
