#include "scan/known_contents.h"

#include "model/file_store.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {
namespace {

/// A class of files, each with a comparison and a content; 0 if nothing is known.
class KnownContentsTest : public testing::Test {
 protected:
    KnownContentsTest() { store_->keepVersions(); }

    void add(std::uint64_t comparison, std::uint64_t content) {
        FileAttributes attributes;
        attributes.identity = {1, files_.size() + 1};
        attributes.linkCount = 1;
        files_.push_back(store_->addFile(folder_, "f.jpg", attributes));
        files_.back()->version()->comparison = comparison;
        files_.back()->version()->content = content;
    }

    [[nodiscard]] KnownContents known() const { return KnownContents(files_); }

    /// The contents by file; 0 for a doubtful file.
    [[nodiscard]] std::vector<std::uint64_t> contents() const {
        std::vector<std::uint64_t> all;
        for (const File* const file : files_) {
            all.push_back(file->version()->isDoubtful ? 0 : file->version()->content);
        }
        return all;
    }

    std::shared_ptr<FileStore> store_ = FileStore::create();
    Directory* folder_ = store_->addRoot("/folder");
    std::vector<File*> files_;
};

TEST_F(KnownContentsTest, AreReadIfNothingIsKnown) {
    add(0, 0);
    add(0, 0);
    EXPECT_FALSE(known().decideAll());
    EXPECT_EQ(known().toRead(), (FileGroup{0, 1}));
    EXPECT_TRUE(known().groups().empty());
    EXPECT_FALSE(known().isRepresentative(0));
}

TEST_F(KnownContentsTest, OfOneComparisonAreNotRead) {
    add(1, 10);
    add(1, 11);
    add(1, 10);
    EXPECT_TRUE(known().decideAll());
    EXPECT_EQ(known().groups(), (std::vector<FileGroup>{{0, 2}}));
}

TEST_F(KnownContentsTest, ThatAreAllEqualAreNotReadAfterSeveralComparisons) {
    add(1, 10);
    add(2, 10);
    EXPECT_TRUE(known().decideAll());
    EXPECT_EQ(known().groups(), (std::vector<FileGroup>{{0, 1}}));
}

TEST_F(KnownContentsTest, OfSeveralComparisonsAreReadOnceEach) {
    add(1, 10);
    add(1, 10);
    add(2, 11);
    EXPECT_EQ(known().toRead(), (FileGroup{0, 2}));
    EXPECT_TRUE(known().standsForOthers(0));
    EXPECT_FALSE(known().standsForOthers(1));
    EXPECT_TRUE(known().isRepresentative(1));
}

TEST_F(KnownContentsTest, AreReadOnceEachBesideAnUnknownFile) {
    add(1, 11);
    add(1, 10);
    add(0, 0);
    add(1, 10);
    EXPECT_EQ(known().toRead(), (FileGroup{0, 1, 2}));
    EXPECT_EQ(known().withKnown({1, 2}), (FileGroup{1, 2, 3}));
    EXPECT_EQ(known().withKnown({0, 2}), (FileGroup{0, 2}));
}

TEST_F(KnownContentsTest, OfADoubtfulFileAreUnknown) {
    add(1, 10);
    add(1, 10);
    add(1, 11);
    files_[0]->version()->isDoubtful = true;
    EXPECT_EQ(known().toRead(), (FileGroup{0, 1, 2}));
    EXPECT_TRUE(known().groups().empty());
}

TEST_F(KnownContentsTest, OfAFileThatBecameDoubtfulAreNotThoseOfOthers) {
    add(1, 10);
    add(0, 0);
    add(1, 10);
    const KnownContents before = known();
    files_[0]->version()->isDoubtful = true;
    EXPECT_EQ(before.withKnown({0, 1}), (FileGroup{0, 1}));
}

TEST_F(KnownContentsTest, AreNotedForEqualAndDifferentFiles) {
    add(0, 0);
    add(0, 0);
    add(0, 0);
    noteContents(files_, {{0, 2}}, *store_);
    const std::vector<std::uint64_t> noted = contents();
    EXPECT_GE(noted[0], FileStore::firstNewNumber);
    EXPECT_EQ(noted[0], noted[2]);
    EXPECT_NE(noted[0], noted[1]);
    EXPECT_TRUE(known().decideAll());
    EXPECT_EQ(known().groups(), (std::vector<FileGroup>{{0, 2}}));
}

TEST_F(KnownContentsTest, KeepAKnownNumber) {
    add(1, 10);
    add(2, 9);
    add(0, 0);
    add(2, 12);
    noteContents(files_, {{0, 1, 2}}, *store_);
    EXPECT_EQ(contents(), (std::vector<std::uint64_t>{9, 9, 9, 12}));
    EXPECT_EQ(files_[0]->version()->comparison, files_[3]->version()->comparison);
    EXPECT_GE(files_[0]->version()->comparison, FileStore::firstNewNumber);
}

TEST_F(KnownContentsTest, OfADoubtfulFileAreNotNoted) {
    add(1, 10);
    add(0, 0);
    files_[0]->version()->isDoubtful = true;
    noteContents(files_, {{0, 1}}, *store_);
    EXPECT_EQ(files_[0]->version()->comparison, 1U);
    EXPECT_GE(files_[1]->version()->content, FileStore::firstNewNumber);
}

TEST_F(KnownContentsTest, OfAFileUnderTwoPathsAreOne) {
    add(0, 0);
    add(0, 0);
    add(0, 0);
    files_[2]->version()->identity = files_[0]->version()->identity;
    noteContents(files_, {{0, 1}}, *store_);
    EXPECT_EQ(contents()[2], contents()[0]);
}

}  // namespace
}  // namespace tarvin
