#include "platform/threads.h"
#include "support/temporary_folder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <string>

namespace tarvin {
namespace {

constexpr std::size_t pageBytes = 4096;

void readFirstPage(const std::string& path) {
    const int number = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_GE(number, 0) << path;
    std::array<char, pageBytes> page{};
    EXPECT_EQ(::pread(number, page.data(), page.size(), 0), static_cast<ssize_t>(page.size()));
    ::close(number);
}

TEST(ThreadUsage, DoesNotCountCachedReads) {
    const TemporaryFolder folder;
    const std::string path = folder.writeFile("warm", std::string(pageBytes, 'x'));
    readFirstPage(path);
    const std::uint64_t before = useOfThisThread().deviceReads;
    for (int round = 0; round < 10; ++round) {
        readFirstPage(path);
    }
    // Under memory pressure the program's own pages may be read from disk, but not each time.
    EXPECT_LT(useOfThisThread().deviceReads - before, 10 * pageBytes / 512);
}

}  // namespace
}  // namespace tarvin
