#include "scan/rule_folder.h"

#include "model/file_store.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

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

namespace {

using Linked = std::vector<LinkedLocation>;

/// The resolved path, or the number of the error.
struct Resolved {
    std::string path;
    int error = 0;
};

Resolved resolved(const std::string& given) {
    const Result<std::string> folder = ruleFolderAt(given, systemFileSystem());
    return folder ? Resolved{*folder} : Resolved{{}, folder.error().code};
}

/// Its path has no links, so that it can be expected literally.
class RuleFolder : public testing::Test {
 protected:
    TemporaryFolder folder_{std::filesystem::canonical(std::filesystem::temp_directory_path())};
};

TEST_F(RuleFolder, SlashesAndDotsAreRemoved) {
    folder_.makeFolder("a/b");
    EXPECT_EQ(resolved(folder_.pathOf("a/./b//")).path, folder_.pathOf("a/b"));
    EXPECT_EQ(resolved(folder_.pathOf("a/b/..")).path, folder_.pathOf("a"));
    EXPECT_EQ(resolved("/").path, "/");
    EXPECT_EQ(resolved(".").path, std::filesystem::canonical(".").native());
}

TEST_F(RuleFolder, LinksAreFollowed) {
    const std::string real = folder_.makeFolder("real/inner");
    folder_.makeLink("link", folder_.pathOf("real"));
    EXPECT_EQ(resolved(folder_.pathOf("link/inner")).path, real);
    EXPECT_EQ(resolved(folder_.pathOf("link")).path, folder_.pathOf("real"));
}

TEST_F(RuleFolder, NamesNeedNotBeUtf8) {
    const std::string odd = folder_.makeFolder("\xFF\xC3");
    EXPECT_EQ(resolved(odd).path, odd);
}

TEST_F(RuleFolder, WhatIsNoFolderIsAnError) {
    EXPECT_EQ(resolved(folder_.pathOf("gone")).error, ENOENT);
    EXPECT_EQ(resolved(folder_.writeFile("file", "x")).error, ENOTDIR);
    EXPECT_EQ(resolved(folder_.makeLink("dangling", "gone")).error, ENOENT);
    EXPECT_EQ(resolved(folder_.makeLink("loop", "loop")).error, ELOOP);
    EXPECT_EQ(resolved("").error, ENOENT);
}

TEST_F(RuleFolder, OnlyLocationsThroughALinkAreLinked) {
    const std::string real = folder_.makeFolder("real/inner");
    const std::string link = folder_.makeLink("link", folder_.pathOf("real"));
    EXPECT_EQ(
        linkedLocationsOf({real, link, link + "/inner", folder_.pathOf("gone"), "/"}),
        (Linked{{link, folder_.pathOf("real")}, {link + "/inner", folder_.pathOf("real/inner")}}));
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
}

TEST(PathsInScan, WithoutLinksAFolderHasItsOwnPathOnly) {
    EXPECT_EQ(pathsInScan("/a/b", {}), (FolderPaths{"/a/b"}));
    EXPECT_EQ(pathsInScan("/", {}), (FolderPaths{"/"}));
}

TEST(PathsInScan, AFolderBelowALinkedLocationIsNamedThroughTheLink) {
    EXPECT_EQ(pathsInScan("/real/b/c", {{"/link", "/real"}}),
              (FolderPaths{"/real/b/c", "/link/b/c"}));
    EXPECT_EQ(pathsInScan("/real", {{"/link", "/real"}}), (FolderPaths{"/real", "/link"}));
}

TEST(PathsInScan, AFolderAboveALinkedLocationHoldsAllOfIt) {
    EXPECT_EQ(pathsInScan("/real", {{"/link", "/real/b"}}), (FolderPaths{"/real", "/link"}));
    EXPECT_EQ(pathsInScan("/", {{"/link", "/real/b"}}), (FolderPaths{"/", "/link"}));
}

TEST(PathsInScan, ALinkToTheRootNamesEveryFolder) {
    EXPECT_EQ(pathsInScan("/a/b", {{"/link", "/"}}), (FolderPaths{"/a/b", "/link/a/b"}));
}

TEST(PathsInScan, OtherLinkedLocationsAddNoPath) {
    EXPECT_EQ(pathsInScan("/real", {{"/link", "/really"}, {"/other", "/x/real"}}),
              (FolderPaths{"/real"}));
}

TEST(PathsInScan, EveryLinkAddsAPath) {
    EXPECT_EQ(pathsInScan("/real", {{"/one", "/real"}, {"/two", "/real/b"}}),
              (FolderPaths{"/real", "/one", "/two"}));
}

}  // namespace
}  // namespace tarvin
