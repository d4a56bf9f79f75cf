#include "platform/unique_fd.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace tarvin {
namespace {

int newDescriptor() {
    return ::open("/dev/null", O_RDONLY | O_CLOEXEC);
}

bool isOpen(int descriptor) {
    return ::fcntl(descriptor, F_GETFD) >= 0;
}

TEST(UniqueFd, ClosesOnDestruction) {
    int number = -1;
    {
        const UniqueFd file(newDescriptor());
        ASSERT_TRUE(file);
        number = file.number();
        EXPECT_TRUE(isOpen(number));
    }
    EXPECT_FALSE(isOpen(number));
}

TEST(UniqueFd, IsEmptyWithoutADescriptor) {
    EXPECT_FALSE(UniqueFd());
    EXPECT_FALSE(UniqueFd(-1));
    EXPECT_TRUE(UniqueFd(::dup(0)));
}

TEST(UniqueFd, MovingPassesTheDescriptorOn) {
    UniqueFd one(newDescriptor());
    const int number = one.number();
    UniqueFd two(std::move(one));
    EXPECT_EQ(two.number(), number);
    UniqueFd three;
    three = std::move(two);
    EXPECT_EQ(three.number(), number);
    EXPECT_TRUE(isOpen(number));
}

TEST(UniqueFd, AssignmentClosesTheOldDescriptor) {
    UniqueFd file(newDescriptor());
    const int old = file.number();
    file = UniqueFd(newDescriptor());
    EXPECT_FALSE(isOpen(old));
    EXPECT_TRUE(isOpen(file.number()));
}

TEST(UniqueFd, ReleaseLeavesTheDescriptorOpen) {
    int number = -1;
    {
        UniqueFd file(newDescriptor());
        number = file.release();
        EXPECT_FALSE(file);
    }
    EXPECT_TRUE(isOpen(number));
    EXPECT_EQ(::close(number), 0);
}

TEST(UniqueFd, CloseReportsTheError) {
    UniqueFd file(newDescriptor());
    EXPECT_EQ(file.close(), 0);
    EXPECT_EQ(file.close(), 0);
    UniqueFd taken(newDescriptor());
    ::close(taken.number());
    EXPECT_EQ(taken.close(), EBADF);
    EXPECT_FALSE(taken);
}

TEST(UniqueFd, DestructionKeepsErrno) {
    {
        const UniqueFd file(newDescriptor());
        ::close(file.number());
        errno = ENOENT;
    }
    EXPECT_EQ(errno, ENOENT);
}

}  // namespace
}  // namespace tarvin
