#include "clean/return_folders.h"

#include "support/faulty_file_system.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <string>

namespace tarvin {
namespace {

namespace fs = std::filesystem;

class ReturnFoldersTest : public ::testing::Test {
 protected:
    static FileIdentity identityOf(const std::string& path) {
        return systemFileSystem().attributesAtPath(path)->identity;
    }

    TemporaryFolder folder_;
    std::string path_ = fs::canonical(folder_.path()).native() + "/a";
    FaultyFileSystem fileSystem_;
    ReturnFolders folders_{fileSystem_};
};

TEST_F(ReturnFoldersTest, KeepAFolderOpen) {
    fs::create_directory(path_);
    const auto first = folders_.open(path_);
    ASSERT_TRUE(first);
    const auto second = folders_.open(path_);
    ASSERT_TRUE(second);
    EXPECT_EQ(*first, *second);
    EXPECT_EQ(fileSystem_.calls(FileCall::openDirectory), 1U);
}

TEST_F(ReturnFoldersTest, OpenTheFolderThatReplacedAnother) {
    fs::create_directory(path_);
    ASSERT_TRUE(folders_.open(path_));
    fs::rename(path_, path_ + ".old");
    fs::create_directory(path_);
    const auto folder = folders_.open(path_);
    ASSERT_TRUE(folder);
    EXPECT_EQ((*folder)->identity, identityOf(path_));
}

TEST_F(ReturnFoldersTest, UseAFolderThatAnotherProcessCreatesMeanwhile) {
    // The second folder opened is the parent, after the folder was found missing.
    fileSystem_.beforeCall(FileCall::openDirectory, 2, [this] { fs::create_directory(path_); });
    const auto folder = folders_.openOrMake(path_);
    ASSERT_TRUE(folder);
    EXPECT_EQ((*folder)->identity, identityOf(path_));
    folders_.removeMade();
    EXPECT_TRUE(fs::exists(path_));
}

TEST_F(ReturnFoldersTest, RemoveOnlyEmptyFoldersThatTheyCreated) {
    ASSERT_TRUE(folders_.openOrMake(path_ + "/b/c"));
    fs::create_directory(path_ + "/other");
    folders_.removeMade();
    EXPECT_FALSE(fs::exists(path_ + "/b"));
    EXPECT_TRUE(fs::exists(path_ + "/other"));
}

TEST_F(ReturnFoldersTest, ReturnTheErrorOfAFolderThatCannotBeCreated) {
    const auto folder = folders_.openOrMake(path_ + '/' + std::string(256, 'n'));
    ASSERT_FALSE(folder);
    EXPECT_EQ(folder.error().code, ENAMETOOLONG);
}

}  // namespace
}  // namespace tarvin
