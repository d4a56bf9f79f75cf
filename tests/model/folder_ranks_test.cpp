#include "model/folder_ranks.h"

#include "model/file_store.h"
#include "support/test_seeds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <ostream>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin {

void PrintTo(const FolderRank& rank, std::ostream* out) {
    *out << "{preference " << rank.preference << ", protected " << rank.isProtected << "}";
}

namespace {

constexpr std::uint32_t notPreferred = FolderRank::notPreferred;

/// The rank of the folder at which a walk began.
FolderRank rankOfRoot(FolderRanks& ranks, std::string_view path) {
    const std::shared_ptr<FileStore> store = FileStore::create();
    FolderRanks fresh = ranks;
    return fresh.rankOf(*store->addRoot(path));
}

TEST(FolderRanks, WithoutFoldersNothingIsPreferredOrProtected) {
    FolderRanks ranks;
    EXPECT_TRUE(ranks.isEmpty());
    EXPECT_EQ(rankOfRoot(ranks, "/a"), (FolderRank{notPreferred, false}));
}

TEST(FolderRanks, AFolderHoldsItselfAndWhatIsBelow) {
    FolderRanks ranks;
    ranks.prefer("/a/b", 3);
    ranks.protect("/c");
    EXPECT_FALSE(ranks.isEmpty());
    EXPECT_EQ(rankOfRoot(ranks, "/a"), (FolderRank{notPreferred, false}));
    EXPECT_EQ(rankOfRoot(ranks, "/a/b"), (FolderRank{3, false}));
    EXPECT_EQ(rankOfRoot(ranks, "/a/b/c/d"), (FolderRank{3, false}));
    EXPECT_EQ(rankOfRoot(ranks, "/c"), (FolderRank{notPreferred, true}));
    EXPECT_EQ(rankOfRoot(ranks, "/c/x"), (FolderRank{notPreferred, true}));
}

TEST(FolderRanks, ComparesWholeComponentsByteForByte) {
    FolderRanks ranks;
    ranks.protect("/a/b");
    ranks.protect("/\xFF\xC3");
    for (const char* path : {"/a/bc", "/a/B", "/b/a/b", "/a", "/\xFF", "/\xFF\xC3\xA4", "/a/b "}) {
        EXPECT_FALSE(rankOfRoot(ranks, path).isProtected) << path;
    }
    EXPECT_TRUE(rankOfRoot(ranks, "/a/b/c").isProtected);
    EXPECT_TRUE(rankOfRoot(ranks, "/\xFF\xC3/x").isProtected);
}

TEST(FolderRanks, SlashesAtTheEndAreIgnored) {
    FolderRanks ranks;
    ranks.prefer("/a/b//", 1);
    EXPECT_EQ(rankOfRoot(ranks, "/a/b"), (FolderRank{1, false}));
    EXPECT_EQ(rankOfRoot(ranks, "/a"), (FolderRank{notPreferred, false}));
}

TEST(FolderRanks, TheRootHoldsEverything) {
    FolderRanks ranks;
    ranks.prefer("/", 2);
    EXPECT_EQ(rankOfRoot(ranks, "/"), (FolderRank{2, false}));
    EXPECT_EQ(rankOfRoot(ranks, "/a/b"), (FolderRank{2, false}));
}

TEST(FolderRanks, OfNestedFoldersTheSmallerPositionCounts) {
    FolderRanks ranks;
    ranks.prefer("/a", 0);
    ranks.prefer("/a/b", 1);
    ranks.prefer("/c", 3);
    ranks.prefer("/c/d", 2);
    ranks.prefer("/c/d", 5);
    ranks.protect("/c");
    EXPECT_EQ(rankOfRoot(ranks, "/a/b"), (FolderRank{0, false}));
    EXPECT_EQ(rankOfRoot(ranks, "/c/d/e"), (FolderRank{2, true}));
    EXPECT_EQ(rankOfRoot(ranks, "/c/e"), (FolderRank{3, true}));
}

TEST(FolderRanks, FollowsTheFoldersOfAWalk) {
    const std::shared_ptr<FileStore> store = FileStore::create();
    const Directory* root = store->addRoot("/home/anna");
    const Directory* pictures = store->addDirectory(root, "Pictures");
    const Directory* year = store->addDirectory(pictures, "2024");
    const Directory* other = store->addDirectory(root, "Pictures2");
    FolderRanks ranks;
    ranks.prefer("/home/anna/Pictures", 0);
    ranks.protect("/home/anna/Pictures/2024");
    EXPECT_EQ(ranks.rankOf(*year), (FolderRank{0, true}));
    EXPECT_EQ(ranks.rankOf(*other), (FolderRank{notPreferred, false}));
    EXPECT_EQ(ranks.rankOf(*pictures), (FolderRank{0, false}));
    EXPECT_EQ(ranks.rankOf(*root), (FolderRank{notPreferred, false}));
    EXPECT_EQ(ranks.rankOf(*year), (FolderRank{0, true}));
}

TEST(FolderRanks, AWalkFromTheRootOfTheFileSystemHasTheSameFolders) {
    const std::shared_ptr<FileStore> store = FileStore::create();
    const Directory* root = store->addRoot("/");
    const Directory* folder = store->addDirectory(store->addDirectory(root, "a"), "b");
    FolderRanks ranks;
    ranks.protect("/a");
    EXPECT_FALSE(ranks.rankOf(*root).isProtected);
    EXPECT_TRUE(ranks.rankOf(*folder).isProtected);
}

TEST(FolderRanks, AHundredThousandLevelsNeedNoRecursion) {
    const std::shared_ptr<FileStore> store = FileStore::create();
    const Directory* folder = store->addRoot("/a");
    for (int level = 0; level < 100'000; ++level) {
        folder = store->addDirectory(folder, "b");
    }
    FolderRanks ranks;
    ranks.protect("/a/b");
    EXPECT_TRUE(ranks.rankOf(*folder).isProtected);
}

TEST(FolderRanks, AnIdentityHoldsTheFolderUnderEveryNameAndWhatIsBelow) {
    const std::shared_ptr<FileStore> store = FileStore::create();
    Directory* const root = store->addRoot("/media/ann");
    Directory* const bound = store->addDirectory(root, "PHOTOS");
    Directory* const below = store->addDirectory(bound, "2024");
    Directory* const other = store->addDirectory(root, "Photos2");
    root->identity = {7, 2};
    bound->identity = {7, 5};
    below->identity = {7, 6};
    other->identity = {7, 8};
    FolderRanks ranks;
    ranks.protect(FileIdentity{7, 5});
    ranks.prefer(FileIdentity{7, 6}, 4);
    ranks.prefer(FileIdentity{7, 6}, 6);
    ranks.prefer("/media/ann/Photos2", 3);
    EXPECT_FALSE(ranks.isEmpty());
    EXPECT_EQ(ranks.rankOf(*below), (FolderRank{4, true}));
    EXPECT_EQ(ranks.rankOf(*bound), (FolderRank{notPreferred, true}));
    EXPECT_EQ(ranks.rankOf(*other), (FolderRank{3, false}));
    EXPECT_EQ(ranks.rankOf(*root), (FolderRank{notPreferred, false}));
}

TEST(FolderRanks, AnIdentityAloneNeedsNoPath) {
    const std::shared_ptr<FileStore> store = FileStore::create();
    Directory* const root = store->addRoot("/a/b");
    root->identity = {7, 5};
    const Directory* const below = store->addDirectory(root, "c");
    FolderRanks ranks;
    ranks.protect(FileIdentity{7, 5});
    EXPECT_FALSE(ranks.isEmpty());
    EXPECT_TRUE(ranks.rankOf(*below).isProtected);
}

TEST(FolderRanks, DeviceAndInodeMustBothBeEqual) {
    const std::shared_ptr<FileStore> store = FileStore::create();
    FolderRanks ranks;
    ranks.protect(FileIdentity{7, 5});
    ranks.protect(FileIdentity{7, 0});
    ranks.prefer(FileIdentity{0, 0}, 1);
    for (const FileIdentity identity : {FileIdentity{5, 7}, FileIdentity{7, 6}, FileIdentity{8, 5},
                                        FileIdentity{7, 0}, FileIdentity{0, 0}}) {
        Directory* const folder = store->addRoot("/a");
        folder->identity = identity;
        EXPECT_EQ(ranks.rankOf(*folder), (FolderRank{notPreferred, false}))
            << identity.device << ", " << identity.inode;
    }
}

TEST(FolderRanks, AnUnknownIdentityIsIgnored) {
    FolderRanks ranks;
    ranks.protect(FileIdentity{7, 0});
    ranks.prefer(FileIdentity{7, 0}, 1);
    EXPECT_TRUE(ranks.isEmpty());
}

/// The rule, literally.
bool holds(std::string_view folder, std::string_view path) {
    return folder == "/" || path == folder || path.starts_with(std::string(folder) + '/');
}

TEST(FolderRanks, EqualsTheLiteralRuleOnRandomFolders) {
    for (const auto seed : testSeeds(20)) {
        SCOPED_TRACE(seed);
        std::mt19937_64 random(seed);
        const std::vector<std::string> names{"a", "b", "ab", "a ", "\xFF"};
        const std::shared_ptr<FileStore> store = FileStore::create();
        std::vector<const Directory*> folders{store->addRoot("/"), store->addRoot("/a/b")};
        for (int count = 0; count < 200; ++count) {
            const Directory* parent = folders[random() % folders.size()];
            folders.push_back(store->addDirectory(parent, names[random() % names.size()]));
        }
        FolderRanks ranks;
        std::vector<std::string> preferred;
        std::vector<std::string> guarded;
        for (std::uint32_t position = 0; position < 5; ++position) {
            preferred.push_back(folders[random() % folders.size()]->path());
            guarded.push_back(folders[random() % folders.size()]->path());
            ranks.prefer(preferred.back(), position);
            ranks.protect(guarded.back());
        }
        for (const Directory* folder : folders) {
            const std::string path = folder->path();
            const auto best = std::find_if(preferred.begin(), preferred.end(),
                                           [&](const auto& each) { return holds(each, path); });
            const FolderRank expected{
                best == preferred.end() ? notPreferred
                                        : static_cast<std::uint32_t>(best - preferred.begin()),
                std::any_of(guarded.begin(), guarded.end(),
                            [&](const auto& each) { return holds(each, path); })};
            EXPECT_EQ(ranks.rankOf(*folder), expected) << path;
        }
    }
}

}  // namespace
}  // namespace tarvin
