#include "scan/collector.h"
#include "scan/scan_filter.h"
#include "support/faulty_file_system.h"
#include "support/file_tree.h"
#include "support/mount.h"
#include "support/scan_tools.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace tarvin {
namespace {

using Names = std::vector<std::string>;

class IgnoringObserver final : public ScanObserver {};

/// Collections with filters and with files given by name. Paths are relative to the tree.
class FilteredCollection : public testing::Test {
 protected:
    FilteredCollection() { fileSystem_.setListingOrder(ListingOrder::sorted); }

    /// The collected documents, in order.
    Names collect(const Names& given, bool areGivenByName = true) {
        std::vector<LocationRow> rows;
        for (const std::string& path : given) {
            LocationRow& row = rows.emplace_back();
            row.name = path.empty() ? tree_.path() : tree_.pathOf(path);
            row.state = true;
            row.folder = true;
            row.mayBeFile = areGivenByName;
        }
        CategoryLists lists;
        ScanTools tools(fileSystem_, {2, 4});
        ProgressGate gate(std::chrono::hours(1));
        IgnoringObserver observer;
        Collector collector(tools.services(), exceptions_, filter_, observer, gate, lists);
        collector.addAllPhotos(rows);
        unreadable_ = collector.unreadableLocations();
        unreadableInside_ = tools.unreadable().report();
        Names names;
        for (const File* file : lists.arrOfDocsFileObject) {
            names.push_back(file->filePath().substr(tree_.path().size() + 1));
        }
        return names;
    }

    void write(const Names& names, const std::string& content = "x") const {
        for (const std::string& name : names) {
            tree_.writeFile(name, content);
        }
    }

    void exclude(std::string_view pattern) {
        filter_.excluded.push_back(*ExcludePattern::parse(pattern));
    }

    FileTree tree_;
    FaultyFileSystem fileSystem_;
    ExceptionFilter exceptions_;
    ScanFilter filter_;
    std::vector<UnreadableLocation> unreadable_;
    UnreadableReport unreadableInside_;
};

TEST_F(FilteredCollection, SkipsExcludedFilesAndFoldersWithAllInside) {
    write({"a.txt", "b.tmp.txt", "old/c.txt", "old/deep/d.txt", "sub/old/e.txt", "sub/f.txt"});
    exclude("*.tmp.*");
    exclude("./old/");
    EXPECT_EQ(collect({""}), (Names{"a.txt", "sub/f.txt", "sub/old/e.txt"}));
    EXPECT_TRUE(unreadable_.empty());
}

TEST_F(FilteredCollection, SkipsExcludedFoldersWhoseTypeTheListingLacks) {
    write({"a.txt", "old/c.txt"});
    exclude("old/");
    fileSystem_.hideEntryTypes();
    EXPECT_EQ(collect({""}), Names{"a.txt"});
}

TEST_F(FilteredCollection, ReadsNoAttributesOfExcludedFiles) {
    write({"a.txt", "b.txt", "c.txt"});
    exclude("[ab].txt");
    fileSystem_.failCall(FileCall::attributesAt, 2, EIO);
    EXPECT_EQ(collect({""}, false), Names{"c.txt"});
    EXPECT_EQ(unreadableInside_.total(), 0U);
}

TEST_F(FilteredCollection, AGivenFolderIsWalkedEvenIfItIsExcludedOrHidden) {
    write({".old/a.txt"});
    exclude(".old");
    filter_.skipHidden = true;
    EXPECT_EQ(collect({".old"}), Names{".old/a.txt"});
}

TEST_F(FilteredCollection, SkipsHiddenFilesAndFoldersIfConfigured) {
    write({".a.txt", ".git/b.txt", "c.txt", "d/.e/f.txt"});
    EXPECT_EQ(collect({""}).size(), 4U);
    filter_.skipHidden = true;
    EXPECT_EQ(collect({""}), Names{"c.txt"});
}

TEST_F(FilteredCollection, SkipsFilesOutsideTheLimitsOfTheSize) {
    write({"1.txt"}, "x");
    write({"2.txt"}, "xx");
    write({"3.txt"}, "xxx");
    write({"4.txt"}, "xxxx");
    filter_.minSize = 2;
    filter_.maxSize = 3;
    EXPECT_EQ(collect({""}), (Names{"2.txt", "3.txt"}));
    EXPECT_EQ(collect({"1.txt", "3.txt", "4.txt"}), Names{"3.txt"});
}

TEST_F(FilteredCollection, StaysOnOneFileSystemIfConfigured) {
    write({"a.txt", "z/b.txt"});
    const std::string path = tree_.makeFolder("m");
    const Mount mount("none", path, "tmpfs");
    if (!mount) {
        return;
    }
    write({"m/c.txt", "m/n/d.txt"});
    EXPECT_EQ(collect({""}).size(), 4U);
    filter_.oneFileSystem = true;
    EXPECT_EQ(collect({""}), (Names{"a.txt", "z/b.txt"}));
    EXPECT_EQ(unreadableInside_.total(), 0U);
    // Each location has its own file system.
    EXPECT_EQ(collect({"m", "z"}), (Names{"m/c.txt", "m/n/d.txt", "z/b.txt"}));
    EXPECT_EQ(collect({"m/c.txt", "a.txt"}), (Names{"m/c.txt", "a.txt"}));
}

TEST_F(FilteredCollection, TakesGivenFilesAndFoldersInOrder) {
    write({"b.txt", "c/2.txt", "c/1.txt", "a.txt", "not.txt"});
    EXPECT_EQ(collect({"b.txt", "c", "a.txt"}), (Names{"b.txt", "c/1.txt", "c/2.txt", "a.txt"}));
    EXPECT_TRUE(unreadable_.empty());
}

TEST_F(FilteredCollection, AGivenFileMayBeHiddenButNotExcluded) {
    write({".a.txt", "b.txt"});
    filter_.skipHidden = true;
    exclude("b.*");
    EXPECT_EQ(collect({".a.txt", "b.txt"}), Names{".a.txt"});
    EXPECT_TRUE(unreadable_.empty());
}

TEST_F(FilteredCollection, APathPatternBeginsInTheFolderOfAGivenFile) {
    write({"d/a.txt", "d/b.txt"});
    exclude("./a.txt");
    exclude("d/b.txt");
    EXPECT_EQ(collect({"d/a.txt", "d/b.txt"}), Names{"d/b.txt"});
}

TEST_F(FilteredCollection, AFileIsTakenOnce) {
    write({"d/a.txt", "d/b.txt"});
    tree_.makeLink("link", "d");
    const Names both{"d/a.txt", "d/b.txt"};
    EXPECT_EQ(collect({"d/a.txt", "d/a.txt", "link/a.txt"}), Names{"d/a.txt"});
    EXPECT_EQ(collect({"d", "d/a.txt", "link/b.txt"}), both);
    EXPECT_EQ(collect({"d/a.txt", "d"}), both);
    EXPECT_EQ(collect({"d/b.txt", "link"}), (Names{"d/b.txt", "link/a.txt"}));
}

TEST_F(FilteredCollection, HardLinksAreDifferentFiles) {
    write({"d/a.txt"});
    ASSERT_EQ(::link(tree_.pathOf("d/a.txt").c_str(), tree_.pathOf("d/b.txt").c_str()), 0);
    EXPECT_EQ(collect({"d/a.txt", "d/b.txt"}), (Names{"d/a.txt", "d/b.txt"}));
}

TEST_F(FilteredCollection, AHiddenFileIsTakenFromAWalkedFolderIfItIsGiven) {
    write({"d/.a.txt", "d/b.txt"});
    filter_.skipHidden = true;
    EXPECT_EQ(collect({"d", "d/.a.txt"}), (Names{"d/b.txt", "d/.a.txt"}));
}

TEST_F(FilteredCollection, AGivenFileInASkippedFolderIsTaken) {
    write({"Library/a.txt"});
    EXPECT_EQ(collect({""}), Names());
    EXPECT_EQ(collect({"Library/a.txt"}), Names{"Library/a.txt"});
}

TEST_F(FilteredCollection, AGivenFileThatScansSkipIsSkippedQuietly) {
    write({"no extension", "b.txt"});
    exceptions_ = ExceptionFilter({tree_.pathOf("b.txt")});
    EXPECT_EQ(collect({"no extension", "b.txt"}), Names());
    EXPECT_TRUE(unreadable_.empty());
}

TEST_F(FilteredCollection, AGivenPathThatIsMissingIsReported) {
    write({"b.txt"});
    EXPECT_EQ(collect({"missing.txt", "b.txt/c.txt", "b.txt"}), Names{"b.txt"});
    ASSERT_EQ(unreadable_.size(), 2U);
    EXPECT_EQ(unreadable_[0].path, tree_.pathOf("missing.txt"));
    EXPECT_EQ(unreadable_[0].error.code, ENOENT);
    EXPECT_FALSE(unreadable_[0].isFolder);
    EXPECT_EQ(unreadable_[1].error.code, ENOTDIR);
    EXPECT_FALSE(unreadable_[1].isSpecial);
}

TEST_F(FilteredCollection, AGivenPathThatIsNeitherFolderNorFileIsReported) {
    write({"b.txt"});
    tree_.makeLink("link.txt", "b.txt");
    tree_.makePipe("pipe.txt");
    EXPECT_EQ(collect({"link.txt", "pipe.txt"}), Names());
    ASSERT_EQ(unreadable_.size(), 2U);
    EXPECT_TRUE(unreadable_[0].isSpecial);
    EXPECT_TRUE(unreadable_[1].isSpecial);
}

TEST_F(FilteredCollection, AGivenFileInATrashFolderIsReported) {
    write({"v/.Trash-1000/files/a.txt", "v/.Trash-1000/files/b.txt"});
    EXPECT_EQ(collect({"v/.Trash-1000/files/a.txt", "v/.Trash-1000/files/b.txt"}), Names());
    ASSERT_EQ(unreadable_.size(), 2U);
    EXPECT_EQ(unreadable_[1].path, tree_.pathOf("v/.Trash-1000/files/b.txt"));
    EXPECT_TRUE(unreadable_[0].isTrash);
    EXPECT_TRUE(unreadable_[1].isTrash);
}

TEST_F(FilteredCollection, AGivenFileOfOurOwnIsSkipped) {
    write({"a.txt", "own/b.txt"});
    tree_.makeLink("link", "own");
    const auto own = systemFileSystem().attributesAtPath(tree_.pathOf("own"));
    fileSystem_.setOwnFolder(own->identity);
    EXPECT_EQ(collect({"own/b.txt", "a.txt", "link/b.txt"}), Names{"a.txt"});
    EXPECT_TRUE(unreadable_.empty());
}

TEST_F(FilteredCollection, AGivenFileOfOurOwnIsSkippedWhereFoldersAreRenumbered) {
    const std::string own = "Tarvin Duplicate File Remover";
    write({"a.txt", own + "/b.txt", "other/c.txt"});
    tree_.makeLink("link", own);
    tree_.makeLink("x " + own, "other");
    fileSystem_.setOwnFolder(systemFileSystem().attributesAtPath(tree_.pathOf(own))->identity);
    fileSystem_.jitterFolders();
    EXPECT_EQ(collect({own + "/b.txt", "a.txt", "link/b.txt", "x " + own + "/c.txt"}),
              (Names{"a.txt", "x " + own + "/c.txt"}));
    EXPECT_TRUE(unreadable_.empty());
}

TEST_F(FilteredCollection, OfAnotherFolderOfThatNameAGivenFileIsTaken) {
    write({"Tarvin Duplicate File Remover/b.txt", "own/c.txt"});
    fileSystem_.setOwnFolder(systemFileSystem().attributesAtPath(tree_.pathOf("own"))->identity);
    EXPECT_EQ(collect({"Tarvin Duplicate File Remover/b.txt"}),
              Names{"Tarvin Duplicate File Remover/b.txt"});
}

TEST_F(FilteredCollection, AGivenFileOnAPseudoFileSystemIsReported) {
    write({"a.txt"});
    const auto attributes = systemFileSystem().attributesAtPath(tree_.path());
    fileSystem_.setPseudoFileSystem(attributes->identity.device, true);
    EXPECT_EQ(collect({"a.txt"}), Names());
    ASSERT_EQ(unreadable_.size(), 1U);
    EXPECT_EQ(unreadable_[0].error.code, EOPNOTSUPP);
}

TEST_F(FilteredCollection, WithoutNamesGivenAFileIsNotTaken) {
    write({"a.txt"});
    EXPECT_EQ(collect({"a.txt"}, false), Names());
    ASSERT_EQ(unreadable_.size(), 1U);
    EXPECT_EQ(unreadable_[0].error.code, ENOTDIR);
}

}  // namespace
}  // namespace tarvin
