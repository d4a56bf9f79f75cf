#include "report/output.h"

#include "support/pipe.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <thread>

namespace tarvin {
namespace {

constexpr std::size_t oneMegabyte = std::size_t{1} << 20;

/// Ignores SIGPIPE during its lifetime, as the program does.
class NoPipeSignal final {
 public:
    NoPipeSignal() : before_(std::signal(SIGPIPE, SIG_IGN)) {}
    NoPipeSignal(const NoPipeSignal&) = delete;
    NoPipeSignal& operator=(const NoPipeSignal&) = delete;
    ~NoPipeSignal() { static_cast<void>(std::signal(SIGPIPE, before_)); }

 private:
    void (*before_)(int);
};

/// A text without repeated parts.
std::string longText() {
    std::string text;
    for (std::uint64_t line = 0; text.size() < oneMegabyte; ++line) {
        text += std::to_string(line) += '\n';
    }
    return text;
}

TEST(Output, WritesAppendedTextInOrder) {
    Pipe pipe;
    Output output(pipe.writing());
    output.append("one ");
    output.append("");
    output.appendNumber(2);
    output.append(" three");
    EXPECT_TRUE(output.flush());
    EXPECT_FALSE(output.error().has_value());
    EXPECT_EQ(pipe.readSome(), "one 2 three");
}

TEST(Output, WritesNumbersOfAnySize) {
    Pipe pipe;
    Output output(pipe.writing());
    output.appendNumber(0);
    output.append(" ");
    output.appendNumber(std::numeric_limits<std::uint64_t>::max());
    EXPECT_TRUE(output.flush());
    EXPECT_EQ(pipe.readSome(), "0 18446744073709551615");
}

TEST(Output, BuffersSmallWrites) {
    Pipe pipe;
    Output output(pipe.writing());
    for (int line = 0; line < 1000; ++line) {
        output.append("a line of text\n");
    }
    EXPECT_FALSE(pipe.hasText());
    EXPECT_TRUE(output.flush());
    EXPECT_TRUE(pipe.hasText());
}

TEST(Output, WritesALongTextThroughASmallPipe) {
    Pipe pipe;
    const std::string text = longText();
    std::string arrived;
    std::thread reader([&] { arrived = pipe.readAll(); });
    Output output(pipe.writing());
    for (std::size_t at = 0; at < text.size(); at += 100) {
        output.append(std::string_view(text).substr(at, 100));
    }
    EXPECT_TRUE(output.flush());
    pipe.closeWriting();
    reader.join();
    EXPECT_TRUE(arrived == text);
}

TEST(Output, WaitsForANonblockingPipe) {
    Pipe pipe;
    ASSERT_EQ(::fcntl(pipe.writing(), F_SETFL, O_NONBLOCK), 0);
    const std::string text = longText();
    std::string arrived;
    std::thread reader([&] { arrived = pipe.readAll(); });
    Output output(pipe.writing());
    output.append(text);
    EXPECT_TRUE(output.flush());
    pipe.closeWriting();
    reader.join();
    EXPECT_TRUE(arrived == text);
}

TEST(Output, FlushReportsAFullDisk) {
    const int full = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
    ASSERT_GE(full, 0);
    Output output(full);
    output.append("text");
    EXPECT_FALSE(output.error().has_value());
    EXPECT_FALSE(output.flush());
    ASSERT_TRUE(output.error().has_value());
    EXPECT_EQ(output.error()->code, ENOSPC);
    ::close(full);
}

TEST(Output, AFunctionTakesTheTextInOrderUntilItFails) {
    std::string taken;
    Output output([&taken](std::string_view text) -> std::optional<SystemError> {
        taken += text;
        return taken.size() > oneMegabyte ? std::optional(SystemError{ENOSPC}) : std::nullopt;
    });
    EXPECT_EQ(output.descriptor(), -1);
    const std::string text = longText().substr(0, oneMegabyte);
    output.append(text);
    EXPECT_TRUE(output.flush());
    EXPECT_EQ(taken, text);
    output.append("more");
    EXPECT_FALSE(output.flush());
    output.append("dropped");
    EXPECT_FALSE(output.flush());
    EXPECT_EQ(taken, text + "more");
    ASSERT_TRUE(output.error().has_value());
    EXPECT_EQ(output.error()->code, ENOSPC);
}

TEST(Output, KeepsTheFirstErrorAndWritesNothingAfterIt) {
    const NoPipeSignal ignored;
    Pipe pipe;
    pipe.closeReading();
    Output output(pipe.writing());
    output.append(longText());
    pipe.closeWriting();
    output.append(longText());
    EXPECT_FALSE(output.flush());
    ASSERT_TRUE(output.error().has_value());
    EXPECT_EQ(output.error()->code, EPIPE);
}

}  // namespace
}  // namespace tarvin
