#include "controller/work_thread.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>

namespace tarvin {
namespace {

TEST(WorkThread, CallsOverAfterTheWorkOnTheSameThread) {
    WorkThread thread;
    std::string calls;
    std::thread::id worker;
    std::thread::id ender;
    thread.start(
        [&] {
            calls += "work";
            worker = std::this_thread::get_id();
        },
        [&] {
            calls += " over";
            ender = std::this_thread::get_id();
        });
    thread.wait();
    EXPECT_EQ(calls, "work over");
    EXPECT_EQ(worker, ender);
    EXPECT_NE(worker, std::this_thread::get_id());
}

TEST(WorkThread, DoesNotBlockTheCaller) {
    std::atomic<bool> mayEnd{false};
    std::atomic<bool> isOver{false};
    {
        WorkThread thread;
        thread.start([&] { mayEnd.wait(false); }, [&] { isOver = true; });
        EXPECT_FALSE(isOver);
        mayEnd = true;
        mayEnd.notify_all();
    }
    // Its destructor waits for the work.
    EXPECT_TRUE(isOver);
}

TEST(WorkThread, DoesOneWorkItemAtATime) {
    WorkThread thread;
    std::string calls;
    for (const char* name : {"a", "b", "c"}) {
        thread.start([&calls, name] { calls += name; }, [&calls] { calls += '.'; });
    }
    thread.wait();
    EXPECT_EQ(calls, "a.b.c.");
}

}  // namespace
}  // namespace tarvin
