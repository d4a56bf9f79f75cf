#include "platform/instance_process.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <memory>
#include <string>
#include <vector>

namespace tarvin {
namespace {

using Lines = std::vector<std::string>;

bool holds(const Lines& lines, const std::string& line) {
    return std::find(lines.begin(), lines.end(), line) != lines.end();
}

class RunningProcesses : public ::testing::Test {
 protected:
    /// Starts that many instances at once. The first stays, the others quit.
    void expectOneSurvivor(std::size_t count) {
        std::vector<std::unique_ptr<InstanceProcess>> instances;
        for (std::size_t number = 0; number < count; ++number) {
            instances.push_back(std::make_unique<InstanceProcess>(folders_));
        }
        for (const auto& instance : instances) {
            instance->tell("start");
        }
        std::size_t survivors = 0;
        for (const auto& instance : instances) {
            if (instance->nextLine() == "joined 1") {
                ++survivors;
                first_ = instance.get();
                continue;
            }
            const Lines lines = instance->linesToTheEnd();
            EXPECT_TRUE(holds(lines, "stays 1"));
            EXPECT_TRUE(holds(lines, "quit"));
            EXPECT_EQ(instance->wait(), 0);
        }
        ASSERT_EQ(survivors, 1u);
        expectFirstToStay();
    }

    void expectFirstToStay() {
        // It is raised at least once, before or after its own output.
        Lines lines;
        while (!holds(lines, "stays 1") || !holds(lines, "front a token")) {
            lines.push_back(first_->nextLine());
            ASSERT_NE(lines.back(), "") << "The first instance has ended.";
            ASSERT_NE(lines.back(), "quit");
        }
        first_->endInput();
        EXPECT_FALSE(holds(first_->linesToTheEnd(), "quit"));
        EXPECT_EQ(first_->wait(), 2);
    }

    TemporaryFolder folder_;
    const std::vector<std::string> folders_{folder_.pathOf("meeting")};
    InstanceProcess* first_ = nullptr;
};

TEST_F(RunningProcesses, OfTwoStartedAtOnceTheFirstStays) {
    for (int round = 0; round < 10; ++round) {
        expectOneSurvivor(2);
    }
}

TEST_F(RunningProcesses, OfThreeStartedAtOnceTheFirstStays) {
    for (int round = 0; round < 10; ++round) {
        expectOneSurvivor(3);
    }
}

TEST_F(RunningProcesses, OfTenStartedAtOnceTheFirstStays) {
    expectOneSurvivor(10);
}

TEST_F(RunningProcesses, AThirdQuitsItselfAndTheSecond) {
    InstanceProcess first(folders_);
    InstanceProcess second(folders_);
    InstanceProcess third(folders_);
    EXPECT_EQ(first.ask("join"), "joined 1");
    EXPECT_EQ(second.ask("join"), "joined 2");
    EXPECT_EQ(third.ask("start"), "joined 3");
    EXPECT_EQ(second.nextLine(), "quit");
    EXPECT_EQ(second.wait(), 0);
    EXPECT_TRUE(holds(third.linesToTheEnd(), "quit"));
    EXPECT_EQ(third.wait(), 0);
    EXPECT_EQ(first.nextLine(), "front a token");
    EXPECT_EQ(first.ask("instances"), "instances 1");
}

TEST_F(RunningProcesses, ACrashedOneIsNotListed) {
    InstanceProcess first(folders_);
    InstanceProcess second(folders_);
    EXPECT_EQ(first.ask("join"), "joined 1");
    EXPECT_EQ(second.ask("join"), "joined 2");
    first.tell("crash");
    EXPECT_EQ(first.wait(), 9);
    EXPECT_EQ(second.ask("instances"), "instances 2");
    EXPECT_EQ(second.ask("rule"), "stays 2");
}

TEST_F(RunningProcesses, AKilledOneDoesNotBlockTheNext) {
    {
        InstanceProcess killed(folders_);
        EXPECT_EQ(killed.ask("join"), "joined 1");
        killed.send(SIGKILL);
        EXPECT_EQ(killed.wait(), 128 + SIGKILL);
    }
    InstanceProcess next(folders_);
    EXPECT_EQ(next.ask("start"), "joined 1");
    EXPECT_EQ(next.nextLine(), "stays 1");
    EXPECT_EQ(next.ask("instances"), "instances 1");
}

TEST_F(RunningProcesses, AStoppedOneBlocksNoOther) {
    InstanceProcess first(folders_);
    EXPECT_EQ(first.ask("join"), "joined 1");
    first.send(SIGSTOP);
    // More than the number of messages that the kernel queues.
    for (int number = 0; number < 20; ++number) {
        InstanceProcess next(folders_);
        EXPECT_EQ(next.ask("start"), "joined 2");
        EXPECT_TRUE(holds(next.linesToTheEnd(), "quit"));
        EXPECT_EQ(next.wait(), 0);
    }
    first.send(SIGCONT);
    EXPECT_EQ(first.nextLine(), "front a token");
}

TEST_F(RunningProcesses, WithoutASharedFolderEachStays) {
    const std::vector<std::string> nowhere{folder_.pathOf("missing/meeting")};
    InstanceProcess first(nowhere);
    InstanceProcess second(nowhere);
    EXPECT_EQ(first.ask("start"), "alone 2");
    EXPECT_EQ(first.nextLine(), "stays nobody");
    EXPECT_EQ(second.ask("start"), "alone 2");
    EXPECT_EQ(second.nextLine(), "stays nobody");
    EXPECT_EQ(first.ask("instances"), "instances");
}

}  // namespace
}  // namespace tarvin
