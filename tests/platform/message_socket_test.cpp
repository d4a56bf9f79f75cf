#include "platform/posix/message_socket.h"

#include "support/temporary_folder.h"
#include "support/waiting.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin {
namespace {

class MessageSocketTest : public ::testing::Test {
 protected:
    TemporaryFolder folder_;
    std::string path_ = folder_.pathOf("socket");
};

TEST_F(MessageSocketTest, ReceivesMessagesInOrder) {
    std::vector<std::string> received;
    Event last;
    {
        const auto socket = MessageSocket::listen(path_, [&](std::string_view message) {
            received.emplace_back(message);
            if (message == "last") {
                last.set();
            }
        });
        ASSERT_TRUE(socket);
        EXPECT_TRUE(MessageSocket::send(path_, "first"));
        EXPECT_TRUE(MessageSocket::send(path_, ""));
        EXPECT_TRUE(MessageSocket::send(path_, "last"));
        EXPECT_TRUE(last.wait());
    }
    EXPECT_EQ(received, (std::vector<std::string>{"first", "", "last"}));
}

TEST_F(MessageSocketTest, CutsLongMessagesOff) {
    std::size_t size = 0;
    Event received;
    const auto socket = MessageSocket::listen(path_, [&](std::string_view message) {
        size = message.size();
        received.set();
    });
    ASSERT_TRUE(socket);
    EXPECT_TRUE(MessageSocket::send(path_, std::string(5000, 'a')));
    EXPECT_TRUE(received.wait());
    EXPECT_EQ(size, 4096U);
}

TEST_F(MessageSocketTest, SendFailsWithoutAListener) {
    EXPECT_FALSE(MessageSocket::send(path_, "message"));
    {
        ASSERT_TRUE(MessageSocket::listen(path_, [](std::string_view /*message*/) {}));
    }
    EXPECT_FALSE(MessageSocket::send(path_, "message"));
}

TEST_F(MessageSocketTest, SendFailsInsteadOfWaitingForAFullQueue) {
    Event read;
    const auto socket =
        MessageSocket::listen(path_, [&](std::string_view /*message*/) { read.wait(); });
    ASSERT_TRUE(socket);
    int sent = 0;
    while (sent < 100'000 && MessageSocket::send(path_, "message")) {
        ++sent;
    }
    EXPECT_LT(sent, 100'000);
    read.set();
}

TEST_F(MessageSocketTest, RefusesATakenPathAndALongOne) {
    const auto socket = MessageSocket::listen(path_, [](std::string_view /*message*/) {});
    const auto second = MessageSocket::listen(path_, [](std::string_view /*message*/) {});
    ASSERT_FALSE(second);
    EXPECT_EQ(second.error().code, EADDRINUSE);
    const std::string longPath = folder_.pathOf(std::string(200, 'n'));
    const auto third = MessageSocket::listen(longPath, [](std::string_view /*message*/) {});
    ASSERT_FALSE(third);
    EXPECT_EQ(third.error().code, ENAMETOOLONG);
    EXPECT_FALSE(MessageSocket::send(longPath, "message"));
}

}  // namespace
}  // namespace tarvin
