#include "platform/atomic_file.h"

#include "support/file_content.h"
#include "support/recording_file_calls.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin {
namespace {

using Calls = std::vector<std::string>;
using Leftover = AtomicFile::Leftover;

class AtomicFileTest : public ::testing::Test {
 protected:
    /// Writes "new" to the target and returns the error number of the first failure, or 0.
    int replace(FileCalls& calls, Leftover leftover = Leftover::refuse) const {
        const auto file = AtomicFile::create(target_, temporary_, leftover, calls);
        if (!file) {
            return file.error().code;
        }
        EXPECT_FALSE((*file)->write("new"));
        const auto failure = (*file)->commit();
        return failure ? failure->code : 0;
    }

    [[nodiscard]] bool hasTemporary() const {
        return std::filesystem::exists(std::filesystem::symlink_status(temporary_));
    }

    TemporaryFolder folder_;
    std::string target_ = folder_.pathOf("inner/target");
    std::string temporary_ = folder_.pathOf("inner/temporary");
    std::string inner_ = folder_.makeFolder("inner");
};

TEST_F(AtomicFileTest, FlushesTheFileThenRenamesThenFlushesTheFolder) {
    RecordingFileCalls calls;
    EXPECT_EQ(replace(calls), 0);
    EXPECT_EQ(calls.calls(), (Calls{"sync temporary", "rename temporary target", "sync inner"}));
    EXPECT_EQ(contentOf(target_), "new");
    EXPECT_FALSE(hasTemporary());
}

TEST_F(AtomicFileTest, KeepsTheTargetIfTheFileCannotBeFlushed) {
    folder_.writeFile("inner/target", "old");
    RecordingFileCalls calls("sync temporary", EIO);
    EXPECT_EQ(replace(calls), EIO);
    EXPECT_EQ(calls.calls(), Calls{"sync temporary"});
    EXPECT_EQ(contentOf(target_), "old");
    EXPECT_FALSE(hasTemporary());
}

TEST_F(AtomicFileTest, KeepsTheTargetIfItCannotBeRenamed) {
    folder_.writeFile("inner/target", "old");
    RecordingFileCalls calls("rename", EACCES);
    EXPECT_EQ(replace(calls), EACCES);
    EXPECT_EQ(contentOf(target_), "old");
    EXPECT_FALSE(hasTemporary());
}

TEST_F(AtomicFileTest, SucceedsWhereFilesCannotBeFlushed) {
    for (const int code : {EINVAL, ENOTSUP}) {
        RecordingFileCalls calls("sync", code);
        EXPECT_EQ(replace(calls), 0) << code;
    }
    EXPECT_EQ(contentOf(target_), "new");
}

TEST_F(AtomicFileTest, SucceedsIfTheFolderCannotBeFlushed) {
    RecordingFileCalls calls("sync inner", EIO);
    EXPECT_EQ(replace(calls), 0);
    EXPECT_EQ(contentOf(target_), "new");
}

TEST_F(AtomicFileTest, ContinuesAfterInterruptedAndPartialWrites) {
    /// Writes a byte at each second call.
    class InterruptedCalls final : public FileCalls {
     public:
        int write(int descriptor, std::string_view bytes, std::size_t& written) override {
            interrupts_ = !interrupts_;
            return interrupts_ ? EINTR : FileCalls::write(descriptor, bytes.substr(0, 1), written);
        }

     private:
        bool interrupts_ = false;
    };
    InterruptedCalls calls;
    EXPECT_EQ(replace(calls), 0);
    EXPECT_EQ(contentOf(target_), "new");
}

TEST_F(AtomicFileTest, DoesNotFollowALinkAtTheTemporaryName) {
    const std::string other = folder_.writeFile("other", "untouched");
    folder_.makeLink("inner/temporary", other);
    EXPECT_EQ(replace(systemFileCalls(), Leftover::overwrite), ELOOP);
    EXPECT_EQ(contentOf(other), "untouched");
    // Removed by the first attempt.
    EXPECT_EQ(replace(systemFileCalls(), Leftover::overwrite), 0);
    EXPECT_EQ(contentOf(target_), "new");
    EXPECT_FALSE(std::filesystem::is_symlink(target_));
    EXPECT_EQ(contentOf(other), "untouched");
}

TEST_F(AtomicFileTest, OverwritesOrRefusesALeftover) {
    folder_.writeFile("inner/temporary", "half of something");
    EXPECT_EQ(replace(systemFileCalls(), Leftover::refuse), EEXIST);
    EXPECT_EQ(contentOf(temporary_), "half of something");
    EXPECT_EQ(replace(systemFileCalls(), Leftover::overwrite), 0);
    EXPECT_EQ(contentOf(target_), "new");
}

TEST_F(AtomicFileTest, CopiesThePermissionsOfTheTargetOnRequestOnly) {
    const mode_t old = ::umask(022);
    for (const bool copies : {true, false}) {
        folder_.writeFile("inner/target", "old");
        ::chmod(target_.c_str(), 0600);
        const auto file = AtomicFile::create(target_, temporary_, Leftover::refuse);
        ASSERT_TRUE(file);
        if (copies) {
            (*file)->copyPermissions();
        }
        EXPECT_FALSE((*file)->commit());
        EXPECT_EQ(std::filesystem::status(target_).permissions(),
                  std::filesystem::perms(copies ? 0600 : 0644));
    }
    ::umask(old);
}

TEST_F(AtomicFileTest, KeepsTheTemporaryFileOnRequest) {
    {
        const auto file = AtomicFile::create(target_, temporary_, Leftover::refuse);
        ASSERT_TRUE(file);
        EXPECT_FALSE((*file)->write("half"));
        EXPECT_EQ((*file)->keepTemporary(), temporary_);
    }
    EXPECT_EQ(contentOf(temporary_), "half");
    EXPECT_FALSE(std::filesystem::exists(target_));
}

}  // namespace
}  // namespace tarvin
