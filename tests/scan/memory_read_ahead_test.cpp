#include "scan/memory_read_ahead.h"

#include "support/faulty_file_system.h"
#include "support/scan_tools.h"
#include "support/temporary_folder.h"
#include "support/waiting.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace tarvin {
namespace {

constexpr std::uint64_t mebibyte = std::uint64_t{1} << 20U;

/// The file of a memory of 9 MiB, none of which is on the disk.
class MemoryReadAheadTest : public testing::Test {
 protected:
    void makeMemory(std::uint64_t size = 9 * mebibyte) const {
        std::filesystem::resize_file(folder_.writeFile("scans.sqlite", ""), size);
    }

    /// Reads ahead to the end. Returns how many bytes were read: from the beginning, one part
    /// after the other.
    std::uint64_t bytesReadAhead(std::uint64_t most = MemoryReadAhead::mostBytes) {
        ahead_.emplace(folder_.path(), most);
        ahead_->begin(tools_.services());
        ahead_->wait(tools_.services());
        std::uint64_t bytes = 0;
        for (const FaultyFileSystem::ReadAheadCall& call : fileSystem_.readAheadCalls()) {
            EXPECT_EQ(call.path, path_);
            EXPECT_EQ(call.offset, bytes);
            bytes += call.bytes;
        }
        return bytes;
    }

    TemporaryFolder folder_;
    const std::string path_ = folder_.pathOf("scans.sqlite");
    FaultyFileSystem fileSystem_;
    std::optional<MemoryReadAhead> ahead_;  // outlives the pool
    ScanTools tools_{fileSystem_, {1, 1}};
};

TEST_F(MemoryReadAheadTest, ReadsTheWholeFileAndClosesIt) {
    makeMemory();
    EXPECT_EQ(bytesReadAhead(), 9 * mebibyte);
    EXPECT_EQ(fileSystem_.opens(path_), 1U);
    EXPECT_EQ(fileSystem_.openNow(), 0U);
}

TEST_F(MemoryReadAheadTest, ReadsNoMoreThanItMay) {
    makeMemory();
    EXPECT_EQ(bytesReadAhead(5 * mebibyte), 5 * mebibyte);
}

TEST_F(MemoryReadAheadTest, ReadsAPageForEachExpectedFile) {
    makeMemory();
    fileSystem_.beforeCall(FileCall::attributesOf, 1, [this] { ahead_->expect(3); });
    EXPECT_EQ(bytesReadAhead(), 3U * 4096U);
}

TEST_F(MemoryReadAheadTest, ReadsNoMoreForMoreFilesThanThereArePages) {
    makeMemory();
    fileSystem_.beforeCall(FileCall::attributesOf, 1, [this] { ahead_->expect(1U << 30U); });
    EXPECT_EQ(bytesReadAhead(6 * mebibyte), 6 * mebibyte);
}

TEST_F(MemoryReadAheadTest, EndsSoonAfterAStop) {
    makeMemory();
    fileSystem_.beforeCall(FileCall::attributesOf, 1, [this] { tools_.control().requestStop(); });
    EXPECT_EQ(bytesReadAhead(), 0U);
}

TEST_F(MemoryReadAheadTest, DoesNothingWithoutAMemory) {
    EXPECT_EQ(bytesReadAhead(), 0U);
    EXPECT_EQ(fileSystem_.opens(path_), 1U);
}

TEST_F(MemoryReadAheadTest, ReadsNothingThatIsNotAFile) {
    folder_.makeFolder("scans.sqlite");
    EXPECT_EQ(bytesReadAhead(), 0U);
    std::filesystem::remove(path_);
    std::filesystem::create_symlink(folder_.writeFile("other", "not ours"), path_);
    EXPECT_EQ(bytesReadAhead(), 0U);
    std::filesystem::remove(path_);
    ASSERT_EQ(::mkfifo(path_.c_str(), 0600), 0);
    EXPECT_EQ(bytesReadAhead(), 0U);
    EXPECT_EQ(fileSystem_.opens(path_), 3U);
    EXPECT_EQ(fileSystem_.openNow(), 0U);
}

TEST_F(MemoryReadAheadTest, DoesNotWaitForWhatHasNotBegun) {
    makeMemory();
    MemoryReadAhead(folder_.path()).wait(tools_.services());
    EXPECT_EQ(fileSystem_.opens(path_), 0U);
}

TEST_F(MemoryReadAheadTest, DoesNotWaitForATaskThatThePoolHasDropped) {
    makeMemory();
    // Shared with the thread, which nobody waits for.
    const auto begun = std::make_shared<Event>();
    const auto end = std::make_shared<Event>();
    tools_.pool().submit([begun, end] {
        begun->set();
        end->wait();
    });
    ASSERT_TRUE(begun->wait());
    ahead_.emplace(folder_.path());
    ahead_->begin(tools_.services());
    tools_.pool().abandon();
    ahead_->wait(tools_.services());
    EXPECT_EQ(fileSystem_.opens(path_), 0U);
    end->set();
}

}  // namespace
}  // namespace tarvin
