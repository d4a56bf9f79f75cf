#include "scan/tree_reader.h"

#include "model/file_store.h"
#include "support/faulty_file_system.h"
#include "support/file_tree.h"
#include "support/scan_tools.h"
#include "support/waiting.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace tarvin {
namespace {

using namespace std::chrono_literals;

using Names = std::vector<std::string>;
using Listing = std::shared_ptr<TreeReader::Listing>;

// Upper bound of the entries read ahead: the reader's limit, and what each worker was listing when
// it was reached.
constexpr std::uint64_t maxEntriesListedAhead = 64 * 1024;

EntryInterest everything(const Directory& /*folder*/, std::string_view /*name*/,
                         EntryType /*type*/) {
    return EntryInterest::attributes;
}

EntryInterest onlyNames(const Directory& /*folder*/, std::string_view /*name*/,
                        EntryType /*type*/) {
    return EntryInterest::name;
}

EntryInterest nothingHidden(const Directory& /*folder*/, std::string_view name,
                            EntryType /*type*/) {
    return name.starts_with('.') ? EntryInterest::none : EntryInterest::attributes;
}

class TreeReaderTest : public testing::Test {
 protected:
    TreeReaderTest() { fileSystem_.setListingOrder(ListingOrder::sorted); }

    TreeReader& reader(TreeReader::Interest interest = everything,
                       WorkerPool::Limits limits = {2, 4}, WorkerPool::Use use = useOfThisThread) {
        reader_ = nullptr;
        tools_ = std::make_unique<ScanTools>(fileSystem_, limits, use);
        reader_ = std::make_unique<TreeReader>(tools_->servicesWith(control_), interest, maker());
        return *reader_;
    }

    /// Adds folders to the store.
    [[nodiscard]] TreeReader::MakeFolder maker() const {
        return [this](const Directory& parent, std::string_view name) {
            return store_->addDirectory(&parent, name);
        };
    }

    Listing root(TreeReader& reader, const std::string& path) {
        return reader.makeRoot(store_->addRoot(path));
    }

    /// The names of all entries of the folder.
    static Names names(TreeReader& reader, const Listing& listing) {
        Names all;
        while (const auto block = reader.nextBlock(listing)) {
            for (const ListedEntry& entry : block->entries) {
                all.emplace_back(entry.name);
            }
        }
        return all;
    }

    struct Folder {
        const Directory* directory;
        Listing listing;
        std::string name;
    };

    /// Takes the next block and returns its folders.
    std::vector<Folder> takeFolders(TreeReader& reader, const Folder& folder) {
        block_ = reader.nextBlock(folder.listing);
        std::vector<Folder> inside;
        for (const TreeReader::Folder& each : block_->folders) {
            inside.push_back(
                {each.directory, each.listing, {each.directory->name, each.directory->nameLength}});
        }
        return inside;
    }

    Folder rootFolder(TreeReader& reader) {
        const Directory* directory = store_->addRoot(tree_.path());
        return {directory, reader.makeRoot(directory), ""};
    }

    /// Waits until the workers have reached the read-ahead limit: nothing has been listed for 100
    /// ms while tasks ran through the pool.
    void waitUntilQuiet() {
        std::uint64_t listed = 0;
        auto since = std::chrono::steady_clock::now();
        while (std::chrono::steady_clock::now() - since < 100ms) {
            std::promise<void> promise;
            tools_->pool().submit([&] { promise.set_value(); });
            promise.get_future().wait();
            const std::uint64_t now = fileSystem_.entriesListed();
            if (now != listed) {
                listed = now;
                since = std::chrono::steady_clock::now();
            }
        }
    }

    /// Creates `count` folders, each with `files` fake files that exist only in the listing.
    void makeFolders(int count, std::uint64_t files) {
        for (int number = 0; number < count; ++number) {
            fileSystem_.inventFiles(tree_.makeFolder("folder " + std::to_string(1000 + number)),
                                    files);
        }
    }

    FileTree tree_;
    FaultyFileSystem fileSystem_;
    ScanControl control_;
    std::shared_ptr<FileStore> store_ = FileStore::create();
    std::unique_ptr<ScanTools> tools_;
    std::unique_ptr<TreeReader> reader_;
    std::unique_ptr<TreeReader::Block> block_;
};

TEST_F(TreeReaderTest, CanBeDestroyedUnused) {
    reader();
    reader_ = nullptr;
    EXPECT_EQ(fileSystem_.openAtMost(), 0u);
}

TEST_F(TreeReaderTest, ReturnsEntriesInListingOrder) {
    for (const char* name : {"c", "a", "b/inside"}) {
        tree_.writeFile(name);
    }
    TreeReader& reader = this->reader();
    const Listing listing = root(reader, tree_.path());
    EXPECT_EQ(names(reader, listing), (Names{"a", "b", "c"}));
    EXPECT_EQ(reader.nextBlock(listing), nullptr);
    reader.close(listing);
}

TEST_F(TreeReaderTest, NamesAreNullTerminated) {
    tree_.writeFile("a.txt");
    tree_.writeFile("bcd");
    TreeReader& reader = this->reader();
    const Listing listing = root(reader, tree_.path());
    const auto block = reader.nextBlock(listing);
    ASSERT_NE(block, nullptr);
    for (const ListedEntry& entry : block->entries) {
        EXPECT_EQ(std::string(entry.name.data()), entry.name);
    }
    reader.close(listing);
}

TEST_F(TreeReaderTest, ReturnsTheIdentityOfAFolder) {
    TreeReader& reader = this->reader();
    const Listing listing = root(reader, tree_.path());
    const Result<FileIdentity> identity = reader.identityOf(listing);
    ASSERT_TRUE(identity);
    const auto opened = systemFileSystem().openDirectory(tree_.path());
    EXPECT_EQ(*identity, systemFileSystem().attributesOf(*opened)->identity);
    reader.close(listing);
}

TEST_F(TreeReaderTest, ReturnsTheErrorOfAFolderThatCannotBeOpened) {
    TreeReader& reader = this->reader();
    struct Row {
        std::string path;
        int error;
    };
    for (const Row& row :
         {Row{tree_.pathOf("missing"), ENOENT}, Row{tree_.writeFile("file"), ENOTDIR}}) {
        const Listing listing = root(reader, row.path);
        const Result<FileIdentity> identity = reader.identityOf(listing);
        ASSERT_FALSE(identity);
        EXPECT_EQ(identity.error().code, row.error);
        EXPECT_EQ(reader.nextBlock(listing), nullptr);
        reader.close(listing);
    }
}

TEST_F(TreeReaderTest, SkipsEntriesWithoutInterest) {
    for (const char* name : {".hidden", "a", ".also/inside", "b/inside"}) {
        tree_.writeFile(name);
    }
    tree_.makeLink("link", "a");
    tree_.makePipe("pipe");
    TreeReader& reader = this->reader(nothingHidden);
    const Listing listing = root(reader, tree_.path());
    EXPECT_EQ(names(reader, listing), (Names{"a", "b"}));
    reader.close(listing);
}

TEST_F(TreeReaderTest, ReadsAttributesOfRegularFilesOnly) {
    tree_.writeFile("file", "12345");
    tree_.makeFolder("folder");
    TreeReader& reader = this->reader();
    const Listing listing = root(reader, tree_.path());
    const auto block = reader.nextBlock(listing);
    ASSERT_NE(block, nullptr);
    ASSERT_EQ(block->entries.size(), 2u);
    EXPECT_EQ(block->entries[0].type, EntryType::regular);
    EXPECT_TRUE(block->entries[0].attributesKnown);
    EXPECT_EQ(block->entries[0].attributes.size, 5u);
    EXPECT_EQ(block->entries[1].type, EntryType::directory);
    EXPECT_EQ(fileSystem_.calls(FileCall::attributesAt), 1u);
    reader.close(listing);
}

TEST_F(TreeReaderTest, ReadsNoAttributesIfTheNameIsEnough) {
    tree_.writeFile("file", "12345");
    TreeReader& reader = this->reader(onlyNames);
    const Listing listing = root(reader, tree_.path());
    EXPECT_EQ(names(reader, listing), (Names{"file"}));
    EXPECT_EQ(fileSystem_.calls(FileCall::attributesAt), 0u);
    reader.close(listing);
}

TEST_F(TreeReaderTest, ReadsTypesMissingFromTheListing) {
    tree_.writeFile("a file");
    tree_.makeFolder("b folder");
    tree_.makeLink("c link", "a file");
    fileSystem_.hideEntryTypes();
    TreeReader& reader = this->reader(onlyNames);
    const Listing listing = root(reader, tree_.path());
    const auto block = reader.nextBlock(listing);
    ASSERT_NE(block, nullptr);
    ASSERT_EQ(block->entries.size(), 3u);
    EXPECT_EQ(block->entries[0].type, EntryType::regular);
    EXPECT_EQ(block->entries[1].type, EntryType::directory);
    EXPECT_EQ(block->entries[2].type, EntryType::other);
    reader.close(listing);
}

TEST_F(TreeReaderTest, AsksAgainWithTheTypeMissingFromTheListing) {
    tree_.writeFile("a");
    tree_.makeFolder("b");
    tree_.makeFolder("c");
    fileSystem_.hideEntryTypes();
    TreeReader& reader =
        this->reader([](const Directory& folder, std::string_view name, EntryType type) {
            return folder.parent == nullptr && name == "b" && type == EntryType::directory
                       ? EntryInterest::none
                       : EntryInterest::name;
        });
    const Listing listing = root(reader, tree_.path());
    const auto block = reader.nextBlock(listing);
    ASSERT_NE(block, nullptr);
    ASSERT_EQ(block->entries.size(), 3u);
    EXPECT_EQ(block->entries[1].name, "b");
    EXPECT_EQ(block->entries[1].type, EntryType::other);
    EXPECT_EQ(block->entries[2].type, EntryType::directory);
    reader.close(listing);
}

TEST_F(TreeReaderTest, ReturnsTheErrorOfUnreadableAttributes) {
    tree_.writeFile("a", "1");
    tree_.writeFile("b", "1");
    fileSystem_.failCall(FileCall::attributesAt, 1, EIO);
    TreeReader& reader = this->reader();
    const Listing listing = root(reader, tree_.path());
    const auto block = reader.nextBlock(listing);
    ASSERT_NE(block, nullptr);
    ASSERT_EQ(block->entries.size(), 2u);
    EXPECT_FALSE(block->entries[0].attributesKnown);
    EXPECT_TRUE(block->entries[1].attributesKnown);
    reader.close(listing);
}

TEST_F(TreeReaderTest, KeepsTheEntriesBeforeAListingError) {
    fileSystem_.inventFiles(tree_.path(), 5000);
    fileSystem_.failCall(FileCall::listEntries, 3, EIO);
    TreeReader& reader = this->reader();
    const Listing listing = root(reader, tree_.path());
    EXPECT_TRUE(reader.identityOf(listing));
    const std::size_t read = names(reader, listing).size();
    EXPECT_EQ(read, fileSystem_.entriesListed());
    EXPECT_GT(read, 0u);
    EXPECT_LT(read, 5000u);
    reader.close(listing);
}

TEST_F(TreeReaderTest, ReturnsALargeFolderCompletelyAndInOrder) {
    fileSystem_.inventFiles(tree_.path(), 50'000);
    TreeReader& reader = this->reader(everything, {2, 8});
    const Listing listing = root(reader, tree_.path());
    const Names all = names(reader, listing);
    ASSERT_EQ(all.size(), 50'000u);
    for (std::size_t number = 0; number < all.size(); ++number) {
        ASSERT_EQ(all[number], "invented-" + std::to_string(number) + ".txt");
    }
    reader.close(listing);
}

TEST_F(TreeReaderTest, ListsTheFoldersOfABlockAhead) {
    makeFolders(20, 10);
    TreeReader& reader = this->reader();
    const Folder folder = rootFolder(reader);
    const std::vector<Folder> inside = takeFolders(reader, folder);
    ASSERT_EQ(inside.size(), 20u);
    waitUntilQuiet();
    EXPECT_EQ(fileSystem_.entriesListed(), 220u);
    const std::uint64_t calls = fileSystem_.calls(FileCall::openDirectoryAt);
    EXPECT_EQ(calls, 20u);
    for (const Folder& each : inside) {
        EXPECT_TRUE(reader.identityOf(each.listing));
        EXPECT_EQ(names(reader, each.listing).size(), 10u);
        reader.close(each.listing);
    }
    reader.close(folder.listing);
    EXPECT_EQ(fileSystem_.calls(FileCall::openDirectoryAt), calls);
}

/// Two folders, "a" and "b", with "1" and "2" inside each, and a file in each of those.
class TreeReaderOfTwoLevels : public TreeReaderTest {
 protected:
    TreeReaderOfTwoLevels() {
        for (const std::string path : {"a/1", "a/2", "b/1", "b/2"}) {
            tree_.writeFile(path + "/file");
            fileSystem_.beforeCall(
                FileCall::openDirectoryAt, FaultyFileSystem::each,
                [this, path] {
                    const std::lock_guard lock(mutex_);
                    opened_.push_back(path);
                },
                tree_.path() + "/" + path);
        }
    }

    /// Those of the second level, in the order in which they were opened.
    Names opened() {
        const std::lock_guard lock(mutex_);
        return opened_;
    }

 private:
    std::mutex mutex_;
    Names opened_;
};

TEST_F(TreeReaderOfTwoLevels, ListsWhatIsBelowTheNextFoldersInTheOrderOfTheWalk) {
    TreeReader& reader = this->reader(everything, {1, 1});
    const Folder folder = rootFolder(reader);
    const std::vector<Folder> inside = takeFolders(reader, folder);
    waitUntilQuiet();
    EXPECT_EQ(opened(), Names());
    EXPECT_TRUE(reader.identityOf(inside.front().listing));
    waitUntilQuiet();
    EXPECT_EQ(opened(), (Names{"a/1", "a/2", "b/1", "b/2"}));
    for (const Folder& each : inside) {
        for (const Folder& within : takeFolders(reader, each)) {
            EXPECT_EQ(names(reader, within.listing), (Names{"file"}));
            reader.close(within.listing);
        }
        reader.close(each.listing);
    }
    reader.close(folder.listing);
    EXPECT_EQ(opened().size(), 4u);
}

TEST_F(TreeReaderOfTwoLevels, ListsOtherFoldersWhileAWorkerIsHeldUp) {
    std::promise<void> goOn;
    fileSystem_.beforeCall(
        FileCall::listEntries, 1, [&] { goOn.get_future().wait(); }, tree_.path() + "/a");
    TreeReader& reader = this->reader(everything, {2, 2});
    const Folder folder = rootFolder(reader);
    const std::vector<Folder> inside = takeFolders(reader, folder);
    waitUntilQuiet();
    EXPECT_TRUE(reader.identityOf(inside.back().listing));
    waitUntilQuiet();
    EXPECT_EQ(opened(), (Names{"b/1", "b/2"}));
    goOn.set_value();
    for (const Folder& each : inside) {
        reader.close(each.listing);
    }
    reader.close(folder.listing);
}

TEST_F(TreeReaderOfTwoLevels, WorkersListFoldersWhileTheWalkReadsAttributes) {
    const std::string file = tree_.writeFile("c");
    std::promise<void> isOpened;
    fileSystem_.beforeCall(
        FileCall::openDirectoryAt, 1, [&] { isOpened.set_value(); }, tree_.path() + "/b");
    bool wasOpened = false;
    fileSystem_.beforeCall(
        FileCall::attributesAt, 1,
        [&] { wasOpened = isOpened.get_future().wait_for(10s) == std::future_status::ready; },
        file);
    TreeReader& reader = this->reader(everything, {2, 2});
    const Folder folder = rootFolder(reader);
    EXPECT_TRUE(reader.identityOf(folder.listing));
    EXPECT_TRUE(wasOpened);
    reader.close(folder.listing);
}

TEST_F(TreeReaderTest, ListsAFewLevelsAheadOnly) {
    tree_.makeChain("", "d", 50);
    TreeReader& reader = this->reader();
    const Folder folder = rootFolder(reader);
    const std::vector<Folder> inside = takeFolders(reader, folder);
    for (int round = 0; round < 10; ++round) {
        waitUntilQuiet();
        EXPECT_TRUE(reader.identityOf(inside.front().listing));
    }
    EXPECT_EQ(fileSystem_.calls(FileCall::openDirectoryAt), 8u);
    reader.close(inside.front().listing);
    reader.close(folder.listing);
}

TEST_F(TreeReaderTest, ReadsOnAheadWhenWhatIsBelowAClosedFolderIsDropped) {
    fileSystem_.inventFiles(tree_.makeFolder("a/inside"), 50'000);
    fileSystem_.inventFiles(tree_.makeFolder("b/inside"), 50'000);
    TreeReader& reader = this->reader(everything, {1, 1});
    const Folder folder = rootFolder(reader);
    const std::vector<Folder> inside = takeFolders(reader, folder);
    waitUntilQuiet();
    EXPECT_TRUE(reader.identityOf(inside.front().listing));
    waitUntilQuiet();
    EXPECT_EQ(fileSystem_.calls(FileCall::openDirectoryAt), 3u);
    const std::uint64_t before = fileSystem_.entriesListed();
    EXPECT_GT(before, 5'000u);
    reader.close(inside.front().listing);
    waitUntilQuiet();
    EXPECT_EQ(fileSystem_.calls(FileCall::openDirectoryAt), 4u);
    EXPECT_GT(fileSystem_.entriesListed(), before + 5'000);
    reader.close(inside.back().listing);
    reader.close(folder.listing);
}

/// What a thread has used if each call reads from a device.
ThreadUse useOfAReadingThread() {
    static std::atomic<std::uint64_t> reads{0};
    return {++reads, 0, {}};
}

ThreadUse useOfAnIdleThread() {
    return {};
}

std::atomic<std::uint64_t> attributesRead{0};

/// What a thread has used if only attributes have to be read from a device.
ThreadUse useOfAThreadThatReadsAttributes() {
    return {attributesRead, 0, {}};
}

/// Folders "a" to "e" with files "1" and "2", whose inode numbers go the other way.
class TreeReaderOnARotationalDisk : public TreeReaderTest {
 protected:
    TreeReaderOnARotationalDisk() {
        fileSystem_.setRotational(true);
        std::uint64_t inode = 100;
        for (const std::string folder : {"a", "b", "c", "d", "e"}) {
            for (const std::string file : {"1", "2"}) {
                const std::string path = tree_.writeFile(folder + "/" + file);
                fileSystem_.setListedInode(path, --inode);
                record(FileCall::attributesAt, path);
            }
            const std::string path = tree_.path() + "/" + folder;
            fileSystem_.setListedInode(path, --inode);
            record(FileCall::openDirectoryAt, path);
        }
    }

    /// Walks through the tree. Returns what it has found, in its order.
    Names walk(WorkerPool::Use use) {
        Names found;
        TreeReader& reader = this->reader(everything, {1, 1}, use);
        const Folder folder = rootFolder(reader);
        for (const Folder& each : takeFolders(reader, folder)) {
            EXPECT_TRUE(reader.identityOf(each.listing) || control_.stop());
            for (const std::string& name : names(reader, each.listing)) {
                found.push_back(each.name + "/" + name);
            }
            reader.close(each.listing);
        }
        reader.close(folder.listing);
        return found;
    }

    /// Whether attributes were read before all folders had been opened.
    [[nodiscard]] bool readsFolderByFolder() {
        const std::lock_guard lock(callsMutex_);
        const auto isFile = [](const std::string& name) { return name.size() > 1; };
        const auto firstFile = std::find_if(calls_.begin(), calls_.end(), isFile);
        return std::find_if_not(firstFile, calls_.end(), isFile) != calls_.end();
    }

    const Names all_{"a/1", "a/2", "b/1", "b/2", "c/1", "c/2", "d/1", "d/2", "e/1", "e/2"};
    Names calls_;  // guarded by callsMutex_ while workers read

 private:
    std::mutex callsMutex_;

    void record(FileCall call, const std::string& path) {
        const std::string name = path.substr(tree_.path().size() + 1);
        fileSystem_.beforeCall(
            call, FaultyFileSystem::each,
            [this, name] {
                const std::lock_guard lock(callsMutex_);
                calls_.push_back(name);
            },
            path);
    }
};

TEST_F(TreeReaderOnARotationalDisk, ReadsFoldersThenAttributesInTheOrderOfInodes) {
    EXPECT_EQ(walk(useOfAReadingThread), all_);
    EXPECT_EQ(calls_, (Names{"e", "d", "c", "b", "a", "e/2", "e/1", "d/2", "d/1", "c/2", "c/1",
                             "b/2", "b/1", "a/2", "a/1"}));
}

// The walk and a worker read then, each a folder with its attributes.
TEST_F(TreeReaderOnARotationalDisk, ReadsFolderByFolderWhatIsInMemory) {
    EXPECT_EQ(walk(useOfAnIdleThread), all_);
    EXPECT_TRUE(readsFolderByFolder());
}

TEST_F(TreeReaderOnARotationalDisk, ReadsFoldersTogetherIfOnlyTheirNamesAreInMemory) {
    fileSystem_.beforeCall(FileCall::attributesAt, FaultyFileSystem::each,
                           [] { ++attributesRead; });
    EXPECT_EQ(walk(useOfAThreadThatReadsAttributes), all_);
    // The walk and a worker may have read the first two.
    const auto last = std::find(calls_.begin(), calls_.end(), "e");
    ASSERT_GE(calls_.end() - last, 3);
    EXPECT_EQ(*(last + 1), "d");
    EXPECT_EQ(*(last + 2), "c");
    EXPECT_LT(std::find(calls_.begin(), calls_.end(), "a/2"),
              std::find(calls_.begin(), calls_.end(), "a/1"));
}

TEST_F(TreeReaderOnARotationalDisk, ReadsFolderByFolderOnOtherDisks) {
    fileSystem_.setRotational(false);
    EXPECT_EQ(walk(useOfAReadingThread), all_);
    EXPECT_TRUE(readsFolderByFolder());
}

TEST_F(TreeReaderOnARotationalDisk, ReadsFewFoldersTogetherIfFewMayBeOpen) {
    fileSystem_.setDescriptorLimit(1);
    EXPECT_EQ(walk(useOfAReadingThread), all_);
    EXPECT_EQ(calls_.size(), 15u);
    EXPECT_EQ(calls_[2], "b/2");
    EXPECT_LE(fileSystem_.openAtMost(), 8u);
}

TEST_F(TreeReaderOnARotationalDisk, DoesNotReadAFolderThatIsReadWhileOthersAreListed) {
    TreeReader& reader = this->reader(everything, {1, 1}, useOfAReadingThread);
    const Folder folder = rootFolder(reader);
    const std::vector<Folder> inside = takeFolders(reader, folder);
    const Listing first = inside.front().listing;
    fileSystem_.beforeCall(
        FileCall::openDirectoryAt, 1, [&] { EXPECT_TRUE(reader.identityOf(first)); }, "/e");
    int listings = 0;
    fileSystem_.beforeCall(
        FileCall::listEntries, FaultyFileSystem::each, [&] { ++listings; },
        inside.front().directory->path());
    EXPECT_TRUE(reader.identityOf(first));
    EXPECT_EQ(names(reader, first), (Names{"1", "2"}));
    // The entries, and the end.
    EXPECT_EQ(listings, 2);
    for (const Folder& each : inside) {
        reader.close(each.listing);
    }
    reader.close(folder.listing);
}

TEST_F(TreeReaderOnARotationalDisk, EndsEarlyAfterAStop) {
    fileSystem_.beforeCall(FileCall::openDirectoryAt, 1, [this] { control_.requestStop(); }, "/e");
    walk(useOfAReadingThread);
    EXPECT_LE(calls_.size(), 2u);
}

TEST_F(TreeReaderTest, BoundsReadAheadOfManyFolders) {
    makeFolders(400, 500);
    TreeReader& reader = this->reader(everything, {4, 8});
    const Folder folder = rootFolder(reader);
    const std::vector<Folder> inside = takeFolders(reader, folder);
    waitUntilQuiet();
    EXPECT_GT(fileSystem_.entriesListed(), 5'000u);
    EXPECT_LT(fileSystem_.entriesListed(), maxEntriesListedAhead);
    for (const Folder& each : inside) {
        EXPECT_EQ(names(reader, each.listing).size(), 500u);
        reader.close(each.listing);
    }
    reader.close(folder.listing);
}

TEST_F(TreeReaderTest, BoundsReadAheadOfOneFolder) {
    makeFolders(1, 300'000);
    TreeReader& reader = this->reader(everything, {4, 8});
    const Folder folder = rootFolder(reader);
    const std::vector<Folder> inside = takeFolders(reader, folder);
    ASSERT_EQ(inside.size(), 1u);
    waitUntilQuiet();
    EXPECT_GT(fileSystem_.entriesListed(), 5'000u);
    EXPECT_LT(fileSystem_.entriesListed(), maxEntriesListedAhead);
    EXPECT_EQ(names(reader, inside.front().listing).size(), 300'000u);
    reader.close(inside.front().listing);
    reader.close(folder.listing);
}

TEST_F(TreeReaderTest, BoundsReadAheadWithFewDescriptors) {
    makeFolders(8, 300'000);
    fileSystem_.setDescriptorLimit(32);
    TreeReader& reader = this->reader(everything, {4, 8});
    const Folder folder = rootFolder(reader);
    const std::vector<Folder> inside = takeFolders(reader, folder);
    waitUntilQuiet();
    EXPECT_LT(fileSystem_.entriesListed(), maxEntriesListedAhead);
    for (const Folder& each : inside) {
        EXPECT_EQ(names(reader, each.listing).size(), 300'000u);
        reader.close(each.listing);
    }
    reader.close(folder.listing);
}

TEST_F(TreeReaderTest, BoundsReadAheadDeepInATree) {
    // So deep that not all parent folders can be kept open.
    const std::string bottom = tree_.makeChain("", "d", 200);
    fileSystem_.inventFiles(bottom, 300'000);
    TreeReader& reader = this->reader(everything, {4, 8});
    std::vector<Folder> parents{rootFolder(reader)};
    while (true) {
        std::vector<Folder> inside = takeFolders(reader, parents.back());
        if (inside.empty()) {
            break;
        }
        parents.push_back(std::move(inside.front()));
    }
    ASSERT_EQ(parents.size(), 201u);
    waitUntilQuiet();
    EXPECT_LT(fileSystem_.entriesListed(), maxEntriesListedAhead);
    for (const Folder& each : parents) {
        names(reader, each.listing);
        reader.close(each.listing);
    }
    EXPECT_EQ(fileSystem_.entriesListed(), 300'200u);
}

TEST_F(TreeReaderTest, ContinuesWhenTheWalkHasCaughtUp) {
    makeFolders(400, 500);
    TreeReader& reader = this->reader(everything, {1, 1});
    const Folder folder = rootFolder(reader);
    const std::vector<Folder> inside = takeFolders(reader, folder);
    waitUntilQuiet();
    const std::uint64_t before = fileSystem_.entriesListed();
    for (std::size_t taken = 0; taken < 50; ++taken) {
        EXPECT_EQ(names(reader, inside[taken].listing).size(), 500u);
        reader.close(inside[taken].listing);
    }
    waitUntilQuiet();
    EXPECT_GE(fileSystem_.entriesListed(), before + 20'000);
    EXPECT_LT(fileSystem_.entriesListed(), 25'000 + maxEntriesListedAhead);
    for (std::size_t left = 50; left < inside.size(); ++left) {
        reader.close(inside[left].listing);
    }
    reader.close(folder.listing);
}

TEST_F(TreeReaderTest, ContinuesWhenFoldersAreClosedUnread) {
    makeFolders(400, 500);
    TreeReader& reader = this->reader(everything, {1, 1});
    const Folder folder = rootFolder(reader);
    const std::vector<Folder> inside = takeFolders(reader, folder);
    for (const Folder& each : inside) {
        EXPECT_TRUE(reader.identityOf(each.listing));
        reader.close(each.listing);
    }
    reader.close(folder.listing);
    reader_ = nullptr;
    EXPECT_EQ(fileSystem_.openNow(), 0u);
}

TEST_F(TreeReaderTest, CanBeDestroyedWhileWorkersAreInsideFolders) {
    makeFolders(100, 2000);
    for (int round = 0; round < 20; ++round) {
        TreeReader& reader = this->reader(everything, {4, 8});
        const Folder folder = rootFolder(reader);
        {
            const std::vector<Folder> inside = takeFolders(reader, folder);
            for (int taken = 0; taken < round; ++taken) {
                EXPECT_TRUE(reader.identityOf(inside[static_cast<std::size_t>(taken)].listing));
            }
        }
        block_ = nullptr;
        reader_ = nullptr;
    }
    EXPECT_EQ(fileSystem_.openNow(), 0u);
}

TEST_F(TreeReaderTest, CanCloseAFolderThatAWorkerIsInside) {
    makeFolders(1, 5000);
    TreeReader& reader = this->reader(everything, {1, 1});
    std::promise<void> inside;
    std::promise<void> goOn;
    fileSystem_.beforeCall(
        FileCall::listEntries, 1,
        [&] {
            inside.set_value();
            goOn.get_future().wait();
        },
        "folder 1000");
    const Folder folder = rootFolder(reader);
    const std::vector<Folder> folders = takeFolders(reader, folder);
    inside.get_future().wait();
    reader.close(folders.front().listing);
    reader.close(folder.listing);
    goOn.set_value();
    reader_ = nullptr;
    EXPECT_EQ(fileSystem_.openNow(), 0u);
}

TEST_F(TreeReaderTest, EndsFoldersEarlyAfterAStop) {
    fileSystem_.inventFiles(tree_.path(), 300'000);
    TreeReader& reader = this->reader();
    const Listing listing = root(reader, tree_.path());
    EXPECT_NE(reader.nextBlock(listing), nullptr);
    control_.setStop(true);
    while (reader.nextBlock(listing) != nullptr) {
    }
    EXPECT_LT(fileSystem_.entriesListed(), maxEntriesListedAhead);
    reader.close(listing);
}

TEST_F(TreeReaderTest, ListsNothingDuringAPause) {
    makeFolders(400, 500);
    control_.setPause(true);
    std::atomic<pid_t> walking{0};
    std::size_t listed = 0;
    std::thread walk([&] {
        TreeReader& reader = this->reader(everything, {2, 2});
        const Listing listing = root(reader, tree_.path());
        walking = ::gettid();
        listed = names(reader, listing).size();
        reader.close(listing);
    });
    EXPECT_TRUE(waitUntil([&] { return walking != 0 && isAsleep(walking); }));
    EXPECT_EQ(fileSystem_.openAtMost(), 0u);
    control_.setPause(false);
    walk.join();
    EXPECT_EQ(listed, 400u);
}

TEST_F(TreeReaderTest, CallsTheWalksPauseWait) {
    fileSystem_.inventFiles(tree_.path(), 20'000);
    ScanTools tools(fileSystem_, {2, 4});
    int waits = 0;
    const std::thread::id here = std::this_thread::get_id();
    TreeReader reader(tools.servicesWith(control_), everything, maker(), [&] {
        EXPECT_EQ(std::this_thread::get_id(), here);
        ++waits;
        control_.setPause(false);
    });
    // Either the walk or a worker that it waits for sees the pause.
    const auto pause = [&] { control_.setPause(true); };
    fileSystem_.beforeCall(FileCall::openRootDirectory, 1, pause);
    fileSystem_.beforeCall(FileCall::listEntries, 1, pause);
    for (const std::uint64_t call : {100u, 5'000u, 15'000u}) {
        fileSystem_.beforeCall(FileCall::attributesAt, call, pause);
    }
    const Listing listing = root(reader, tree_.path());
    EXPECT_EQ(names(reader, listing).size(), 20'000u);
    EXPECT_GE(waits, 3);
    reader.close(listing);
}

TEST_F(TreeReaderTest, ReturnsTheErrorThatEndedAListing) {
    fileSystem_.inventFiles(tree_.path(), 5000);
    TreeReader& reader = this->reader();
    const Listing whole = root(reader, tree_.path());
    names(reader, whole);
    EXPECT_FALSE(reader.failureOf(whole));
    reader.close(whole);
    fileSystem_.failCall(FileCall::listEntries, 3, EIO);
    const Listing part = root(reader, tree_.path());
    names(reader, part);
    ASSERT_TRUE(reader.failureOf(part));
    EXPECT_EQ(reader.failureOf(part)->code, EIO);
    reader.close(part);
}

TEST_F(TreeReaderTest, FailureCanBeReadWhileAWorkerSetsIt) {
    fileSystem_.inventFiles(tree_.path(), 5000);
    for (int round = 0; round < 200; ++round) {
        TreeReader& reader = this->reader();
        std::atomic<bool> meets{false};
        fileSystem_.clearFaults();
        fileSystem_.beforeCall(FileCall::listEntries, 2, [&] { meets = true; });
        fileSystem_.failCall(FileCall::listEntries, 2, EIO);
        const Listing listing = root(reader, tree_.path());
        EXPECT_NE(reader.nextBlock(listing), nullptr);
        while (!meets) {
            std::this_thread::yield();
        }
        const std::optional<SystemError> failure = reader.failureOf(listing);
        EXPECT_TRUE(!failure || failure->code == EIO);
        reader.close(listing);
    }
}

TEST_F(TreeReaderTest, RefusesTheHomeTrash) {
    tree_.writeFile("trash/file");
    const auto opened = systemFileSystem().openDirectory(tree_.pathOf("trash"));
    fileSystem_.setHomeTrash(systemFileSystem().attributesOf(*opened)->identity);
    TreeReader& reader = this->reader();
    const Listing listing = root(reader, tree_.pathOf("trash"));
    EXPECT_FALSE(reader.identityOf(listing));
    EXPECT_EQ(reader.nextBlock(listing), nullptr);
    EXPECT_EQ(fileSystem_.calls(FileCall::listEntries), 0u);
    reader.close(listing);
}

TEST_F(TreeReaderTest, RefusesPseudoFileSystems) {
    tree_.writeFile("file");
    const auto opened = systemFileSystem().openDirectory(tree_.path());
    fileSystem_.setPseudoFileSystem(systemFileSystem().attributesOf(*opened)->identity.device,
                                    true);
    TreeReader& reader = this->reader();
    const Listing listing = root(reader, tree_.path());
    EXPECT_FALSE(reader.identityOf(listing));
    EXPECT_EQ(reader.nextBlock(listing), nullptr);
    reader.close(listing);
}

/// Walks everything below `top`, depth first, and returns the number of entries.
std::uint64_t walk(TreeReader& reader, const Directory* top) {
    struct Open {
        Listing listing;
        std::unique_ptr<TreeReader::Block> block;
        std::size_t nextFolder = 0;
    };
    std::uint64_t entries = 0;
    std::vector<Open> open;
    open.push_back({reader.makeRoot(top), nullptr, 0});
    while (!open.empty()) {
        Open& at = open.back();
        if (at.block && at.nextFolder < at.block->folders.size()) {
            open.push_back({at.block->folders[at.nextFolder++].listing, nullptr, 0});
            continue;
        }
        at.block = reader.nextBlock(at.listing);
        at.nextFolder = 0;
        if (at.block) {
            entries += at.block->entries.size();
        } else {
            reader.close(at.listing);
            open.pop_back();
        }
    }
    return entries;
}

TEST_F(TreeReaderTest, NeedsFewDescriptorsForADeepTree) {
    tree_.makeChain("", "d", 1000, {"a.txt", "z.txt"});
    fileSystem_.setDescriptorLimit(64);
    fileSystem_.refuseMoreDescriptorsThan(40);
    TreeReader& reader = this->reader(everything, {4, 8});
    EXPECT_EQ(walk(reader, store_->addRoot(tree_.path())), 3000u);
    EXPECT_EQ(fileSystem_.openNow(), 0u);
}

TEST_F(TreeReaderTest, NeedsFewDescriptorsForLargeFoldersAtEveryLevel) {
    tree_.makeChain("", "zz", 60);
    std::string path = tree_.path();
    for (int level = 0; level < 60; ++level) {
        path += "/zz";
        fileSystem_.inventFiles(path, 4000);
    }
    fileSystem_.setDescriptorLimit(64);
    fileSystem_.refuseMoreDescriptorsThan(40);
    TreeReader& reader = this->reader(everything, {4, 8});
    EXPECT_EQ(walk(reader, store_->addRoot(tree_.path())), 60u + 60u * 4000u);
    EXPECT_EQ(fileSystem_.openNow(), 0u);
}

/// Many workers start at the same time, all before the first one ends.
void beginTogether(FaultyFileSystem& fileSystem, int workers) {
    const auto beginning = std::make_shared<std::atomic<int>>(0);
    fileSystem.beforeCall(FileCall::openDirectoryAt, FaultyFileSystem::each, [=] {
        ++*beginning;
        const auto limit = std::chrono::steady_clock::now() + 100ms;
        while (*beginning < workers && std::chrono::steady_clock::now() < limit) {
            std::this_thread::yield();
        }
    });
}

TEST_F(TreeReaderTest, NeedsFewDescriptorsForManyLargeFoldersAtOnce) {
    makeFolders(100, 4000);
    fileSystem_.setDescriptorLimit(64);
    fileSystem_.refuseMoreDescriptorsThan(48);
    beginTogether(fileSystem_, 32);
    TreeReader& reader = this->reader(everything, {32, 32});
    EXPECT_EQ(walk(reader, store_->addRoot(tree_.path())), 100u + 100u * 4000u);
    EXPECT_EQ(fileSystem_.openNow(), 0u);
}

TEST_F(TreeReaderTest, NeedsFewDescriptorsForManyFoldersOfSkippedEntries) {
    makeFolders(100, 4000);
    for (int number = 0; number < 100; ++number) {
        tree_.writeFile("folder " + std::to_string(1000 + number) + "/wanted");
    }
    fileSystem_.setDescriptorLimit(64);
    fileSystem_.refuseMoreDescriptorsThan(48);
    beginTogether(fileSystem_, 32);
    const auto noneInvented = [](const Directory& /*folder*/, std::string_view name,
                                 EntryType /*type*/) {
        return name.starts_with("invented") ? EntryInterest::none : EntryInterest::name;
    };
    TreeReader& reader = this->reader(noneInvented, {32, 32});
    EXPECT_EQ(walk(reader, store_->addRoot(tree_.path())), 200u);
    EXPECT_EQ(fileSystem_.openNow(), 0u);
}

}  // namespace
}  // namespace tarvin
