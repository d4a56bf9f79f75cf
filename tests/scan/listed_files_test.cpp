#include "scan/listed_files.h"

#include "scan/scan_run.h"
#include "support/fake_platform.h"
#include "support/faulty_file_system.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {
namespace {

ListedFile listed(std::string path, std::uint32_t set, bool keep = false) {
    ListedFile file;
    file.path = std::move(path);
    file.set = set;
    file.keep = keep;
    return file;
}

TEST(ListedFiles, TheFirstOfASetIsKeptIfNoneIs) {
    ListedFiles files{listed("/a", 0), listed("/b", 0), listed("/c", 1), listed("/d", 1, true)};
    checkListedFiles(files);
    EXPECT_TRUE(files[0].keep);
    EXPECT_FALSE(files[1].keep);
    EXPECT_FALSE(files[2].keep);
    EXPECT_TRUE(files[3].keep);
}

TEST(ListedFiles, PathsMustBeAbsoluteAndExact) {
    for (const std::string path :
         {"", "a", "./a", "/", "//a", "/a/", "/a//b", "/a/./b", "/a/../b", "/..", "/."}) {
        ListedFiles files{listed(path, 0)};
        checkListedFiles(files);
        EXPECT_EQ(files[0].state, ListedState::notAbsolute) << path;
    }
    ListedFiles withZero{listed(std::string("/a\0b", 4), 0)};
    checkListedFiles(withZero);
    EXPECT_EQ(withZero[0].state, ListedState::notAbsolute);
    for (const std::string path : {"/a", "/a/...", "/a/.b", "/a b/\xFF"}) {
        ListedFiles files{listed(path, 0)};
        checkListedFiles(files);
        EXPECT_EQ(files[0].state, ListedState::usable) << path;
    }
}

TEST(ListedFiles, ARepeatedPathIsFoundInItsSetAndInOthers) {
    ListedFiles files{listed("/a", 0), listed("/b", 0), listed("/b", 0), listed("/c", 1),
                      listed("/a", 1)};
    checkListedFiles(files);
    EXPECT_EQ(files[0].state, ListedState::repeated);
    EXPECT_EQ(files[1].state, ListedState::repeated);
    EXPECT_EQ(files[2].state, ListedState::repetition);
    EXPECT_EQ(files[3].state, ListedState::usable);
    EXPECT_EQ(files[4].state, ListedState::repetition);
}

TEST(ListedFiles, AFaultIsNotHiddenByARepetition) {
    ListedFiles files{listed("/a", 0), listed("/a", 0), listed("/a", 0), listed("/b", 1),
                      listed("/b", 1), listed("c", 2),  listed("c", 2)};
    files[0].state = ListedState::inexact;
    files[4].state = ListedState::inexact;
    checkListedFiles(files);
    EXPECT_EQ(files[0].state, ListedState::inexact);
    EXPECT_EQ(files[1].state, ListedState::repeated);
    EXPECT_EQ(files[2].state, ListedState::repetition);
    EXPECT_EQ(files[3].state, ListedState::repeated);
    EXPECT_EQ(files[4].state, ListedState::inexact);
    EXPECT_EQ(files[5].state, ListedState::notAbsolute);
    EXPECT_EQ(files[6].state, ListedState::notAbsolute);
}

/// Scans the files of a list in a folder of their own.
class ListScan : public ::testing::Test {
 protected:
    void add(const std::string& name, std::uint32_t set, bool keep = false) {
        files_->push_back(listed(folder_.pathOf(name), set, keep));
    }

    void scan(ExceptionFilter exceptions = {}) {
        checkListedFiles(*files_);
        run_.start(files_, std::move(exceptions));
        run_.wait();
        modal_ = markListedFiles(*files_, *run_.result().modal, run_.result().unreadable);
    }

    /// The names of all files in the sets, in order; those of marked ones in brackets. Sets are
    /// separated by a bar.
    [[nodiscard]] std::string sets() const {
        std::string text;
        for (const auto& extension : modal_->extensions()) {
            for (const auto& set : extension->sets()) {
                text += text.empty() ? "" : "| ";
                for (const auto& file : set->files()) {
                    const std::string name(file->fileName());
                    text += file->state() == CheckState::on ? '[' + name + "] " : name + ' ';
                }
            }
        }
        return text;
    }

    [[nodiscard]] ListedState state(std::size_t entry) const { return (*files_)[entry].state; }

    struct NoObserver final : ScanObserver {};

    TemporaryFolder folder_;
    FaultyFileSystem fileSystem_{systemFileSystem()};
    FakePlatform platform_{fileSystem_};
    NoObserver observer_;
    std::shared_ptr<ListedFiles> files_ = std::make_shared<ListedFiles>();
    std::shared_ptr<Modal> modal_;
    ScanRun run_{platform_, observer_};
};

TEST_F(ListScan, MarksAllButTheKeptFiles) {
    for (const char* name : {"a.jpg", "b.jpg", "c.jpg"}) {
        folder_.writeFile(name, "same");
    }
    add("a.jpg", 0);
    add("b.jpg", 0, true);
    add("c.jpg", 0);
    scan();
    EXPECT_EQ(sets(), "[a.jpg] b.jpg [c.jpg] ");
    EXPECT_EQ(modal_->totalFilesSelected(), 2U);
    EXPECT_EQ(modal_->totalFilesSelectedSize(), 8U);
    EXPECT_EQ(modal_->totalFiles(), 2U);
}

TEST_F(ListScan, ComparesFilesWithDifferentExtensionsAndWithoutAny) {
    for (const char* name : {"a.jpg", "b.txt", "c"}) {
        folder_.writeFile(name, "same");
    }
    add("a.jpg", 0);
    add("b.txt", 0);
    add("c", 0);
    scan();
    EXPECT_EQ(sets(), "a.jpg [b.txt] [c] ");
}

TEST_F(ListScan, EqualFilesOfDifferentListedSetsAreNotJoined) {
    for (const char* name : {"a", "b", "c", "d"}) {
        folder_.writeFile(name, "same");
    }
    add("a", 0);
    add("b", 0);
    add("c", 1);
    add("d", 1);
    scan();
    EXPECT_EQ(sets(), "a [b] | c [d] ");
}

TEST_F(ListScan, AFileThatDiffersFromTheKeptOnesStays) {
    folder_.writeFile("a", "same");
    folder_.writeFile("b", "same");
    folder_.writeFile("c", "diff");
    folder_.writeFile("d", "diff");
    add("a", 0, true);
    add("c", 0);
    add("b", 0);
    add("d", 0);
    scan();
    EXPECT_EQ(sets(), "a [b] ");
    EXPECT_EQ(state(1), ListedState::hasNoSurvivor);
    EXPECT_EQ(state(3), ListedState::hasNoSurvivor);
}

TEST_F(ListScan, WithoutItsKeptFileASetMovesNothing) {
    folder_.writeFile("b", "same");
    folder_.writeFile("c", "same");
    add("a", 0, true);
    add("b", 0);
    add("c", 0);
    scan();
    EXPECT_EQ(sets(), "");
    EXPECT_EQ(state(0), ListedState::unreadable);
    EXPECT_EQ((*files_)[0].error.code, ENOENT);
    EXPECT_EQ(state(1), ListedState::hasNoSurvivor);
    EXPECT_EQ(state(2), ListedState::hasNoSurvivor);
}

TEST_F(ListScan, ARepeatedPathStaysAndServesAsTheCopyThatStays) {
    for (const char* name : {"a", "b", "c"}) {
        folder_.writeFile(name, "same");
    }
    add("a", 0, true);
    add("b", 0);
    add("b", 1);
    add("c", 1);
    scan();
    // The second set has lost the file that it would have kept.
    EXPECT_EQ(sets(), "");
    EXPECT_EQ(state(1), ListedState::repeated);
    EXPECT_EQ(state(3), ListedState::hasNoSurvivor);
}

TEST_F(ListScan, RefusesFoldersLinksAndPipes) {
    folder_.writeFile("a", "same");
    folder_.makeFolder("folder");
    folder_.makeLink("link", folder_.pathOf("a"));
    ASSERT_EQ(::mkfifo(folder_.pathOf("pipe").c_str(), 0600), 0);
    add("a", 0, true);
    add("folder", 0);
    add("link", 0);
    add("pipe", 0);
    add("a/below", 0);
    files_->push_back(listed("/proc/self/status", 0));
    scan();
    EXPECT_EQ(sets(), "");
    EXPECT_EQ(state(1), ListedState::isFolder);
    EXPECT_EQ(state(2), ListedState::isSpecial);
    EXPECT_EQ(state(3), ListedState::isSpecial);
    EXPECT_EQ(state(4), ListedState::unreadable);
    EXPECT_EQ((*files_)[4].error.code, ENOTDIR);
    EXPECT_EQ(state(5), ListedState::isSpecial);
}

TEST_F(ListScan, AFileInATrashIsNeitherMovedNorTheCopyThatStays) {
    folder_.writeFile(".Trash-1000/files/a", "same");
    folder_.writeFile("b", "same");
    folder_.makeLink("way", folder_.pathOf(".Trash-1000/files"));
    add(".Trash-1000/files/a", 0, true);
    add("b", 0);
    add("way/a", 0, true);
    scan();
    EXPECT_EQ(sets(), "");
    EXPECT_EQ(state(0), ListedState::inTrash);
    EXPECT_EQ(state(1), ListedState::hasNoSurvivor);
    EXPECT_EQ(state(2), ListedState::inTrash);
}

TEST_F(ListScan, AFileOfOurOwnIsNotUsed) {
    folder_.writeFile("own/a", "same");
    folder_.writeFile("own/d", "same");
    folder_.writeFile("b", "same");
    folder_.writeFile("c", "same");
    const auto own = systemFileSystem().attributesAtPath(folder_.pathOf("own"));
    fileSystem_.setOwnFolder(own->identity);
    add("own/a", 0, true);
    add("b", 0);
    add("own/d", 1);
    add("c", 1, true);
    scan();
    EXPECT_EQ(sets(), "");
    EXPECT_EQ(state(0), ListedState::isOwn);
    EXPECT_EQ(state(1), ListedState::hasNoSurvivor);
    EXPECT_EQ(state(2), ListedState::isOwn);
}

TEST_F(ListScan, AFileOfOurOwnIsNotUsedWhereFoldersAreRenumbered) {
    const std::string own = "Tarvin Duplicate File Remover";
    folder_.writeFile(own + "/a", "same");
    folder_.writeFile("b", "same");
    folder_.makeLink("way", folder_.pathOf(own));
    fileSystem_.setOwnFolder(systemFileSystem().attributesAtPath(folder_.pathOf(own))->identity);
    fileSystem_.jitterFolders();
    add(own + "/a", 0, true);
    add("b", 0);
    add("way/a", 0, true);
    scan();
    EXPECT_EQ(sets(), "");
    EXPECT_EQ(state(0), ListedState::isOwn);
    EXPECT_EQ(state(1), ListedState::hasNoSurvivor);
    EXPECT_EQ(state(2), ListedState::isOwn);
}

/// Otherwise a file in a Trash could be the copy that stays.
TEST_F(ListScan, AFileOfWhichItIsNotKnownWhetherItIsInATrashIsNotUsed) {
    folder_.writeFile("one/a", "same");
    folder_.writeFile("two/b", "same");
    fileSystem_.setHomeTrash(FileIdentity{1, 1});
    // The file itself is read at its full path, the folders above it for their identity.
    fileSystem_.failCall(FileCall::attributesAtPath, 1, EIO, "/one");
    add("one/a", 0, true);
    add("two/b", 0);
    scan();
    EXPECT_EQ(sets(), "");
    EXPECT_EQ(state(0), ListedState::unreadable);
    EXPECT_EQ((*files_)[0].error.code, EIO);
    EXPECT_EQ(state(1), ListedState::survivorUnread);
}

TEST_F(ListScan, AFileThatCannotBeReadIsNotCalledDifferent) {
    for (const char* name : {"a", "b", "c", "d", "e"}) {
        folder_.writeFile(name, "same");
    }
    folder_.writeFile("f", "diff");
    fileSystem_.failCall(FileCall::openFile, 1, EACCES, "/b");
    fileSystem_.failCall(FileCall::openFile, 1, EACCES, "/d");
    add("a", 0, true);
    add("b", 0);
    add("c", 0);
    add("d", 1, true);
    add("e", 1);
    add("f", 1);
    scan();
    EXPECT_EQ(sets(), "a [c] ");
    EXPECT_EQ(state(1), ListedState::unread);
    EXPECT_EQ(state(3), ListedState::unread);
    EXPECT_EQ(state(4), ListedState::survivorUnread);
    EXPECT_EQ(state(5), ListedState::survivorUnread);
}

TEST_F(ListScan, AnExcludedFileStays) {
    for (const char* name : {"a", "b", "c"}) {
        folder_.writeFile(name, "same");
    }
    add("a", 0, true);
    add("b", 0);
    add("c", 0);
    scan(ExceptionFilter({folder_.pathOf("b")}));
    EXPECT_EQ(sets(), "a b [c] ");
    EXPECT_EQ(state(1), ListedState::excluded);
}

TEST_F(ListScan, AnImmutableFileStays) {
    folder_.writeFile("a", "same");
    folder_.writeFile("b", "same");
    fileSystem_.setImmutable(folder_.pathOf("b"));
    add("a", 0);
    add("b", 0);
    scan();
    EXPECT_EQ(sets(), "");
    EXPECT_EQ(state(1), ListedState::locked);
}

TEST_F(ListScan, HardLinksAreDifferentFiles) {
    folder_.writeFile("a", "same");
    ASSERT_EQ(::link(folder_.pathOf("a").c_str(), folder_.pathOf("b").c_str()), 0);
    add("a", 0);
    add("b", 0);
    scan();
    EXPECT_EQ(sets(), "a [b] ");
}

TEST_F(ListScan, OneFileUnderTwoPathsIsOneFile) {
    folder_.writeFile("real/a", "same");
    folder_.makeLink("way", folder_.pathOf("real"));
    add("real/a", 0);
    add("way/a", 0);
    scan();
    EXPECT_EQ(sets(), "");
    EXPECT_EQ(state(1), ListedState::hasNoSurvivor);
}

TEST_F(ListScan, AStoppedScanHasNoSets) {
    folder_.writeFile("a", "same");
    folder_.writeFile("b", "same");
    add("a", 0);
    add("b", 0);
    checkListedFiles(*files_);
    fileSystem_.beforeCall(
        FileCall::attributesAtPath, 1, [this] { run_.requestStop(); }, folder_.pathOf("b"));
    run_.start(files_, {});
    run_.wait();
    EXPECT_TRUE(run_.wasStopped());
    EXPECT_EQ(run_.result().modal->extensionCount(), 0U);
}

}  // namespace
}  // namespace tarvin
