#include "platform/thread_priority.h"

#include "support/niceness.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

namespace tarvin {
namespace {

TEST(ThreadPriority, StandingBackConcernsTheThreadAndThoseItStarts) {
    const int before = nicenessOfThisThread();
    int after = before;
    int afterOfStarted = before;
    std::thread([&] {
        standBack();
        after = nicenessOfThisThread();
        std::thread([&] { afterOfStarted = nicenessOfThisThread(); }).join();
    }).join();
    EXPECT_EQ(after, std::min(before + 5, mostNiceness));
    EXPECT_EQ(afterOfStarted, after);
    EXPECT_EQ(nicenessOfThisThread(), before);
}

TEST(ThreadPriority, StandingBackTwiceGoesFurtherAndNeverForward) {
    const int before = nicenessOfThisThread();
    int after = before;
    std::thread([&] {
        for (int time = 0; time < 10; ++time) {
            standBack();
        }
        after = nicenessOfThisThread();
    }).join();
    EXPECT_EQ(after, mostNiceness);
}

}  // namespace
}  // namespace tarvin
