#include "cli/progress_line.h"

#include "support/pipe.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <optional>
#include <string>

namespace tarvin {
namespace {

using std::chrono::milliseconds;

constexpr ProgressLine::Settings quick{milliseconds(1)};

Progress at(const std::string& path) {
    Progress progress;
    progress.path = path;
    return progress;
}

TEST(ProgressLine, IsDrawnImmediatelyAndErasedAtTheEnd) {
    Pipe pipe;
    {
        const ProgressLine line(pipe.writing(), [] { return at("/a.jpg"); },
                                {milliseconds(60'000)});
    }
    pipe.closeWriting();
    EXPECT_EQ(pipe.readAll(), "\rCollecting Files: a.jpg  00:00:00\x1B[K\r\x1B[K");
}

TEST(ProgressLine, IsRedrawnAfterAChange) {
    Pipe pipe;
    std::atomic<int> number{1};
    std::optional<ProgressLine> line;
    line.emplace(pipe.writing(), [&] { return at(std::to_string(number)); }, quick);
    EXPECT_EQ(pipe.readUntil("\x1B[K"), "\rCollecting Files: 1  00:00:00\x1B[K");
    number = 2;
    EXPECT_EQ(pipe.readUntil("\x1B[K"), "\rCollecting Files: 2  00:00:00\x1B[K");
    line.reset();
    pipe.closeWriting();
    EXPECT_EQ(pipe.readAll(), "\r\x1B[K");
}

TEST(ProgressLine, IsNotRedrawnWithoutAChange) {
    Pipe pipe;
    std::atomic<int> calls{0};
    std::optional<ProgressLine> line;
    line.emplace(
        pipe.writing(),
        [&calls] {
            ++calls;
            calls.notify_all();
            return at("/a.jpg");
        },
        quick);
    for (int seen = calls; seen < 5; seen = calls) {
        calls.wait(seen);
    }
    line.reset();
    pipe.closeWriting();
    EXPECT_EQ(pipe.readAll(), "\rCollecting Files: a.jpg  00:00:00\x1B[K\r\x1B[K");
}

TEST(ProgressLine, LeavesTheLastOfEightyColumnsFree) {
    Pipe pipe;
    {
        const ProgressLine line(pipe.writing(), [] { return at(std::string(100, 'x')); });
    }
    pipe.closeWriting();
    EXPECT_EQ(pipe.readAll(),
              "\rCollecting Files: " + std::string(51, 'x') + "  00:00:00\x1B[K\r\x1B[K");
}

TEST(ProgressLine, IgnoresAClosedDescriptor) {
    std::atomic<int> calls{0};
    {
        const ProgressLine line(
            -1,
            [&calls] {
                ++calls;
                return at("/a.jpg");
            },
            quick);
    }
    EXPECT_GE(calls, 1);
}

}  // namespace
}  // namespace tarvin
