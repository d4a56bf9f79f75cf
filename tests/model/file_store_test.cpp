#include "model/file_store.h"

#include "model/result_tree.h"

#include <gtest/gtest.h>

#include <barrier>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace tarvin {
namespace {

TEST(FileStore, BuildsPathsFromFolders) {
    const auto store = FileStore::create();
    const Directory* root = store->addRoot("/home/ann");
    const Directory* pictures = store->addDirectory(root, "Pictures");
    const Directory* trip = store->addDirectory(pictures, "2024 trip");
    const File* file = store->addFile(trip, "a.jpg", 10, std::nullopt, std::nullopt);
    EXPECT_EQ(file->filePath(), "/home/ann/Pictures/2024 trip/a.jpg");
    EXPECT_EQ(root->path(), "/home/ann");
    EXPECT_EQ(trip->path(), "/home/ann/Pictures/2024 trip");
    EXPECT_EQ(trip->parent, pictures);
}

TEST(FileStore, RemovesTrailingSlashesOfARoot) {
    const auto store = FileStore::create();
    const Directory* root = store->addRoot("/home/ann//");
    EXPECT_EQ(root->path(), "/home/ann");
    EXPECT_EQ(root->pathLength, 9u);
}

TEST(FileStore, AcceptsTheRootOfTheFileSystem) {
    const auto store = FileStore::create();
    const Directory* root = store->addRoot("/");
    const Directory* home = store->addDirectory(root, "home");
    EXPECT_EQ(root->path(), "/");
    EXPECT_EQ(home->path(), "/home");
    EXPECT_EQ(store->addFile(root, "a", 1, std::nullopt, std::nullopt)->filePath(), "/a");
    EXPECT_EQ(store->addFile(home, "a", 1, std::nullopt, std::nullopt)->filePath(), "/home/a");
}

TEST(FileStore, AcceptsAnEmptyName) {
    const auto store = FileStore::create();
    const Directory* root = store->addRoot(std::string_view{});
    EXPECT_EQ(root->path(), "/");
}

TEST(FileStore, KeepsNamesThatAreNotUtf8) {
    const auto store = FileStore::create();
    const Directory* root = store->addRoot("/\xff");
    const File* file = store->addFile(root, "a\xc3\n.jpg", 1, std::nullopt, std::nullopt);
    EXPECT_EQ(file->filePath(), "/\xff/a\xc3\n.jpg");
}

TEST(FileStore, CopiesTheNamesItIsGiven) {
    const auto store = FileStore::create();
    std::string folder = "/folder";
    std::string name = "name";
    const Directory* root = store->addRoot(folder);
    const File* file = store->addFile(root, name, 1, std::nullopt, std::nullopt);
    folder.assign(folder.size(), 'x');
    name.assign(name.size(), 'x');
    EXPECT_EQ(file->filePath(), "/folder/name");
}

TEST(FileStore, StoresNamesLargerThanItsBlocks) {
    const auto store = FileStore::create();
    const std::string longName(200'000, 'n');
    const Directory* root = store->addRoot("/r");
    const File* before = store->addFile(root, "before", 1, std::nullopt, std::nullopt);
    const File* large = store->addFile(root, longName, 1, std::nullopt, std::nullopt);
    const File* after = store->addFile(root, "after", 1, std::nullopt, std::nullopt);
    EXPECT_EQ(before->filePath(), "/r/before");
    EXPECT_EQ(large->fileName(), longName);
    EXPECT_EQ(after->filePath(), "/r/after");
}

TEST(FileStore, FilesDoNotMoveWhenItGrows) {
    const auto store = FileStore::create();
    const Directory* root = store->addRoot("/r");
    std::vector<const File*> files;
    for (std::size_t i = 0; i < 20'000; ++i) {
        files.push_back(store->addFile(root, numbered("f", i), i, std::nullopt, std::nullopt));
    }
    EXPECT_EQ(store->fileCount(), 20'000u);
    EXPECT_EQ(files[0]->filePath(), "/r/f0");
    EXPECT_EQ(files[1024]->filePath(), "/r/f1024");
    EXPECT_EQ(files[1024]->fileSize(), 1024u);
    EXPECT_EQ(files[19'999]->filePath(), "/r/f19999");
}

TEST(FileStore, BuildsDeepPathsWithoutRecursion) {
    constexpr std::size_t levels = 100'000;
    const auto store = FileStore::create();
    const Directory* folder = store->addRoot("/r");
    std::string expected = "/r";
    for (std::size_t level = 0; level < levels; ++level) {
        folder = store->addDirectory(folder, "d");
        expected += "/d";
    }
    EXPECT_EQ(folder->path(), expected);
    EXPECT_EQ(folder->pathLength, 200'002u);
}

TEST(FileStore, DetectsFoldersInsideABundle) {
    const auto store = FileStore::create();
    const Directory* root = store->addRoot("/Applications");
    const Directory* bundle = store->addDirectory(root, "Mail.app");
    const Directory* framework = store->addDirectory(root, "Core.framework");
    EXPECT_FALSE(root->insideBundle);
    EXPECT_TRUE(bundle->insideBundle);
    EXPECT_TRUE(store->addDirectory(bundle, "Contents")->insideBundle);
    EXPECT_TRUE(framework->insideBundle);
    EXPECT_FALSE(store->addDirectory(root, "Mail.app.old")->insideBundle);
    EXPECT_FALSE(store->addDirectory(root, "Mail.APP")->insideBundle);
}

TEST(FileStore, DetectsARootInsideABundle) {
    const auto store = FileStore::create();
    EXPECT_TRUE(store->addRoot("/Applications/Mail.app/")->insideBundle);
    EXPECT_TRUE(store->addRoot("/Applications/Mail.app/Contents")->insideBundle);
    EXPECT_TRUE(store->addRoot("/Library/Core.framework/Versions")->insideBundle);
    EXPECT_FALSE(store->addRoot("/Applications/Mail.apple")->insideBundle);
}

TEST(FileStore, KeepsStatesOfSeveralThreads) {
    constexpr std::size_t threads = 4;
    constexpr std::size_t filesOfAThread = 50'000;
    const auto store = FileStore::create();
    const Directory* root = store->addRoot("/r");
    std::vector<File*> files;
    for (std::size_t file = 0; file < threads * filesOfAThread; ++file) {
        files.push_back(store->addFile(root, "a", 1, std::nullopt, std::nullopt));
    }
    std::barrier begin(threads);
    std::vector<std::thread> running;
    for (std::size_t thread = 0; thread < threads; ++thread) {
        running.emplace_back([&, thread] {
            begin.arrive_and_wait();
            for (std::size_t file = thread; file < files.size(); file += threads) {
                store->keepCompared(*files[file], {{1, file}, std::nullopt});
            }
        });
    }
    for (std::thread& thread : running) {
        thread.join();
    }
    for (std::size_t file = 0; file < files.size(); ++file) {
        ASSERT_EQ(*files[file]->compared(), (ComparedState{{1, file}, std::nullopt}));
    }
}

TEST(FileStore, SharedFileKeepsItAlive) {
    std::shared_ptr<File> file;
    std::weak_ptr<FileStore> watcher;
    {
        const auto store = FileStore::create();
        watcher = store;
        const Directory* root = store->addRoot("/r");
        file = store->share(store->addFile(root, "a", 1, std::nullopt, std::nullopt));
    }
    EXPECT_FALSE(watcher.expired());
    EXPECT_EQ(file->filePath(), "/r/a");
    file.reset();
    EXPECT_TRUE(watcher.expired());
}

TEST(FileStore, SharesTheSameFileEachTime) {
    const auto store = FileStore::create();
    File* file = store->addFile(store->addRoot("/r"), "a", 1, std::nullopt, std::nullopt);
    EXPECT_EQ(store->share(file).get(), file);
    EXPECT_EQ(store->share(file), store->share(file));
}

TEST(FileStore, CreatesAStandaloneFile) {
    EXPECT_EQ(FileStore::standalone("/home/ann/a.jpg", 1)->filePath(), "/home/ann/a.jpg");
    EXPECT_EQ(FileStore::standalone("/a.jpg", 1)->filePath(), "/a.jpg");
    EXPECT_EQ(FileStore::standalone("/a.jpg", 1)->fileName(), "a.jpg");
}

}  // namespace
}  // namespace tarvin
