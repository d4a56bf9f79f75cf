#include "scan/collector.h"

#include "scan/category.h"
#include "support/faulty_file_system.h"
#include "support/file_tree.h"
#include "support/mount.h"
#include "support/scan_tools.h"
#include "support/test_seeds.h"
#include "support/waiting.h"

#include <dirent.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <functional>
#include <iostream>
#include <memory>
#include <mutex>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <tuple>
#include <utility>
#include <vector>

namespace tarvin {
namespace {

using namespace std::chrono_literals;

using Names = std::vector<std::string>;

#ifdef TARVIN_SANITIZED
constexpr bool sanitized = true;
#else
constexpr bool sanitized = false;
#endif

/// Records all reports and calls the test's functions. Any thread.
class RecordingObserver final : public ScanObserver {
 public:
    std::function<void(const std::string& path)> onFile;
    std::function<void()> onPause;
    std::function<void()> onFinished;

    void collectionStarted() override { note("started"); }

    void collecting(const std::string& path) override {
        {
            const std::lock_guard lock(mutex_);
            labels_.push_back(path);
        }
        if (onFile) {
            onFile(path);
        }
    }

    void collectionPaused(bool paused) override {
        note(paused ? "paused" : "goes on");
        if (paused && onPause) {
            onPause();
        }
    }

    void nothingCollected() override { note("nothing"); }

    void collectionFinished() override {
        note("finished");
        if (onFinished) {
            onFinished();
        }
    }

    [[nodiscard]] Names events() const {
        const std::lock_guard lock(mutex_);
        return events_;
    }

    [[nodiscard]] Names labels() const {
        const std::lock_guard lock(mutex_);
        return labels_;
    }

    [[nodiscard]] std::size_t labelCount() const {
        const std::lock_guard lock(mutex_);
        return labels_.size();
    }

 private:
    void note(const std::string& event) {
        const std::lock_guard lock(mutex_);
        events_.push_back(event);
    }

    mutable std::mutex mutex_;
    Names events_;  // guarded by mutex_
    Names labels_;  // guarded by mutex_
};

LocationRow folderRow(const std::string& path) {
    return {.name = path, .image = "", .size = "", .state = true, .folder = true};
}

std::vector<LocationRow> folderRows(const Names& paths) {
    std::vector<LocationRow> rows;
    std::transform(paths.begin(), paths.end(), std::back_inserter(rows), folderRow);
    return rows;
}

FileIdentity identityOf(const std::string& path) {
    struct stat status{};
    EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
    return {status.st_dev, status.st_ino};
}

/// One collection and its result.
struct Collection {
    Collector::Outcome outcome = Collector::Outcome::stopped;
    CategoryLists lists;
    std::vector<UnreadableLocation> unreadable;
    UnreadableReport unreadableInside;
    std::vector<LocationRow> rows;  // what is left of them

    /// The paths of all files by category, in the order of collection.
    [[nodiscard]] Names paths() {
        Names all;
        for (const Category category : allCategories) {
            for (const File* file : lists.of(category)) {
                all.push_back(file->filePath());
            }
        }
        return all;
    }
};

class CollectorTest : public testing::Test {
 protected:
    CollectorTest() { fileSystem_.setListingOrder(ListingOrder::sorted); }

    Collection collect(std::vector<LocationRow> rows, WorkerPool::Limits workers = {2, 4}) {
        Collection collection;
        collection.rows = std::move(rows);
        ScanTools tools(fileSystem_, workers);
        ProgressGate gate(labelInterval_);
        Collector collector(tools.servicesWith(control_), exceptions_, filter_, observer_, gate,
                            collection.lists);
        collection.outcome = collector.addAllPhotos(collection.rows);
        collection.unreadable = collector.unreadableLocations();
        collection.unreadableInside = tools.unreadable().report();
        return collection;
    }

    Collection collectTree(WorkerPool::Limits workers = {2, 4}) {
        return collect({folderRow(tree_.path())}, workers);
    }

    /// Paths relative to the tree.
    [[nodiscard]] std::string within(const std::string& path) const {
        return path.starts_with(tree_.path() + "/") ? path.substr(tree_.path().size() + 1) : path;
    }

    [[nodiscard]] Names within(Names paths) const {
        for (std::string& path : paths) {
            path = within(path);
        }
        return paths;
    }

    [[nodiscard]] Names files(Collection& collection, Category category) const {
        Names names;
        for (const File* file : collection.lists.of(category)) {
            names.push_back(within(file->filePath()));
        }
        return names;
    }

    [[nodiscard]] Names documents(Collection collection) const {
        return files(collection, Category::documents);
    }

    [[nodiscard]] Names labels() const { return within(observer_.labels()); }

    void write(const Names& names) const {
        for (const std::string& name : names) {
            tree_.writeFile(name);
        }
    }

    FileTree tree_;
    FaultyFileSystem fileSystem_;
    ScanControl control_;
    RecordingObserver observer_;
    ExceptionFilter exceptions_;
    ScanFilter filter_;
    std::chrono::milliseconds labelInterval_{0};
};

TEST_F(CollectorTest, SortsFilesByTheirExtensions) {
    write({"a.7z", "a.JPG", "a.ai", "a.iff", "a.jpg copy", "a.m4a", "a.mp4", "a.pdf", "a.tiff"});
    Collection collection = collectTree();
    EXPECT_EQ(collection.outcome, Collector::Outcome::collected);
    EXPECT_EQ(files(collection, Category::image),
              (Names{"a.JPG", "a.iff", "a.jpg copy", "a.tiff"}));
    EXPECT_EQ(files(collection, Category::audio), (Names{"a.m4a"}));
    EXPECT_EQ(files(collection, Category::video), (Names{"a.mp4"}));
    EXPECT_EQ(files(collection, Category::documents), (Names{"a.pdf"}));
    EXPECT_EQ(files(collection, Category::other), (Names{"a.7z", "a.ai"}));
}

TEST_F(CollectorTest, SkipsFilesWithoutAnExtension) {
    write({"Makefile", ".profile", "ends with a dot.", "a.txt", "folder.d/README"});
    EXPECT_EQ(collectTree().paths(), (Names{tree_.pathOf("a.txt")}));
}

TEST_F(CollectorTest, PutsEverythingInsideABundleIntoOther) {
    write({"Foo.app/Contents/Resources/a.png", "Foo.framework/a.mp3", "Foo.app.png", "a.png",
           "x.apps/b.png"});
    Collection collection = collectTree();
    EXPECT_EQ(files(collection, Category::other),
              (Names{"Foo.app/Contents/Resources/a.png", "Foo.framework/a.mp3"}));
    EXPECT_EQ(files(collection, Category::image), (Names{"Foo.app.png", "a.png", "x.apps/b.png"}));
}

TEST_F(CollectorTest, PutsALocationThatIsABundleIntoOther) {
    write({"Foo.app/a.png"});
    Collection collection = collect({folderRow(tree_.pathOf("Foo.app"))});
    EXPECT_EQ(files(collection, Category::other), (Names{"Foo.app/a.png"}));
}

TEST_F(CollectorTest, SkipsSystemFolderNamesAtAnyDepth) {
    Names collected;
    for (const char* name :
         {".Trashes", ".Trash", "Applications", "System", "Library", "private", "usr"}) {
        write({std::string(name) + "/a.txt", std::string("y/z/") + name + "/deeper/a.txt"});
    }
    write({"a.txt", "y/z/a.txt"});
    EXPECT_EQ(documents(collectTree()), (Names{"a.txt", "y/z/a.txt"}));
    for (const std::string& path : observer_.labels()) {
        EXPECT_EQ(path.find("Library"), std::string::npos);
    }
}

TEST_F(CollectorTest, SkipsOnlyExactNames) {
    const Names names{".Trash.d/a.txt", ".hidden/a.txt",  ".trash/a.txt", "Applications 2/a.txt",
                      "Library./a.txt", "Private/a.txt",  "USR/a.txt",    "library/a.txt",
                      "system/a.txt",   "usr.local/a.txt"};
    write(names);
    EXPECT_EQ(documents(collectTree()), names);
}

TEST_F(CollectorTest, WalksALocationWhoseNameIsSkippedElsewhere) {
    write({"Library/a.txt", "Library/Library/b.txt", "usr/share/c.txt"});
    EXPECT_EQ(documents(collect(folderRows({tree_.pathOf("Library"), tree_.pathOf("usr/share")}))),
              (Names{"Library/a.txt", "usr/share/c.txt"}));
}

TEST_F(CollectorTest, SkipsTrashFoldersOfVolumes) {
    write({".Trash-0/a.txt", ".Trash-1000/files/a.txt", "x/.Trash-1000/a.txt", ".Trash-/a.txt",
           ".Trash-1000a/a.txt", ".Trash-abc/a.txt", ".Trash1000/a.txt", "Trash-1000/a.txt"});
    EXPECT_EQ(documents(collectTree()),
              (Names{".Trash-/a.txt", ".Trash-1000a/a.txt", ".Trash-abc/a.txt", ".Trash1000/a.txt",
                     "Trash-1000/a.txt"}));
}

TEST_F(CollectorTest, DoesNotFollowLinks) {
    write({"a.txt", "folder/b.txt"});
    tree_.makeLink("c.txt", "a.txt");
    tree_.makeLink("link", "folder");
    tree_.makeLink("nowhere.txt", "nothing");
    EXPECT_EQ(documents(collectTree()), (Names{"a.txt", "folder/b.txt"}));
}

TEST_F(CollectorTest, EndsWithCircularLinks) {
    write({"folder/a.txt"});
    tree_.makeLink("folder/up", "..");
    tree_.makeLink("folder/self", "self");
    tree_.makeLink("folder/here", ".");
    EXPECT_EQ(documents(collectTree()), (Names{"folder/a.txt"}));
}

TEST_F(CollectorTest, FollowsALinkThatIsALocation) {
    write({"folder/a.txt"});
    const std::string link = tree_.makeLink("link", "folder");
    EXPECT_EQ(documents(collect({folderRow(link)})), (Names{"link/a.txt"}));
}

TEST_F(CollectorTest, SkipsLockedFilesWithoutReportingThem) {
    write({"a.txt", "b.txt"});
    fileSystem_.setImmutable(tree_.pathOf("a.txt"));
    EXPECT_EQ(documents(collectTree()), (Names{"b.txt"}));
    EXPECT_EQ(labels(), (Names{"b.txt"}));
}

TEST_F(CollectorTest, CollectsEmptyFiles) {
    tree_.writeFile("a.txt");
    tree_.writeFile("b.txt", "bytes");
    EXPECT_EQ(documents(collectTree()), (Names{"a.txt", "b.txt"}));
}

TEST_F(CollectorTest, SkipsExceptionsButReportsThem) {
    write({"a.txt", "b.txt", "folder/a.txt"});
    exceptions_ =
        ExceptionFilter({tree_.pathOf("a.txt"), tree_.pathOf("B.txt"), tree_.pathOf("folder")});
    EXPECT_EQ(documents(collectTree()), (Names{"b.txt", "folder/a.txt"}));
    EXPECT_EQ(labels(), (Names{"a.txt", "b.txt", "folder/a.txt"}));
}

TEST_F(CollectorTest, SkipsExceptionsInALocationWithATrailingSlash) {
    write({"a.txt", "b.txt"});
    exceptions_ = ExceptionFilter({tree_.pathOf("a.txt")});
    EXPECT_EQ(documents(collect({folderRow(tree_.path() + "/")})), (Names{"b.txt"}));
}

TEST_F(CollectorTest, ReportsEveryFileWithoutAnInterval) {
    write({"a.txt", "folder/Makefile", "folder/b.jpg", "z"});
    EXPECT_EQ(collectTree().lists.total(), 2u);
    EXPECT_EQ(labels(), (Names{"a.txt", "folder/Makefile", "folder/b.jpg", "z"}));
}

TEST_F(CollectorTest, ReportsOnlyFilesThatTheGateLetsThrough) {
    write({"a.txt", "b.txt", "c.txt"});
    labelInterval_ = 1h;
    EXPECT_EQ(collectTree().lists.total(), 3u);
    EXPECT_EQ(labels(), (Names{"a.txt"}));
}

TEST_F(CollectorTest, RecordsSizeAndDatesOfAFile) {
    const std::string path = tree_.writeFile("folder/a.txt", "12345");
    const timespec times[2] = {{1'600'000'000, 0}, {1'700'000'000, 123'456'789}};
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    Collection collection = collectTree();
    ASSERT_EQ(collection.lists.arrOfDocsFileObject.size(), 1u);
    const File& file = *collection.lists.arrOfDocsFileObject.front();
    EXPECT_EQ(file.filePath(), path);
    EXPECT_EQ(file.fileName(), "a.txt");
    EXPECT_EQ(file.fileSize(), 5u);
    EXPECT_EQ(file.fileModificationDate(), Timestamp(1'700'000'000'123'456'789ns));
    const auto opened = systemFileSystem().openFile(path);
    EXPECT_EQ(file.fileCreationDate(), systemFileSystem().attributesOf(*opened)->created);
    EXPECT_EQ(file.state(), CheckState::off);
    EXPECT_EQ(file.index(), 0);
}

TEST_F(CollectorTest, KeepsNamesByteForByte) {
    const Names names{"\x01.txt", "a\nb.txt", "a\\b.txt", "\xc3\xa4.txt", "\xff\xfe/\x80.txt"};
    write(names);
    Names expected = names;
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(documents(collectTree()), expected);
}

TEST_F(CollectorTest, SkipsRowsThatAreFilesOrUnchecked) {
    write({"a.txt", "checked/b.txt", "unchecked/c.txt"});
    LocationRow file = folderRow(tree_.pathOf("a.txt"));
    file.folder = false;
    LocationRow folderAsFile = folderRow(tree_.pathOf("unchecked"));
    folderAsFile.folder = false;
    LocationRow unchecked = folderRow(tree_.pathOf("unchecked"));
    unchecked.state = false;
    Collection collection =
        collect({file, folderAsFile, unchecked, folderRow(tree_.pathOf("checked"))});
    EXPECT_EQ(documents(collection), (Names{"checked/b.txt"}));
    EXPECT_TRUE(collection.rows.empty());
    EXPECT_TRUE(collection.unreadable.empty());
}

TEST_F(CollectorTest, ReportsThatNothingWasCollected) {
    write({"Makefile"});
    Collection collection = collectTree();
    EXPECT_EQ(collection.outcome, Collector::Outcome::nothing);
    EXPECT_TRUE(collection.rows.empty());
    EXPECT_EQ(observer_.events(), (Names{"started", "nothing", "finished"}));
}

TEST_F(CollectorTest, WithoutRowsCollectsNothing) {
    EXPECT_EQ(collect({}).outcome, Collector::Outcome::nothing);
    EXPECT_EQ(observer_.events(), (Names{"started", "nothing", "finished"}));
}

TEST_F(CollectorTest, EmptiesTheRowsAtTheEnd) {
    write({"a.txt"});
    LocationRow file = folderRow(tree_.pathOf("a.txt"));
    file.folder = false;
    Collection collection = collect({folderRow(tree_.path()), file});
    EXPECT_EQ(collection.outcome, Collector::Outcome::collected);
    EXPECT_TRUE(collection.rows.empty());
    EXPECT_EQ(observer_.events(), (Names{"started", "finished"}));
}

TEST_F(CollectorTest, WalksRowsInTheirOrder) {
    write({"a/1.txt", "b/2.txt", "c/3.txt"});
    EXPECT_EQ(
        documents(collect(folderRows({tree_.pathOf("c"), tree_.pathOf("a"), tree_.pathOf("b")}))),
        (Names{"c/3.txt", "a/1.txt", "b/2.txt"}));
}

TEST_F(CollectorTest, WalksDepthFirst) {
    write({"a.txt", "b/a/z.txt", "b/b.txt", "c.txt", "d/a.txt", "e.txt"});
    EXPECT_EQ(documents(collectTree()),
              (Names{"a.txt", "b/a/z.txt", "b/b.txt", "c.txt", "d/a.txt", "e.txt"}));
}

TEST_F(CollectorTest, StopsBetweenTwoRows) {
    write({"a/1.txt", "b/2.txt"});
    observer_.onFile = [&](const std::string&) { control_.setStop(true); };
    Collection collection = collect(folderRows({tree_.pathOf("a"), tree_.pathOf("b")}));
    EXPECT_EQ(collection.outcome, Collector::Outcome::stopped);
    EXPECT_EQ(collection.rows.size(), 2u);
    EXPECT_EQ(labels(), (Names{"a/1.txt"}));
    EXPECT_EQ(observer_.events(), (Names{"started"}));
}

TEST_F(CollectorTest, StopsBeforeTheFirstRow) {
    write({"a.txt"});
    control_.setStop(true);
    EXPECT_EQ(collectTree().outcome, Collector::Outcome::stopped);
    EXPECT_EQ(fileSystem_.openAtMost(), 0u);
    EXPECT_TRUE(labels().empty());
}

TEST_F(CollectorTest, EndsTheLastRowEarlyWhenItIsStoppedInside) {
    write({"a.txt", "b.txt", "c/d.txt", "e.txt", "f.txt"});
    observer_.onFile = [&](const std::string& path) { control_.setStop(path.ends_with("d.txt")); };
    Collection collection = collectTree();
    EXPECT_EQ(collection.outcome, Collector::Outcome::collected);
    EXPECT_EQ(documents(collection), (Names{"a.txt", "b.txt", "c/d.txt"}));
    EXPECT_TRUE(collection.rows.empty());
    EXPECT_EQ(observer_.events(), (Names{"started", "finished"}));
    EXPECT_EQ(fileSystem_.openNow(), 0u);
}

TEST_F(CollectorTest, ClosesTheFoldersThatAStoppedWalkHasNotReached) {
    write({"a.txt", "b/b.txt", "c/c.txt", "d/d.txt"});
    observer_.onFile = [&](const std::string&) {
        EXPECT_TRUE(waitUntil([&] { return fileSystem_.calls(FileCall::openDirectoryAt) == 3; }));
        control_.setStop(true);
    };
    observer_.onFinished = [&] {
        EXPECT_TRUE(waitUntil([&] { return fileSystem_.openNow() == 0; }));
    };
    collectTree();
    EXPECT_EQ(observer_.events(), (Names{"started", "finished"}));
}

TEST_F(CollectorTest, StopTakesEffectInsideALargeFolder) {
    fileSystem_.inventFiles(tree_.path(), 1'000'000);
    std::chrono::steady_clock::time_point stopped;
    observer_.onFile = [&](const std::string& path) {
        if (path.ends_with("-20000.txt")) {
            stopped = std::chrono::steady_clock::now();
            control_.setStop(true);
        }
    };
    EXPECT_EQ(collectTree().lists.total(), 20'001u);
    EXPECT_LT(std::chrono::steady_clock::now() - stopped, sanitized ? 2'000ms : 200ms);
    EXPECT_LT(fileSystem_.entriesListed(), 100'000u);
}

TEST_F(CollectorTest, PauseTakesEffectInsideALargeFolder) {
    fileSystem_.inventFiles(tree_.path(), 1'000'000);
    observer_.onFile = [&](const std::string& path) {
        if (path.ends_with("-20000.txt")) {
            control_.setPause(true);
        }
    };
    Collection collection;
    std::thread collecting([&] { collection = collectTree(); });
    EXPECT_TRUE(waitUntil([&] { return observer_.events().size() == 2; }));
    const auto paused = std::chrono::steady_clock::now();
    // The workers finish their current blocks; afterwards nothing is listed.
    const auto promptly = sanitized ? 2'000ms : 200ms;
    std::uint64_t listed = 0;
    auto still = paused;
    while (std::chrono::steady_clock::now() - still < promptly / 4 && still - paused < promptly) {
        const std::uint64_t now = fileSystem_.entriesListed();
        if (now != listed) {
            listed = now;
            still = std::chrono::steady_clock::now();
        }
        std::this_thread::yield();
    }
    EXPECT_LT(still - paused, promptly);
    EXPECT_LT(listed, 100'000u);
    EXPECT_EQ(observer_.labelCount(), 20'001u);
    control_.setStop(true);
    control_.setPause(false);
    collecting.join();
    EXPECT_EQ(collection.lists.total(), 20'001u);
}

TEST_F(CollectorTest, StopsWhileAFolderIsReadToItsEnd) {
    fileSystem_.inventFiles(tree_.makeFolder("large"), 1'000'000);
    fileSystem_.setDescriptorLimit(16);
    std::chrono::steady_clock::time_point stopped;
    fileSystem_.beforeCall(FileCall::listEntries, 50, [&] {
        stopped = std::chrono::steady_clock::now();
        control_.setStop(true);
    });
    collectTree();
    EXPECT_LT(std::chrono::steady_clock::now() - stopped, sanitized ? 2'000ms : 200ms);
    EXPECT_LT(fileSystem_.entriesListed(), 100'000u);
}

TEST_F(CollectorTest, WaitsDuringAPauseInsideAWalk) {
    write({"a.txt", "b.txt", "c.txt"});
    observer_.onFile = [&](const std::string& path) {
        if (path.ends_with("b.txt")) {
            control_.setPause(true);
        }
    };
    std::thread collecting([&] { EXPECT_EQ(collectTree().lists.total(), 3u); });
    EXPECT_TRUE(waitUntil([&] { return observer_.events().size() == 2; }));
    EXPECT_EQ(observer_.events(), (Names{"started", "paused"}));
    EXPECT_EQ(labels(), (Names{"a.txt", "b.txt"}));
    control_.setPause(false);
    collecting.join();
    EXPECT_EQ(observer_.events(), (Names{"started", "paused", "goes on", "finished"}));
    EXPECT_EQ(labels(), (Names{"a.txt", "b.txt", "c.txt"}));
}

TEST_F(CollectorTest, WaitsDuringAPauseBeforeTheFirstRow) {
    write({"a.txt"});
    control_.setPause(true);
    std::thread collecting([&] { EXPECT_EQ(collectTree().lists.total(), 1u); });
    EXPECT_TRUE(waitUntil([&] { return observer_.events().size() == 2; }));
    EXPECT_EQ(observer_.events(), (Names{"started", "paused"}));
    EXPECT_EQ(fileSystem_.openAtMost(), 0u);
    control_.setPause(false);
    collecting.join();
    EXPECT_EQ(observer_.events(), (Names{"started", "paused", "goes on", "finished"}));
}

TEST_F(CollectorTest, WaitsAtUncheckedRows) {
    LocationRow unchecked = folderRow(tree_.path());
    unchecked.state = false;
    control_.setPause(true);
    observer_.onPause = [&] { control_.setPause(false); };
    collect({unchecked});
    EXPECT_EQ(observer_.events(), (Names{"started", "paused", "goes on", "nothing", "finished"}));
}

/// Begins a pause at one call of a walk and ends it when it is reported. Returns whether it was
/// reported.
void pauseAt(FaultyFileSystem& fileSystem, ScanControl& control, FileCall call) {
    fileSystem.beforeCall(call, 1, [&control] { control.setPause(true); });
}

TEST_F(CollectorTest, ReportsAPauseThatBeginsDuringAListing) {
    for (const FileCall call : {FileCall::openRootDirectory, FileCall::listEntries,
                                FileCall::openDirectoryAt, FileCall::attributesOf}) {
        SCOPED_TRACE(static_cast<int>(call));
        for (int number = 0; number < 200; ++number) {
            tree_.writeFile("folder/" + std::to_string(number) + ".txt");
        }
        fileSystem_.clearFaults();
        pauseAt(fileSystem_, control_, call);
        const std::size_t before = observer_.events().size();
        std::thread collecting([&] { EXPECT_EQ(collectTree().lists.total(), 200u); });
        EXPECT_TRUE(waitUntil([&] { return observer_.events().size() == before + 2; }))
            << "Nobody is reported that the collection waits";
        control_.setPause(false);
        collecting.join();
    }
}

TEST_F(CollectorTest, ReportsAPauseThatBeginsWhileAttributesAreRead) {
    for (int number = 0; number < 2000; ++number) {
        tree_.writeFile("folder/" + std::to_string(number) + ".txt");
    }
    pauseAt(fileSystem_, control_, FileCall::attributesAt);
    std::thread collecting([&] { EXPECT_EQ(collectTree().lists.total(), 2000u); });
    EXPECT_TRUE(waitUntil([&] { return observer_.events().size() == 2; }))
        << "Nobody is reported that the collection waits";
    control_.setPause(false);
    collecting.join();
    EXPECT_EQ(observer_.events(), (Names{"started", "paused", "goes on", "finished"}));
}

TEST_F(CollectorTest, PausesAndResumesRepeatedly) {
    write({"a.txt", "b.txt", "c.txt", "d.txt"});
    observer_.onFile = [&](const std::string&) { control_.setPause(true); };
    observer_.onPause = [&] { control_.setPause(false); };
    EXPECT_EQ(collectTree().lists.total(), 4u);
    const Names events = observer_.events();
    // Once after each file; after the last one the walk may end before it checks the flag.
    EXPECT_GE(std::count(events.begin(), events.end(), "paused"), 3);
    EXPECT_EQ(std::count(events.begin(), events.end(), "paused"),
              std::count(events.begin(), events.end(), "goes on"));
}

TEST_F(CollectorTest, StopsAtTheEndOfAPause) {
    write({"a.txt", "b.txt", "c.txt"});
    observer_.onFile = [&](const std::string&) { control_.setPause(true); };
    observer_.onPause = [&] {
        control_.setStop(true);
        control_.setPause(false);
    };
    collectTree();
    EXPECT_EQ(labels(), (Names{"a.txt"}));
}

/// Folders whose inode numbers last, and folders that have another one at each call.
class FoldersOnce : public CollectorTest, public testing::WithParamInterface<bool> {
 protected:
    FoldersOnce() {
        if (GetParam()) {
            fileSystem_.jitterFolders();
        }
    }
};

TEST_P(FoldersOnce, WalksAFolderNamedByTwoRowsOnce) {
    write({"a/1.txt", "b/2.txt"});
    const std::string path = tree_.pathOf("a");
    Collection collection = collect(folderRows({path, tree_.pathOf("b"), path, path + "/"}));
    EXPECT_EQ(documents(collection), (Names{"a/1.txt", "b/2.txt"}));
    EXPECT_TRUE(collection.unreadable.empty());
}

TEST_P(FoldersOnce, WalksAFolderInsideAnotherRowOnce) {
    write({"a/1.txt", "a/b/2.txt", "a/c/3.txt"});
    EXPECT_EQ(documents(collect(folderRows({tree_.pathOf("a"), tree_.pathOf("a/b")}))),
              (Names{"a/1.txt", "a/b/2.txt", "a/c/3.txt"}));
}

TEST_P(FoldersOnce, WalksAFolderThatWasAnEarlierRowOnce) {
    write({"a/1.txt", "a/b/2.txt", "a/b/c/4.txt", "a/c/3.txt"});
    EXPECT_EQ(documents(collect(folderRows({tree_.pathOf("a/b"), tree_.path()}))),
              (Names{"a/b/2.txt", "a/b/c/4.txt", "a/1.txt", "a/c/3.txt"}));
}

TEST_P(FoldersOnce, WalksAFolderBehindALinkOnce) {
    write({"a/1.txt"});
    const std::string link = tree_.makeLink("link", "a");
    EXPECT_EQ(documents(collect(folderRows({tree_.pathOf("a"), link, tree_.pathOf("link/../a")}))),
              (Names{"a/1.txt"}));
}

TEST_P(FoldersOnce, WalksABindMountedFolderOnce) {
    write({"a/1.txt", "a/inner/2.txt"});
    const std::string path = tree_.makeFolder("b");
    const Mount mount(tree_.pathOf("a"), path, "none", MS_BIND);
    if (mount) {
        EXPECT_EQ(documents(collectTree()), (Names{"a/1.txt", "a/inner/2.txt"}));
    }
}

TEST_P(FoldersOnce, EndsWithAFolderMountedInsideItself) {
    write({"a/1.txt", "a/z/2.txt"});
    const Mount mount(tree_.path(), tree_.makeFolder("a/b"), "none", MS_BIND);
    if (mount) {
        EXPECT_EQ(documents(collectTree()), (Names{"a/1.txt", "a/z/2.txt"}));
    }
}

TEST_P(FoldersOnce, AreFoldersOfDifferentNamesBelowOneAnother) {
    write({"a/a/1.txt", "a/b/1.txt", "b/a/1.txt"});
    EXPECT_EQ(documents(collectTree()), (Names{"a/a/1.txt", "a/b/1.txt", "b/a/1.txt"}));
}

TEST_P(FoldersOnce, AGivenFileIsTakenOnce) {
    write({"a/1.txt", "a/b/2.txt"});
    const std::string link = tree_.makeLink("link", "a");
    std::vector<LocationRow> rows = folderRows(
        {tree_.pathOf("a/b/2.txt"), link + "/1.txt", tree_.pathOf("a"), link + "/b/2.txt"});
    for (LocationRow& row : rows) {
        row.mayBeFile = true;
    }
    Collection collection = collect(std::move(rows));
    EXPECT_EQ(within(collection.paths()), (Names{"a/b/2.txt", "link/1.txt"}));
}

TEST_P(FoldersOnce, TheHomeTrashIsSkipped) {
    write({"a.txt", "data/Trash/files/b.txt", "data/c.txt"});
    fileSystem_.setHomeTrash(identityOf(tree_.pathOf("data/Trash")));
    EXPECT_EQ(documents(collectTree()), (Names{"a.txt", "data/c.txt"}));
    Collection location = collect(
        folderRows({tree_.pathOf("data/Trash"), tree_.makeLink("link", "data/Trash/files")}));
    EXPECT_EQ(location.outcome, Collector::Outcome::nothing);
    EXPECT_EQ(location.unreadable.size(), 2U);
}

INSTANTIATE_TEST_SUITE_P(InodeNumbers, FoldersOnce, testing::Bool());

TEST_F(CollectorTest, WalksOtherFileSystemsInsideALocation) {
    write({"a.txt"});
    const std::string path = tree_.makeFolder("b");
    const Mount mount("none", path, "tmpfs");
    if (mount) {
        tree_.writeFile("b/inner/c.txt");
        EXPECT_EQ(documents(collectTree()), (Names{"a.txt", "b/inner/c.txt"}));
    }
}

TEST_F(CollectorTest, SkipsMountedPseudoFileSystems) {
    write({"a.txt", "c.txt"});
    const Mount mount("none", tree_.makeFolder("b"), "proc");
    if (mount) {
        EXPECT_EQ(documents(collectTree()), (Names{"a.txt", "c.txt"}));
        EXPECT_EQ(fileSystem_.entriesListed(), 3u);
    }
}

TEST_F(CollectorTest, SkipsPseudoFileSystemsMountedOverFiles) {
    write({"a.txt", "c.txt"});
    const std::string path = tree_.makeFolder("b");
    {
        const Mount files("none", path, "tmpfs");
        if (!files) {
            return;
        }
        tree_.writeFile("b/b.txt");
        EXPECT_EQ(documents(collectTree()), (Names{"a.txt", "b/b.txt", "c.txt"}));
    }
    const Mount tables("none", path, "proc");
    const std::uint64_t before = fileSystem_.entriesListed();
    EXPECT_EQ(documents(collectTree()), (Names{"a.txt", "c.txt"}));
    EXPECT_EQ(fileSystem_.entriesListed(), before + 3);
}

TEST_F(CollectorTest, SkipsAPseudoFileSystemAsALocation) {
    Collection collection = collect(folderRows({"/proc", "/proc/sys"}));
    EXPECT_EQ(collection.outcome, Collector::Outcome::nothing);
    EXPECT_EQ(fileSystem_.entriesListed(), 0u);
    ASSERT_EQ(collection.unreadable.size(), 2u);
    EXPECT_EQ(collection.unreadable[0].path, "/proc");
    EXPECT_EQ(collection.unreadable[1].path, "/proc/sys");
}

TEST_F(CollectorTest, SkipsTheHomeTrash) {
    write({"a.txt", "data/Trash/files/b.txt", "data/c.txt"});
    fileSystem_.setHomeTrash(identityOf(tree_.pathOf("data/Trash")));
    EXPECT_EQ(documents(collectTree()), (Names{"a.txt", "data/c.txt"}));
}

TEST_F(CollectorTest, SkipsOurOwnFiles) {
    write({"a.txt", "data/own/clean-ups.lock", "data/own/x/b.txt", "data/c.txt"});
    fileSystem_.setOwnFolder(identityOf(tree_.pathOf("data/own")));
    Collection collection = collectTree();
    EXPECT_TRUE(collection.unreadable.empty());
    EXPECT_EQ(documents(std::move(collection)), (Names{"a.txt", "data/c.txt"}));
}

/// Without a last path a folder that leads into itself could not be told from a deep one.
TEST_F(CollectorTest, WalksAHundredLevelsOfAVolumeThatRenumbersFolders) {
    std::string name;
    for (int level = 0; level < 101; ++level) {
        name += "d/";
        if (level > 97) {
            write({name + "1.txt"});
        }
    }
    EXPECT_EQ(collectTree().lists.total(), 3U);
    fileSystem_.jitterFolders();
    Collection collection = collectTree();
    EXPECT_EQ(collection.lists.total(), 2U);
    EXPECT_TRUE(collection.unreadable.empty());
    const UnreadableReport& report = collection.unreadableInside;
    ASSERT_EQ(report.kept.size(), 1U);
    name.pop_back();
    EXPECT_EQ(report.kept[0].path, tree_.pathOf(name));
    EXPECT_TRUE(report.kept[0].isFolder);
    EXPECT_EQ(report.kept[0].error.code, EMLINK);
}

TEST_F(CollectorTest, SkipsTheHomeTrashAsALocation) {
    write({"data/Trash/files/b.txt"});
    fileSystem_.setHomeTrash(identityOf(tree_.pathOf("data/Trash")));
    const std::string link = tree_.makeLink("link", "data/Trash");
    Collection collection = collect(folderRows({tree_.pathOf("data/Trash"), link}));
    EXPECT_EQ(collection.outcome, Collector::Outcome::nothing);
    EXPECT_EQ(collection.unreadable.size(), 2u);
}

class TrashAsALocation : public CollectorTest, public testing::WithParamInterface<const char*> {};

TEST_P(TrashAsALocation, IsSkippedAndReported) {
    write({"volume/.Trash/1000/files/a.txt", "volume/.Trash-1000/files/b.txt",
           "volume/.Trashes/501/d.txt", "home/files/c.txt", "there.txt"});
    fileSystem_.setHomeTrash(identityOf(tree_.pathOf("home")));
    tree_.makeLink("link", tree_.pathOf(GetParam()));
    const Collection collection =
        collect(folderRows({tree_.pathOf(GetParam()), tree_.pathOf("link")}));
    EXPECT_EQ(collection.outcome, Collector::Outcome::nothing);
    ASSERT_EQ(collection.unreadable.size(), 2U);
    EXPECT_EQ(collection.unreadable[0].path, tree_.pathOf(GetParam()));
    EXPECT_EQ(collection.unreadable[1].path, tree_.pathOf("link"));
    EXPECT_TRUE(collection.unreadable[0].isTrash);
    EXPECT_TRUE(collection.unreadable[1].isTrash);
}

INSTANTIATE_TEST_SUITE_P(Places, TrashAsALocation,
                         testing::Values("volume/.Trash", "volume/.Trash/1000/files",
                                         "volume/.Trash-1000", "volume/.Trash-1000/files",
                                         "volume/.Trashes", "volume/.Trashes/501", "home",
                                         "home/files"),
                         [](const auto& info) { return "Place" + std::to_string(info.index); });

TEST_F(CollectorTest, LockedFileWithoutAnExtensionIsNotReported) {
    write({"Makefile", "README"});
    fileSystem_.setImmutable(tree_.pathOf("Makefile"));
    collectTree();
    EXPECT_EQ(labels(), Names{"README"});
}

TEST_F(CollectorTest, OpensOnlyFolders) {
    write({"a.txt"});
    tree_.makePipe("pipe.txt");
    tree_.makeSocket("socket.txt");
    tree_.makeLink("link.txt", "/dev/null");
    for (const bool typesHidden : {false, true}) {
        if (typesHidden) {
            fileSystem_.hideEntryTypes();
        }
        EXPECT_EQ(documents(collectTree()), (Names{"a.txt"}));
    }
    EXPECT_EQ(fileSystem_.calls(FileCall::openFile), 0u);
    EXPECT_EQ(fileSystem_.calls(FileCall::openDirectoryAt), 0u);
    EXPECT_EQ(fileSystem_.calls(FileCall::openDirectory), 0u);
    EXPECT_EQ(labels(), (Names{"a.txt", "a.txt"}));
}

TEST_F(CollectorTest, CollectsNoDevices) {
    Collection collection = collect({folderRow("/dev")});
    EXPECT_EQ(collection.lists.total(), 0u);
    EXPECT_EQ(fileSystem_.calls(FileCall::openFile), 0u);
}

TEST_F(CollectorTest, WalksFileSystemsWithoutEntryTypes) {
    write({"a.txt", "b/c.txt", "b/d/e.jpg", "b/README", "usr/f.txt"});
    tree_.makeLink("b/link", "..");
    fileSystem_.hideEntryTypes();
    Collection collection = collectTree();
    EXPECT_EQ(within(collection.paths()), (Names{"b/d/e.jpg", "a.txt", "b/c.txt"}));
}

TEST_F(CollectorTest, SkipsFoldersThatCannotBeOpened) {
    write({"a/1.txt", "b/2.txt", "c/3.txt"});
    fileSystem_.failCall(FileCall::openDirectoryAt, FaultyFileSystem::each, EACCES, "/b");
    Collection collection = collectTree();
    EXPECT_EQ(documents(collection), (Names{"a/1.txt", "c/3.txt"}));
    EXPECT_TRUE(collection.unreadable.empty());
}

TEST_F(CollectorTest, SkipsFoldersThatCannotBeListed) {
    write({"a/1.txt", "b/2.txt", "c/3.txt"});
    fileSystem_.failCall(FileCall::listEntries, 1, EIO, "/b");
    EXPECT_EQ(documents(collectTree()), (Names{"a/1.txt", "c/3.txt"}));
}

TEST_F(CollectorTest, SkipsFoldersWhoseIdentityCannotBeRead) {
    write({"a/1.txt", "b/2.txt", "c/3.txt"});
    fileSystem_.failCall(FileCall::attributesOf, 1, EIO, "/b");
    EXPECT_EQ(documents(collectTree()), (Names{"a/1.txt", "c/3.txt"}));
    EXPECT_EQ(fileSystem_.openNow(), 0u);
}

TEST_F(CollectorTest, SkipsFilesWhoseAttributesCannotBeRead) {
    write({"a.txt", "b.txt", "c.txt"});
    fileSystem_.failCall(FileCall::attributesAt, 1, EIO, "/b.txt");
    EXPECT_EQ(documents(collectTree()), (Names{"a.txt", "c.txt"}));
    EXPECT_EQ(labels(), (Names{"a.txt", "c.txt"}));
}

TEST_F(CollectorTest, SkipsEntriesThatVanish) {
    write({"a.txt", "b.txt", "c/1.txt", "d/2.txt"});
    fileSystem_.beforeCall(
        FileCall::attributesAt, 1, [&] { std::filesystem::remove(tree_.pathOf("b.txt")); },
        "/b.txt");
    fileSystem_.beforeCall(
        FileCall::openDirectoryAt, 1, [&] { std::filesystem::remove_all(tree_.pathOf("c")); },
        "/c");
    EXPECT_EQ(documents(collectTree()), (Names{"a.txt", "d/2.txt"}));
}

TEST_F(CollectorTest, SkipsALocationThatVanishes) {
    write({"a/1.txt", "b/2.txt"});
    fileSystem_.beforeCall(
        FileCall::listEntries, 1, [&] { std::filesystem::remove_all(tree_.pathOf("a")); }, "/a");
    EXPECT_EQ(documents(collect(folderRows({tree_.pathOf("a"), tree_.pathOf("b")}))),
              (Names{"b/2.txt"}));
}

TEST_F(CollectorTest, DoesNotFollowALinkThatReplacesAFolder) {
    write({"a/1.txt", "outside/2.txt"});
    fileSystem_.beforeCall(
        FileCall::openDirectoryAt, 1,
        [&] {
            std::filesystem::remove_all(tree_.pathOf("a"));
            tree_.makeLink("a", "outside");
        },
        "/a");
    EXPECT_EQ(documents(collectTree()), (Names{"outside/2.txt"}));
}

TEST_F(CollectorTest, WalksAFolderThatReplacesAFile) {
    write({"a.txt", "b.txt", "c.txt"});
    fileSystem_.beforeCall(
        FileCall::attributesAt, 1,
        [&] {
            std::filesystem::remove(tree_.pathOf("b.txt"));
            tree_.writeFile("b.txt/inner.txt");
        },
        "/b.txt");
    EXPECT_EQ(documents(collectTree()), (Names{"a.txt", "b.txt/inner.txt", "c.txt"}));
}

TEST_F(CollectorTest, KeepsTheEntriesBeforeAListingError) {
    fileSystem_.inventFiles(tree_.makeFolder("a"), 5000);
    write({"b/z.txt"});
    fileSystem_.failCall(FileCall::listEntries, 3, EIO, "/a");
    Collection collection = collectTree();
    EXPECT_GT(collection.lists.total(), 1u);
    EXPECT_LT(collection.lists.total(), 5001u);
    EXPECT_EQ(within(collection.paths()).back(), "b/z.txt");
}

TEST_F(CollectorTest, ReadsNoAttributesOfFilesItNeverCollects) {
    write({"Makefile", "README", "a.txt", "folder/LICENSE"});
    EXPECT_EQ(collectTree().lists.total(), 1u);
    EXPECT_EQ(fileSystem_.calls(FileCall::attributesAt), 1u);
}

TEST_F(CollectorTest, ReportsLocationsThatCannotBeRead) {
    write({"a.txt", "folder/b.txt"});
    fileSystem_.failCall(FileCall::openRootDirectory, 1, EACCES, "/closed");
    const Names paths{tree_.pathOf("missing"), tree_.pathOf("folder"), tree_.pathOf("a.txt"),
                      tree_.pathOf("closed")};
    Collection collection = collect(folderRows(paths));
    EXPECT_EQ(collection.outcome, Collector::Outcome::collected);
    EXPECT_EQ(documents(collection), (Names{"folder/b.txt"}));
    ASSERT_EQ(collection.unreadable.size(), 3u);
    EXPECT_EQ(collection.unreadable[0].path, tree_.pathOf("missing"));
    EXPECT_EQ(collection.unreadable[0].error.code, ENOENT);
    EXPECT_EQ(collection.unreadable[1].path, tree_.pathOf("a.txt"));
    EXPECT_EQ(collection.unreadable[1].error.code, ENOTDIR);
    EXPECT_EQ(collection.unreadable[2].path, tree_.pathOf("closed"));
    EXPECT_EQ(collection.unreadable[2].error.code, EACCES);
}

TEST_F(CollectorTest, EmptyLocationIsNotTheRoot) {
    // Nothing must be walked.
    fileSystem_.failCall(FileCall::listEntries, FaultyFileSystem::each, EIO);
    Collection collection = collect({folderRow("")});
    EXPECT_EQ(fileSystem_.opens("/"), 0u);
    ASSERT_EQ(collection.unreadable.size(), 1u);
    EXPECT_EQ(collection.unreadable.front().path, "");
    EXPECT_EQ(collection.unreadable.front().error.code, ENOENT);
}

TEST_F(CollectorTest, ReportsALocationWhoseListingFails) {
    write({"folder/b.txt"});
    fileSystem_.failCall(FileCall::listEntries, 1, EIO);
    Collection collection = collect({folderRow(tree_.pathOf("folder"))});
    EXPECT_EQ(collection.outcome, Collector::Outcome::nothing);
    ASSERT_EQ(collection.unreadable.size(), 1u);
    EXPECT_EQ(collection.unreadable.front().error.code, EIO);
}

TEST_F(CollectorTest, WalksFiveThousandLevels) {
    tree_.makeChain("", "level", 5'000, {"a.txt"});
    Collection collection = collectTree();
    ASSERT_EQ(collection.lists.arrOfDocsFileObject.size(), 5'000u);
    const std::string innermost = collection.lists.arrOfDocsFileObject.back()->filePath();
    EXPECT_EQ(innermost.size(), tree_.path().size() + 5'000 * 6 + 6);
    EXPECT_TRUE(systemFileSystem().openFile(innermost));
}

TEST_F(CollectorTest, WalksALocationWithAPathOverPathMax) {
    const std::string bottom = tree_.makeChain("", std::string(250, 'd'), 20, {"a.txt"});
    ASSERT_GT(bottom.size(), 4'096u);
    EXPECT_EQ(collect({folderRow(bottom)}).paths(), (Names{bottom + "/a.txt"}));
}

TEST_F(CollectorTest, CollectsFilesWithTheLongestNames) {
    const std::string name = std::string(251, 'n') + ".txt";
    tree_.makeChain("", std::string(255, 'd'), 20, {name});
    Collection collection = collectTree();
    ASSERT_EQ(collection.lists.total(), 20u);
    const File& innermost = *collection.lists.arrOfDocsFileObject.front();
    EXPECT_EQ(innermost.fileName(), name);
    EXPECT_EQ(innermost.filePath().size(), tree_.path().size() + 21 * 256);
}

TEST_F(CollectorTest, WalksAFolderOfAMillionFiles) {
    const std::uint64_t count = sanitized ? 200'000 : 1'000'000;
    fileSystem_.inventFiles(tree_.path(), count);
    labelInterval_ = 1h;
    Collection collection = collectTree();
    const std::vector<File*>& files = collection.lists.arrOfDocsFileObject;
    ASSERT_EQ(files.size(), count);
    for (std::uint64_t number = 0; number < count; ++number) {
        if (files[number]->fileName() != "invented-" + std::to_string(number) + ".txt") {
            FAIL() << number << ": " << files[number]->fileName();
        }
    }
}

TEST_F(CollectorTest, WalksAFolderOfManyFolders) {
    for (int number = 1000; number < 6000; ++number) {
        write({"f" + std::to_string(number) + "/a.txt"});
    }
    Collection collection = collectTree();
    const std::vector<File*>& files = collection.lists.arrOfDocsFileObject;
    ASSERT_EQ(files.size(), 5'000u);
    for (std::size_t number = 0; number < 5'000; ++number) {
        ASSERT_EQ(within(files[number]->filePath()),
                  "f" + std::to_string(number + 1000) + "/a.txt");
    }
}

TEST_F(CollectorTest, CollectsTheSameWithFewDescriptors) {
    tree_.makeChain("a", "deep", 300, {"a.txt", "z.txt"});
    tree_.makeChain("b", "zz", 30);
    std::string path = tree_.pathOf("b");
    for (int level = 0; level < 30; ++level) {
        path += "/zz";
        fileSystem_.inventFiles(path, 3000);
    }
    for (int number = 0; number < 100; ++number) {
        fileSystem_.inventFiles(tree_.makeFolder("c/" + std::to_string(number)), 1500);
    }
    labelInterval_ = 1h;
    const Names expected = collectTree().paths();
    EXPECT_EQ(expected.size(), 600u + 90'000u + 150'000u);
    const std::size_t usually = fileSystem_.openAtMost();
    for (const std::size_t limit : {64u, 32u}) {
        fileSystem_.setDescriptorLimit(limit);
        fileSystem_.refuseMoreDescriptorsThan(limit * 3 / 4);
        EXPECT_EQ(collectTree({4, 8}).paths(), expected) << limit;
        EXPECT_EQ(fileSystem_.openNow(), 0u);
    }
    EXPECT_LE(usually, 256u);
}

TEST_F(CollectorTest, LeavesNoDescriptorOpen) {
    tree_.makeChain("a", "deep", 300, {"a.txt"});
    write({"b/c.txt", "d/e.txt"});
    fileSystem_.failCall(FileCall::listEntries, 7, EIO);
    fileSystem_.failCall(FileCall::attributesOf, 9, EIO);
    collect(folderRows({tree_.path(), tree_.pathOf("b"), tree_.pathOf("missing")}));
    EXPECT_EQ(fileSystem_.openNow(), 0u);
    EXPECT_GT(fileSystem_.openAtMost(), 0u);
}

/// Reference implementation of the walk: one thread, whole paths, recursive.
class PlainWalk final {
 public:
    struct Found {
        std::string path;
        std::uint64_t size;
        std::int64_t modified;

        bool operator==(const Found&) const = default;
    };

    PlainWalk(std::set<std::string> exceptions, bool sorted)
        : exceptions_(std::move(exceptions)), sorted_(sorted) {}

    /// Skips a location inside a Trash.
    void walkLocation(const std::string& location) {
        if (("/" + location + "/").find("/.Trash-12/") == std::string::npos) {
            walk(location);
        }
    }

    void walk(const std::string& folder) {
        struct stat own{};
        if (::stat(folder.c_str(), &own) != 0 || !S_ISDIR(own.st_mode) ||
            !walked_.emplace(own.st_dev, own.st_ino).second) {
            return;
        }
        for (const std::string& name : namesIn(folder)) {
            const std::string path = folder + "/" + name;
            struct stat entry{};
            if (isPassedOver(name) || ::lstat(path.c_str(), &entry) != 0) {
                continue;
            }
            if (S_ISDIR(entry.st_mode)) {
                walk(path);
            } else if (S_ISREG(entry.st_mode)) {
                labels.push_back(path);
                if (!exceptions_.contains(path) && !pathExtension(path).empty()) {
                    found[indexOf(path)].push_back(
                        {path, static_cast<std::uint64_t>(entry.st_size),
                         entry.st_mtim.tv_sec * 1'000'000'000 + entry.st_mtim.tv_nsec});
                }
            }
        }
    }

    std::array<std::vector<Found>, 5> found;
    Names labels;

 private:
    Names namesIn(const std::string& folder) const {
        Names names;
        DIR* const listing = ::opendir(folder.c_str());
        while (const dirent* const entry = ::readdir(listing)) {
            const std::string name = entry->d_name;
            if (name != "." && name != "..") {
                names.push_back(name);
            }
        }
        ::closedir(listing);
        if (sorted_) {
            std::sort(names.begin(), names.end());
        }
        return names;
    }

    static bool isPassedOver(const std::string& name) {
        for (const char* each :
             {".Trashes", ".Trash", "Applications", "System", "Library", "private", "usr"}) {
            if (name == each) {
                return true;
            }
        }
        return name.starts_with(".Trash-") && name.size() > 7 &&
               std::all_of(name.begin() + 7, name.end(),
                           [](char letter) { return letter >= '0' && letter <= '9'; });
    }

    static std::size_t indexOf(const std::string& path) {
        return isValidImageFile(path)   ? 0
               : isValidAudioFile(path) ? 2
               : isValidVideoFile(path) ? 1
               : isValidDocFile(path)   ? 3
                                        : 4;
    }

    const std::set<std::string> exceptions_;
    const bool sorted_;
    std::set<std::pair<dev_t, ino_t>> walked_;
};

class RandomTrees : public CollectorTest {
 protected:
    /// Fills `folder` with a few random entries.
    void fill(const std::string& folder, int depth) {
        static const Names names{"a.jpg",    "b.JPG",         "c.txt", "d",         "e.mp3",
                                 "f.mp4",    "Library",       "usr",   ".Trash-12", ".hidden",
                                 "x.app",    "y.framework",   "g.",    "private",   ".dot.txt",
                                 "\xff.png", "line\nend.pdf", "h.gz",  "i.jpg copy"};
        for (const std::string& name : names) {
            const std::uint64_t kind = random_() % 10;
            const std::string path = folder.empty() ? name : folder + "/" + name;
            if (kind < 4) {
                tree_.writeFile(path, std::string(random_() % 3, 'x'));
                paths_.push_back(tree_.pathOf(path));
            } else if (kind < 6 && depth > 0) {
                folders_.push_back(tree_.makeFolder(path));
                fill(path, depth - 1);
            } else if (kind == 6) {
                tree_.makeLink(path, random_() % 2 == 0 ? "c.txt" : "..");
            } else if (kind == 7 && random_() % 4 == 0) {
                tree_.makePipe(path);
            }
        }
    }

    [[nodiscard]] std::string oneOf(const Names& names) { return names[random_() % names.size()]; }

    static void expectSame(const PlainWalk& plain, Collection& collection) {
        for (const Category category : allCategories) {
            std::vector<PlainWalk::Found> found;
            for (const File* file : collection.lists.of(category)) {
                found.push_back({file->filePath(), file->fileSize(),
                                 file->fileModificationDate()->time_since_epoch().count()});
            }
            const std::vector<PlainWalk::Found>& expected =
                plain.found[static_cast<std::size_t>(category)];
            EXPECT_TRUE(found == expected) << categoryName(category) << ": " << found.size()
                                           << " instead of " << expected.size();
        }
    }

    std::mt19937_64 random_{1};
    Names paths_;
    Names folders_;
};

TEST_F(RandomTrees, AreCollectedAsByTheReferenceWalk) {
    for (const std::uint64_t seed : testSeeds(12)) {
        SCOPED_TRACE(seedText(seed));
        random_.seed(seed);
        const std::string base = "tree " + std::to_string(seed);
        paths_.clear();
        folders_ = {tree_.makeFolder(base)};
        fill(base, 3);
        Names rows;
        for (std::uint64_t row = 0; row <= seed % 4; ++row) {
            rows.push_back(oneOf(folders_));
        }
        std::set<std::string> exceptions;
        for (std::size_t exception = 0; exception < 10 && !paths_.empty(); ++exception) {
            exceptions.insert(oneOf(paths_));
        }
        for (const bool sorted : {false, true}) {
            fileSystem_.setListingOrder(sorted ? ListingOrder::sorted : ListingOrder::asListed);
            PlainWalk plain(exceptions, sorted);
            for (const std::string& row : rows) {
                plain.walkLocation(row);
            }
            exceptions_ = ExceptionFilter({exceptions.begin(), exceptions.end()});
            for (const WorkerPool::Limits workers :
                 {WorkerPool::Limits{1, 1}, WorkerPool::Limits{2, 2}, WorkerPool::Limits{8, 8}}) {
                const std::size_t before = observer_.labelCount();
                Collection collection = collect(folderRows(rows), workers);
                expectSame(plain, collection);
                const Names labels = observer_.labels();
                EXPECT_TRUE(std::equal(labels.begin() + static_cast<std::ptrdiff_t>(before),
                                       labels.end(), plain.labels.begin(), plain.labels.end()));
            }
        }
    }
}

TEST_F(RandomTrees, AreCollectedInTheOrderOfTheirListings) {
    fill("", 4);
    labelInterval_ = 1h;
    for (const ListingOrder order :
         {ListingOrder::asListed, ListingOrder::reversed, ListingOrder::shuffled}) {
        for (std::uint64_t seed = 1; seed <= 3; ++seed) {
            fileSystem_.setListingOrder(order, seed);
            const Names expected = collectTree({1, 1}).paths();
            EXPECT_GT(expected.size(), 100u);
            for (const WorkerPool::Limits workers :
                 {WorkerPool::Limits{1, 1}, WorkerPool::Limits{2, 8}, WorkerPool::Limits{8, 8}}) {
                EXPECT_TRUE(collectTree(workers).paths() == expected);
            }
        }
    }
    fileSystem_.setListingOrder(ListingOrder::sorted);
    const Names sorted = collectTree().paths();
    fileSystem_.setListingOrder(ListingOrder::reversed);
    Names reversed;
    Collection collection = collectTree();
    for (const Category category : allCategories) {
        const std::vector<File*>& files = collection.lists.of(category);
        for (auto file = files.rbegin(); file != files.rend(); ++file) {
            reversed.push_back((*file)->filePath());
        }
    }
    EXPECT_TRUE(reversed == sorted);
}

TEST_F(RandomTrees, AreCollectedTheSameWithFewDescriptorsAndWithoutTypes) {
    fill("", 4);
    labelInterval_ = 1h;
    const Names expected = collectTree({1, 1}).paths();
    fileSystem_.hideEntryTypes();
    for (const std::size_t limit : {1u, 48u, 50u, 64u}) {
        fileSystem_.setDescriptorLimit(limit);
        EXPECT_TRUE(collectTree({4, 8}).paths() == expected) << limit;
    }
}

}  // namespace
}  // namespace tarvin
