#include "platform/threads.h"
#include "support/niceness.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

namespace tarvin {
namespace {

TEST(ThreadPriority, LoweringAffectsTheThreadAndThoseItStarts) {
    const int before = nicenessOfThisThread();
    int after = before;
    int afterOfStarted = before;
    std::thread([&] {
        lowerThreadPriority();
        after = nicenessOfThisThread();
        std::thread([&] { afterOfStarted = nicenessOfThisThread(); }).join();
    }).join();
    EXPECT_EQ(after, std::min(before + 5, maxNiceness));
    EXPECT_EQ(afterOfStarted, after);
    EXPECT_EQ(nicenessOfThisThread(), before);
}

TEST(ThreadPriority, RepeatedLoweringEndsAtTheLowestPriority) {
    const int before = nicenessOfThisThread();
    int after = before;
    std::thread([&] {
        for (int time = 0; time < 10; ++time) {
            lowerThreadPriority();
        }
        after = nicenessOfThisThread();
    }).join();
    EXPECT_EQ(after, maxNiceness);
}

TEST(ThreadPriority, AnIdleThreadAndThoseItStartsGiveWayToAllOthers) {
    const int before = nicenessOfThisThread();
    const int classBefore = diskClassOfThisThread();
    int after = before;
    int afterOfStarted = before;
    int classAfter = classBefore;
    int classOfStarted = classBefore;
    std::thread([&] {
        makeThreadIdle();
        after = nicenessOfThisThread();
        classAfter = diskClassOfThisThread();
        std::thread([&] {
            afterOfStarted = nicenessOfThisThread();
            classOfStarted = diskClassOfThisThread();
        }).join();
    }).join();
    EXPECT_EQ(after, maxNiceness);
    EXPECT_EQ(afterOfStarted, maxNiceness);
    EXPECT_EQ(classAfter, idleDiskClass);
    EXPECT_EQ(classOfStarted, idleDiskClass);
    EXPECT_EQ(nicenessOfThisThread(), before);
    EXPECT_EQ(diskClassOfThisThread(), classBefore);
}

}  // namespace
}  // namespace tarvin
