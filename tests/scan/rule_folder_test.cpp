#include "scan/rule_folder.h"

#include "model/file_store.h"
#include "support/as_user.h"
#include "support/faulty_file_system.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cerrno>
#include <filesystem>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace tarvin {

void PrintTo(const LinkedLocation& location, std::ostream* out) {
    *out << location.path << " -> " << location.target;
}

void PrintTo(const FoundFolder& folder, std::ostream* out) {
    *out << folder.path << " (" << folder.identity.device << ", " << folder.identity.inode << ')'
         << (folder.isGone ? " gone" : "");
}

namespace {

using Linked = std::vector<LinkedLocation>;
using Identities = std::vector<FileIdentity>;

/// The resolved path, or the number of the error.
struct Resolved {
    std::string path;
    int error = 0;
};

Resolved resolved(const std::string& given) {
    const Result<FoundFolder> folder = ruleFolderAt(given, systemFileSystem());
    return folder ? Resolved{folder->path} : Resolved{{}, folder.error().code};
}

/// Its path has no links, so that it can be expected literally.
class FoundFolderTest : public testing::Test {
 protected:
    FoundFolderTest() { files_.setMountedFolders({}); }

    [[nodiscard]] FileIdentity identityOf(const std::string& path) {
        return files_.attributesAtPath(path)->identity;
    }

    TemporaryFolder folder_{std::filesystem::canonical(std::filesystem::temp_directory_path())};
    FaultyFileSystem files_;
};

TEST_F(FoundFolderTest, SlashesAndDotsAreRemoved) {
    folder_.makeFolder("a/b");
    EXPECT_EQ(resolved(folder_.pathOf("a/./b//")).path, folder_.pathOf("a/b"));
    EXPECT_EQ(resolved(folder_.pathOf("a/b/..")).path, folder_.pathOf("a"));
    EXPECT_EQ(resolved("/").path, "/");
    EXPECT_EQ(resolved(".").path, std::filesystem::canonical(".").native());
}

TEST_F(FoundFolderTest, LinksAreFollowed) {
    const std::string real = folder_.makeFolder("real/inner");
    folder_.makeLink("link", folder_.pathOf("real"));
    EXPECT_EQ(resolved(folder_.pathOf("link/inner")).path, real);
    EXPECT_EQ(resolved(folder_.pathOf("link")).path, folder_.pathOf("real"));
}

TEST_F(FoundFolderTest, NamesNeedNotBeUtf8) {
    const std::string odd = folder_.makeFolder("\xFF\xC3");
    EXPECT_EQ(resolved(odd).path, odd);
}

TEST_F(FoundFolderTest, WhatIsNoFolderIsAnError) {
    EXPECT_EQ(resolved(folder_.pathOf("gone")).error, ENOENT);
    EXPECT_EQ(resolved(folder_.writeFile("file", "x")).error, ENOTDIR);
    EXPECT_EQ(resolved(folder_.makeLink("dangling", "gone")).error, ENOENT);
    EXPECT_EQ(resolved(folder_.makeLink("loop", "loop")).error, ELOOP);
    EXPECT_EQ(resolved("").error, ENOENT);
}

TEST_F(FoundFolderTest, OnlyLocationsThroughALinkAreLinked) {
    const std::string real = folder_.makeFolder("real/inner");
    const std::string link = folder_.makeLink("link", folder_.pathOf("real"));
    EXPECT_EQ(
        scanWaysOf({real, link, link + "/inner", folder_.pathOf("gone"), "/"}, files_).linked,
        (Linked{{link, folder_.pathOf("real")}, {link + "/inner", folder_.pathOf("real/inner")}}));
}

TEST_F(FoundFolderTest, AFoundFolderIsThere) {
    const std::string real = folder_.makeFolder("real/inner");
    folder_.makeLink("link", folder_.pathOf("real"));
    EXPECT_EQ(findRuleFolder(folder_.pathOf("link/inner"), files_),
              (FoundFolder{real, identityOf(real), false}));
    EXPECT_EQ(findRuleFolder("/", files_), (FoundFolder{"/", identityOf("/"), false}));
}

TEST_F(FoundFolderTest, OfAFolderThatIsGoneTheRestOfThePathIsResolved) {
    folder_.makeFolder("real");
    folder_.makeLink("link", folder_.pathOf("real"));
    EXPECT_EQ(findRuleFolder(folder_.pathOf("link/gone/inner"), files_),
              (FoundFolder{folder_.pathOf("real/gone/inner"), {}, true}));
    EXPECT_EQ(findRuleFolder("/gone", files_), (FoundFolder{"/gone", {}, true}));
}

TEST_F(FoundFolderTest, AFileIsNoFolder) {
    const std::string file = folder_.writeFile("file", "x");
    EXPECT_EQ(findRuleFolder(file, files_), (FoundFolder{file, {}, true}));
    EXPECT_EQ(findRuleFolder(file + "/inner", files_), (FoundFolder{file + "/inner", {}, true}));
}

TEST_F(FoundFolderTest, AFolderThatCannotBeResolvedIsNotGone) {
    folder_.makeFolder("real");
    folder_.makeLink("link", folder_.pathOf("real"));
    folder_.makeLink("real/loop", "loop");
    EXPECT_EQ(findRuleFolder(folder_.pathOf("link/loop/inner"), files_),
              (FoundFolder{folder_.pathOf("real/loop/inner"), {}, false}));
}

TEST_F(FoundFolderTest, AFolderBehindAClosedOneIsNotGone) {
    folder_.makeFolder("real/closed/inner");
    folder_.makeLink("link", folder_.pathOf("real"));
    std::filesystem::permissions(folder_.path(), std::filesystem::perms::all);
    std::filesystem::permissions(folder_.pathOf("real/closed"), std::filesystem::perms::none);
    asUser(1234, [this] {
        EXPECT_EQ(findRuleFolder(folder_.pathOf("link/closed/inner"), files_),
                  (FoundFolder{folder_.pathOf("real/closed/inner"), {}, false}));
        // It cannot be listed, but seen.
        const FoundFolder closed = findRuleFolder(folder_.pathOf("link/closed"), files_);
        EXPECT_EQ(closed.path, folder_.pathOf("real/closed"));
        EXPECT_NE(closed.identity.inode, 0U);
        EXPECT_FALSE(closed.isGone);
    });
}

TEST_F(FoundFolderTest, NamesAPathByAnotherCaseOfItsName) {
    // As a volume does that ignores case.
    const std::string shown = folder_.makeFolder("Photos/2024");
    const std::string given = folder_.makeFolder("PHOTOS");
    files_.setIdentity(folder_.pathOf("Photos"), identityOf(given));
    const ScanWays ways = scanWaysOf({shown}, files_);
    EXPECT_EQ(folderInScan(findRuleFolder(given, files_), ways).identities,
              (Identities{identityOf(given), identityOf(shown)}));
}

TEST_F(FoundFolderTest, OfABindMountTheOtherNameCounts) {
    const std::string inner = folder_.makeFolder("data/protected/inner");
    const std::string bound = folder_.makeFolder("scanned/bound");
    folder_.makeFolder("data/other");
    files_.setIdentity(bound, identityOf(inner));
    files_.setMountedFolders({{1, "/", folder_.pathOf("data")},
                              {2, "/protected/inner", folder_.pathOf("data/other")},
                              {1, "/protected/inner", bound}});
    const ScanWays ways = scanWaysOf({folder_.pathOf("scanned")}, files_);
    const FileIdentity identity = identityOf(folder_.pathOf("data/protected"));
    EXPECT_EQ(folderInScan({folder_.pathOf("data/protected"), identity}, ways).identities,
              (Identities{identity, identityOf(inner)}));
    const FileIdentity other = identityOf(folder_.pathOf("data/other"));
    EXPECT_EQ(folderInScan({folder_.pathOf("data/other"), other}, ways).identities,
              (Identities{other}));
}

TEST_F(FoundFolderTest, ANameUnderAnotherMountIsNoName) {
    const std::string inner = folder_.makeFolder("data/protected/inner");
    const std::string bound = folder_.makeFolder("scanned/bound");
    files_.setMountedFolders({{1, "/", folder_.pathOf("data")}, {1, "/protected/inner", bound}});
    const ScanWays ways = scanWaysOf({folder_.pathOf("scanned")}, files_);
    const FileIdentity identity = identityOf(folder_.pathOf("data/protected"));
    EXPECT_EQ(folderInScan({folder_.pathOf("data/protected"), identity}, ways).identities,
              (Identities{identity}));
}

TEST_F(FoundFolderTest, AMountInsideABindMountIsReachedThroughIt) {
    // The volume 2 is mounted in a folder that is mounted again itself.
    const std::string source = folder_.makeFolder("data/protected/inner");
    const std::string bound = folder_.makeFolder("bound");
    const std::string first = folder_.makeFolder("bound/volume");
    const std::string second = folder_.makeFolder("scanned");
    files_.setIdentity(bound, identityOf(source));
    files_.setIdentity(first, {99, 2});
    files_.setIdentity(second, {99, 2});
    files_.setMountedFolders({{1, "/", folder_.pathOf("data")},
                              {1, "/protected/inner", bound},
                              {2, "/", first},
                              {2, "/", second}});
    const ScanWays ways = scanWaysOf({second}, files_);
    const FileIdentity identity = identityOf(folder_.pathOf("data/protected"));
    EXPECT_EQ(folderInScan({folder_.pathOf("data/protected"), identity}, ways).identities,
              (Identities{identity, identityOf(source), {99, 2}}));
}

TEST_F(FoundFolderTest, VolumesOnNoWayAreNotAsked) {
    const std::string scanned = folder_.makeFolder("scanned");
    const std::string once = folder_.makeFolder("scanned/once");
    files_.setMountedFolders({{1, "/", folder_.makeFolder("dead")},
                              {1, "/", folder_.makeFolder("dead2")},
                              {2, "/", once}});
    files_.failCall(FileCall::attributesAtPath, FaultyFileSystem::each, EIO, "dead");
    files_.failCall(FileCall::attributesAtPath, FaultyFileSystem::each, EIO, "once");
    bool wasAsked = false;
    files_.beforeCall(FileCall::attributesAtPath, 1, [&] { wasAsked = true; }, "dead");
    files_.beforeCall(FileCall::attributesAtPath, 1, [&] { wasAsked = true; }, "once");
    const ScanWays ways = scanWaysOf({scanned}, files_);
    EXPECT_FALSE(wasAsked);
    ASSERT_EQ(ways.reached.size(), 1U);
    EXPECT_EQ(ways.reached[0].identity, identityOf(scanned));
    EXPECT_EQ(ways.reached[0].above.front(), identityOf(folder_.path()));
    EXPECT_EQ(ways.reached[0].above.back(), identityOf("/"));
}

TEST(LocationsOf, AreTheFoldersAtWhichWalksBegan) {
    const std::shared_ptr<FileStore> store = FileStore::create();
    const Directory* one = store->addRoot("/one");
    const Directory* inner = store->addDirectory(store->addDirectory(one, "a"), "b");
    const Directory* two = store->addRoot("/");
    auto set = std::make_shared<Set>();
    for (const Directory* folder : {inner, one, two, inner}) {
        set->addFiles(store->share(store->addFile(folder, "x", 1, std::nullopt, std::nullopt)));
    }
    auto extension = std::make_shared<Extensions>("x");
    extension->addSet(set);
    Modal modal;
    modal.addExtension(extension);
    EXPECT_EQ(locationsOf(modal), (std::vector<std::string>{"/one", "/"}));
    const std::atomic<bool> stop{true};
    EXPECT_EQ(locationsOf(modal, &stop), std::vector<std::string>{});
}

using Paths = std::vector<std::string>;

Paths pathsInScan(const std::string& folder, const Linked& linked) {
    return folderInScan({folder}, {linked, {}}).paths;
}

TEST(FolderInScan, WithoutLinksAFolderHasItsOwnPathOnly) {
    EXPECT_EQ(pathsInScan("/a/b", {}), (Paths{"/a/b"}));
    EXPECT_EQ(pathsInScan("/", {}), (Paths{"/"}));
}

TEST(FolderInScan, AFolderBelowALinkedLocationIsNamedThroughTheLink) {
    EXPECT_EQ(pathsInScan("/real/b/c", {{"/link", "/real"}}), (Paths{"/real/b/c", "/link/b/c"}));
    EXPECT_EQ(pathsInScan("/real", {{"/link", "/real"}}), (Paths{"/real", "/link"}));
}

TEST(FolderInScan, AFolderAboveALinkedLocationHoldsAllOfIt) {
    EXPECT_EQ(pathsInScan("/real", {{"/link", "/real/b"}}), (Paths{"/real", "/link"}));
    EXPECT_EQ(pathsInScan("/", {{"/link", "/real/b"}}), (Paths{"/", "/link"}));
}

TEST(FolderInScan, ALinkToTheRootNamesEveryFolder) {
    EXPECT_EQ(pathsInScan("/a/b", {{"/link", "/"}}), (Paths{"/a/b", "/link/a/b"}));
}

TEST(FolderInScan, OtherLinkedLocationsAddNoPath) {
    EXPECT_EQ(pathsInScan("/real", {{"/link", "/really"}, {"/other", "/x/real"}}),
              (Paths{"/real"}));
}

TEST(FolderInScan, EveryLinkAddsAPath) {
    EXPECT_EQ(pathsInScan("/real", {{"/one", "/real"}, {"/two", "/real/b"}}),
              (Paths{"/real", "/one", "/two"}));
}

TEST(FolderInScan, AnUnknownIdentityIsNone) {
    EXPECT_EQ(folderInScan({"/a", {7, 0}}, {{}, {{{7, 3}, {{7, 0}}}}}), (RuleFolder{{"/a"}, {}}));
}

TEST(FolderInScan, ReachedFoldersInsideItAreHeldInAnyOrder) {
    const std::vector<ReachedFolder> reached{{{7, 4}, {{7, 3}, {7, 1}}},
                                             {{8, 9}, {{8, 5}}},
                                             {{9, 9}, {{7, 50}, {5, 7}}},
                                             {{7, 3}, {{7, 5}, {7, 1}}}};
    EXPECT_EQ(folderInScan({"/a", {7, 5}}, {{}, reached}),
              (RuleFolder{{"/a"}, {{7, 5}, {7, 3}, {7, 4}}}));
}

}  // namespace
}  // namespace tarvin
