#include "model/file_store.h"
#include "model/marking.h"
#include "model/result_tree.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {
namespace {

class FileMarking : public testing::Test {
 protected:
    using States = std::vector<CheckState>;

    FileMarking() { fill(modal_, {jpg_, png_}); }

    static std::shared_ptr<Set> setOf(std::initializer_list<const char*> paths) {
        auto set = std::make_shared<Set>();
        for (const char* const path : paths) {
            set->addFiles(FileStore::standalone(path, 10));
        }
        set->setTotalFilesInSet(paths.size() - 1);
        set->setTotalFilesInSetSize((paths.size() - 1) * 10);
        return set;
    }
    void mark(const std::shared_ptr<Set>& set, std::size_t position) {
        modal_.changeStateOfExtension(jpg_, set, set->files()[position]);
    }
    [[nodiscard]] const Directory& folderOf(const Set& set, std::size_t position) const {
        return *set.files()[position]->directory();
    }
    [[nodiscard]] static States statesOf(const Set& set) {
        States states;
        for (const auto& file : set.files()) {
            states.push_back(file->state());
        }
        return states;
    }

    std::shared_ptr<Set> three_ = setOf({"/a/1.jpg", "/b/1.jpg", "/a/sub/1.jpg"});
    std::shared_ptr<Set> inside_ = setOf({"/a/2.jpg", "/a/3.jpg"});
    std::shared_ptr<Set> outside_ = setOf({"/c/4.png", "/ab/4.png"});
    std::shared_ptr<Extensions> jpg_ = makeExtension("jpg", {three_, inside_});
    std::shared_ptr<Extensions> png_ = makeExtension("png", {outside_});
    Modal modal_;
};

TEST_F(FileMarking, KeepingAFileMarksAllOthersOfItsSet) {
    mark(three_, 1);
    keepFile(modal_, *three_, 1);
    EXPECT_EQ(statesOf(*three_), (States{on, off, on}));
    EXPECT_EQ(three_->setsState(), on);
    EXPECT_EQ(statesOf(*inside_), (States{off, off}));
    EXPECT_EQ(jpg_->extensionState(), mixed);
    EXPECT_EQ(modal_.totalFilesSelected(), 2U);
    EXPECT_EQ(modal_.totalFilesSelectedSize(), 20U);
}

TEST_F(FileMarking, KeepingTheOnlyFileMarksNothing) {
    three_->setFiles({three_->files().front()});
    keepFile(modal_, *three_, 0);
    EXPECT_EQ(statesOf(*three_), (States{off}));
    EXPECT_EQ(modal_.totalFilesSelected(), 0U);
}

TEST_F(FileMarking, MarkingAFolderLeavesOutItsSubfoldersAndOtherFolders) {
    markFolder(modal_, folderOf(*three_, 0));
    EXPECT_EQ(statesOf(*three_), (States{on, off, off}));
    EXPECT_EQ(statesOf(*outside_), (States{off, off}));
}

TEST_F(FileMarking, MarkingAFolderLeavesTheFirstFileOfASetThatWouldLoseAll) {
    markFolder(modal_, folderOf(*three_, 0));
    EXPECT_EQ(statesOf(*inside_), (States{off, on}));
    EXPECT_EQ(modal_.totalFilesSelected(), 2U);
    EXPECT_EQ(modal_.totalFilesSelectedSize(), 20U);
}

TEST_F(FileMarking, MarkingAFolderAddsToTheMarksOfOthers) {
    mark(three_, 2);
    markFolder(modal_, folderOf(*three_, 0));
    EXPECT_EQ(statesOf(*three_), (States{on, off, on}));
}

TEST_F(FileMarking, WhereTheOthersAreMarkedTheFirstFoundStays) {
    mark(three_, 1);
    mark(three_, 2);
    EXPECT_TRUE(canMarkFolder(modal_, folderOf(*three_, 0)));
    mark(inside_, 1);
    markFolder(modal_, folderOf(*three_, 0));
    EXPECT_EQ(statesOf(*three_), (States{off, on, on}));
    EXPECT_EQ(statesOf(*inside_), (States{off, on}));
    EXPECT_EQ(modal_.totalFilesSelected(), 3U);
    EXPECT_FALSE(canMarkFolder(modal_, folderOf(*three_, 0)));
}

TEST_F(FileMarking, TheFirstFoundStaysAlsoIfItWasMarkedAndIsElsewhere) {
    mark(three_, 0);
    mark(three_, 2);
    EXPECT_TRUE(canMarkFolder(modal_, folderOf(*three_, 1)));
    markFolder(modal_, folderOf(*three_, 1));
    EXPECT_EQ(statesOf(*three_), (States{off, on, on}));
    EXPECT_EQ(modal_.totalFilesSelected(), 2U);
    EXPECT_EQ(modal_.totalFilesSelectedSize(), 20U);
    EXPECT_FALSE(canMarkFolder(modal_, folderOf(*three_, 1)));
}

TEST_F(FileMarking, TheFirstFoundOfTheFolderStaysAlsoIfItWasMarked) {
    mark(inside_, 0);
    markFolder(modal_, folderOf(*inside_, 0));
    EXPECT_EQ(statesOf(*inside_), (States{off, on}));
    EXPECT_FALSE(canMarkFolder(modal_, folderOf(*inside_, 0)));
}

TEST_F(FileMarking, AFolderCanBeMarkedIfThatChangesAMark) {
    EXPECT_TRUE(canMarkFolder(modal_, folderOf(*three_, 0)));
    markFolder(modal_, folderOf(*three_, 0));
    EXPECT_FALSE(canMarkFolder(modal_, folderOf(*three_, 0)));
    EXPECT_TRUE(canMarkFolder(modal_, folderOf(*outside_, 0)));
    EXPECT_FALSE(canMarkFolder(Modal(), folderOf(*outside_, 0)));
}

TEST_F(FileMarking, TakingOutAFileKeepsTheMarksOfTheOthers) {
    mark(three_, 1);
    EXPECT_EQ(takeOutFile(modal_, jpg_, three_, 0), "/a/1.jpg");
    EXPECT_EQ(pathsOf(*three_), (std::vector<std::string>{"/b/1.jpg", "/a/sub/1.jpg"}));
    EXPECT_EQ(statesOf(*three_), (States{on, off}));
    EXPECT_EQ(modal_.totalFilesSelected(), 1U);
    EXPECT_EQ(modal_.totalFilesSelectedSize(), 10U);
    EXPECT_EQ(three_->setsState(), on);
}

TEST_F(FileMarking, TakingOutTheOnlyUnmarkedFileUnmarksTheFirst) {
    mark(three_, 1);
    mark(three_, 2);
    EXPECT_EQ(takeOutFile(modal_, jpg_, three_, 0), "/a/1.jpg");
    EXPECT_EQ(statesOf(*three_), (States{off, on}));
    EXPECT_EQ(modal_.totalFilesSelected(), 1U);
}

TEST_F(FileMarking, TakingOutTheOnlyFileLeavesAnEmptySet) {
    three_->setFiles({three_->files().front()});
    EXPECT_EQ(takeOutFile(modal_, jpg_, three_, 0), "/a/1.jpg");
    EXPECT_TRUE(three_->files().empty());
    EXPECT_EQ(modal_.totalFilesSelected(), 0U);
}

}  // namespace
}  // namespace tarvin
