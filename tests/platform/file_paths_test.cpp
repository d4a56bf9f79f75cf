#include "platform/file_paths.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <string>

namespace tarvin {
namespace {

/// Changes the current folder until destruction.
class CurrentFolder final {
 public:
    explicit CurrentFolder(const std::string& path) : before_(std::filesystem::current_path()) {
        std::filesystem::current_path(path);
    }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;
    ~CurrentFolder() {
        std::error_code ignored;
        std::filesystem::current_path(before_, ignored);
    }

 private:
    std::filesystem::path before_;
};

std::string pathFor(const std::string& given) {
    const Result<std::string> path = absolutePath(given);
    return path ? *path : "refused: " + path.error().text();
}

TEST(AbsolutePath, KeepsAnAbsolutePath) {
    EXPECT_EQ(pathFor("/no such/folder \xFF\n"), "/no such/folder \xFF\n");
}

TEST(AbsolutePath, RemovesRedundantComponents) {
    EXPECT_EQ(pathFor("/a/"), "/a");
    EXPECT_EQ(pathFor("//a///b//"), "/a/b");
    EXPECT_EQ(pathFor("/./a/././b/."), "/a/b");
}

TEST(AbsolutePath, TheRootIsOneSlash) {
    for (const char* root : {"/", "//", "/.", "/./"}) {
        EXPECT_EQ(pathFor(root), "/") << root;
    }
}

TEST(AbsolutePath, KeepsNamesThatBeginWithDots) {
    EXPECT_EQ(pathFor("/.a/..b/...//c."), "/.a/..b/.../c.");
}

TEST(AbsolutePath, ResolvesRelativeToTheCurrentFolder) {
    const TemporaryFolder folder;
    const CurrentFolder current(folder.path());
    EXPECT_EQ(pathFor("not there/x"), folder.pathOf("not there/x"));
    EXPECT_EQ(pathFor("./a//"), folder.pathOf("a"));
    EXPECT_EQ(pathFor("."), folder.path());
    EXPECT_EQ(pathFor("~"), folder.pathOf("~"));
}

TEST(AbsolutePath, ResolvesRelativeToTheRoot) {
    const CurrentFolder current("/");
    EXPECT_EQ(pathFor("a"), "/a");
    EXPECT_EQ(pathFor("."), "/");
}

TEST(AbsolutePath, KeepsSymbolicLinks) {
    const TemporaryFolder folder;
    folder.makeFolder("real");
    folder.makeLink("link", "real");
    EXPECT_EQ(pathFor(folder.pathOf("link/")), folder.pathOf("link"));
}

TEST(AbsolutePath, ParentOfALinkIsThatOfItsTarget) {
    const TemporaryFolder folder;
    folder.makeFolder("deep/real");
    folder.makeFolder("deep/beside");
    folder.makeLink("link", "deep/real");
    EXPECT_EQ(pathFor(folder.pathOf("link/../beside")), folder.pathOf("deep/beside"));
    const CurrentFolder current(folder.pathOf("deep/real"));
    EXPECT_EQ(pathFor(".."), folder.pathOf("deep"));
}

TEST(AbsolutePath, ALinkAtTheEndIsKeptAlsoAfterAParent) {
    const TemporaryFolder folder;
    folder.makeFolder("deep/real");
    folder.makeLink("deep/link", "real");
    folder.makeLink("way", "deep/real");
    EXPECT_EQ(pathFor(folder.pathOf("deep/real/../link")), folder.pathOf("deep/link"));
    EXPECT_EQ(pathFor(folder.pathOf("way/../link/")), folder.pathOf("deep/link"));
    EXPECT_EQ(pathFor(folder.pathOf("way/../missing")), folder.pathOf("deep/missing"));
    EXPECT_EQ(pathFor(folder.pathOf("deep/link/..")), folder.pathOf("deep"));
    EXPECT_EQ(pathFor("/../etc"), "/etc");
    EXPECT_EQ(pathFor("/.."), "/");
}

TEST(AbsolutePath, KeepsAPathThatCannotBeResolved) {
    EXPECT_EQ(pathFor("/no such folder/../x/."), "/no such folder/../x");
}

TEST(AbsolutePath, RefusesTheEmptyPath) {
    const Result<std::string> path = absolutePath("");
    ASSERT_FALSE(path.ok());
    EXPECT_EQ(path.error().code, ENOENT);
}

TEST(AbsolutePath, RefusesRelativePathsWithoutACurrentFolder) {
    const TemporaryFolder folder;
    const CurrentFolder current(folder.makeFolder("gone"));
    std::filesystem::remove(folder.pathOf("gone"));
    EXPECT_EQ(pathFor("x"), "refused: No such file or directory");
    EXPECT_EQ(pathFor("/x"), "/x");
}

TEST(PathIn, AddsTheNameToItsFolder) {
    EXPECT_EQ(pathIn("/photos", "a.jpg"), "/photos/a.jpg");
    EXPECT_EQ(pathIn("/", "a.jpg"), "/a.jpg");
    EXPECT_EQ(pathIn("/photos", "new/a.jpg"), "/photos/new/a.jpg");
}

TEST(PathIn, IsTheFolderWithoutAName) {
    EXPECT_EQ(pathIn("/photos", ""), "/photos");
    EXPECT_EQ(pathIn("/", ""), "/");
}

TEST(IsWithin, AFolderHoldsItselfAndWhatIsBelow) {
    EXPECT_TRUE(isWithin("/photos", "/photos"));
    EXPECT_TRUE(isWithin("/photos/new/a.jpg", "/photos"));
    EXPECT_TRUE(isWithin("/photos", "/"));
    EXPECT_TRUE(isWithin("/", "/"));
}

TEST(IsWithin, EveryAbsolutePathIsWithinTheEmptyFolder) {
    EXPECT_TRUE(isWithin("/photos", ""));
    EXPECT_TRUE(isWithin("/", ""));
}

TEST(IsWithin, AFolderDoesNotHoldItsParentOrALongerName) {
    EXPECT_FALSE(isWithin("/", "/photos"));
    EXPECT_FALSE(isWithin("/photos2/a.jpg", "/photos"));
    EXPECT_FALSE(isWithin("/photo", "/photos"));
}

}  // namespace
}  // namespace tarvin
