#include "platform/posix/user_environment.h"

#include "platform/linux/user_folders.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin {
namespace {

UserEnvironment environmentOfAnn() {
    UserEnvironment environment;
    environment.accountName = "ann";
    environment.accountHome = "/home/ann";
    environment.home = "/home/ann";
    return environment;
}

TEST(UserName, IsTheAccountName) {
    UserEnvironment environment = environmentOfAnn();
    environment.logName = "somebody";
    EXPECT_EQ(userNameOf(environment), "ann");
}

TEST(UserName, IsLognameWithoutAnAccount) {
    UserEnvironment environment;
    environment.logName = "ann";
    EXPECT_EQ(userNameOf(environment), "ann");
    environment.accountName = "";
    EXPECT_EQ(userNameOf(environment), "ann");
}

TEST(UserName, IsNulloptIfUnknown) {
    UserEnvironment environment;
    EXPECT_EQ(userNameOf(environment), std::nullopt);
    environment.logName = "";
    EXPECT_EQ(userNameOf(environment), std::nullopt);
}

TEST(HomeFolder, IsTheVariable) {
    UserEnvironment environment = environmentOfAnn();
    environment.home = "/data/ann";
    EXPECT_EQ(homeFolder(environment), "/data/ann");
}

TEST(HomeFolder, IsTheAccountsIfTheVariableIsNotAbsolute) {
    UserEnvironment environment = environmentOfAnn();
    for (const char* home : {"", "home/ann", ".", "~"}) {
        environment.home = home;
        EXPECT_EQ(homeFolder(environment), "/home/ann") << home;
    }
    environment.home.reset();
    EXPECT_EQ(homeFolder(environment), "/home/ann");
}

TEST(HomeFolder, IsNulloptIfUnknown) {
    UserEnvironment environment;
    EXPECT_EQ(homeFolder(environment), std::nullopt);
    environment.accountHome = "";
    EXPECT_EQ(homeFolder(environment), std::nullopt);
}

TEST(HomeFolder, HasNoTrailingSlash) {
    UserEnvironment environment;
    environment.home = "/home/ann//";
    EXPECT_EQ(homeFolder(environment), "/home/ann");
    environment.home = "/";
    EXPECT_EQ(homeFolder(environment), "/");
}

TEST(HomeFolder, KeepsBytesThatAreNotText) {
    UserEnvironment environment;
    environment.home = "/home/\xff";
    EXPECT_EQ(homeFolder(environment), "/home/\xff");
    EXPECT_EQ(homeTrashFolder(environment), "/home/\xff/.local/share/Trash");
}

TEST(ProcessEnvironment, IsReadOnce) {
    EXPECT_EQ(&processEnvironment(), &processEnvironment());
}

TEST(ProcessEnvironment, HasTheAccountOfThePasswordDatabase) {
    // NOLINTNEXTLINE(concurrency-mt-unsafe): no other thread reads the database.
    const passwd* const account = ::getpwuid(::getuid());
    const UserEnvironment& environment = processEnvironment();
    ASSERT_EQ(environment.accountName.has_value(), account != nullptr);
    if (account != nullptr) {
        EXPECT_EQ(environment.accountName, account->pw_name);
        EXPECT_EQ(environment.accountHome, account->pw_dir);
    }
}

}  // namespace
}  // namespace tarvin
