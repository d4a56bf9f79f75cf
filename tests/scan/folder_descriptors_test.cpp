#include "scan/folder_descriptors.h"

#include "model/file_store.h"
#include "support/faulty_file_system.h"
#include "support/file_tree.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cerrno>
#include <filesystem>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace tarvin {
namespace {

class FolderDescriptorsTest : public testing::Test {
 protected:
    const Directory& folder(const std::string& name) {
        return *store_->addRoot(tree_.makeFolder(name));
    }

    std::uint64_t opened() const { return fileSystem_.calls(FileCall::openFolderOfFiles); }

    FileTree tree_;
    FaultyFileSystem fileSystem_;
    std::shared_ptr<FileStore> store_ = FileStore::create();
};

TEST_F(FolderDescriptorsTest, OpensAFolderOnce) {
    FolderDescriptors folders(fileSystem_, 10);
    const Directory& one = folder("one");
    const Directory& other = folder("other");
    const Descriptor* const kept = folders.of(one);
    ASSERT_NE(kept, nullptr);
    EXPECT_NE(folders.of(other), kept);
    EXPECT_EQ(folders.of(one), kept);
    EXPECT_EQ(opened(), 2U);
}

TEST_F(FolderDescriptorsTest, OpensFilesByTheirNames) {
    FolderDescriptors folders(fileSystem_, 10);
    tree_.writeFile("folder/file");
    const Descriptor* const kept = folders.of(folder("folder"));
    ASSERT_NE(kept, nullptr);
    EXPECT_TRUE(fileSystem_.openFileAt(*kept, "file"));
    const Result<Descriptor> missing = fileSystem_.openFileAt(*kept, "missing");
    ASSERT_FALSE(missing);
    EXPECT_EQ(missing.error().code, ENOENT);
}

TEST_F(FolderDescriptorsTest, KeepsTheFirstFolders) {
    FolderDescriptors folders(fileSystem_, 2);
    const Directory& one = folder("one");
    const Directory& two = folder("two");
    const Directory& three = folder("three");
    EXPECT_NE(folders.of(one), nullptr);
    EXPECT_NE(folders.of(two), nullptr);
    EXPECT_EQ(folders.of(three), nullptr);
    EXPECT_NE(folders.of(one), nullptr);
    EXPECT_EQ(opened(), 2U);
}

TEST_F(FolderDescriptorsTest, AsksOnceForAFolderThatCannotBeOpened) {
    FolderDescriptors folders(fileSystem_, 10);
    fileSystem_.failCall(FileCall::openFolderOfFiles, FaultyFileSystem::each, EACCES);
    const Directory& one = folder("one");
    EXPECT_EQ(folders.of(one), nullptr);
    EXPECT_EQ(folders.of(one), nullptr);
    EXPECT_EQ(opened(), 1U);
}

TEST_F(FolderDescriptorsTest, FollowsALinkToAFolder) {
    FolderDescriptors folders(fileSystem_, 10);
    const std::string target = tree_.makeFolder("target");
    tree_.writeFile("target/file");
    const std::string link = tree_.path() + "/link";
    std::filesystem::create_directory_symlink(target, link);
    const Descriptor* const kept = folders.of(*store_->addRoot(link));
    ASSERT_NE(kept, nullptr);
    EXPECT_TRUE(fileSystem_.openFileAt(*kept, "file"));
}

TEST_F(FolderDescriptorsTest, GivesAllThreadsTheSame) {
    FolderDescriptors folders(fileSystem_, 20);
    std::vector<const Directory*> all;
    for (int number = 0; number < 40; ++number) {
        all.push_back(&folder(std::to_string(number)));
    }
    std::atomic<int> kept{0};
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&] {
            for (const Directory* const each : all) {
                kept += folders.of(*each) != nullptr && folders.of(*each) == folders.of(*each);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    int now = 0;
    for (const Directory* const each : all) {
        now += folders.of(*each) != nullptr;
    }
    EXPECT_EQ(now, 20);
    EXPECT_GE(kept, 20);
}

}  // namespace
}  // namespace tarvin
