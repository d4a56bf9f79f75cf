#include "cli/keep_options.h"

#include "cli/usage_texts.h"
#include "support/temporary_folder.h"

#include <CLI/CLI.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {
namespace {

using Words = std::vector<std::string>;

/// The options of a command line, or the error.
struct ParsedKeep {
    KeepOptions options;
    Words folders;
    std::string error;
};

ParsedKeep parsedKeep(Words words) {
    ParsedKeep result;
    CLI::App command;
    command.add_option("FOLDER", result.folders);
    addKeepOptions(command, result.options);
    std::reverse(words.begin(), words.end());
    try {
        command.parse(std::move(words));
    } catch (const CLI::ParseError& error) {
        result.error = usageErrorText(error, command);
    }
    return result;
}

/// The rule of a command line that scans the folders given there, or the error.
struct Ruled {
    std::optional<MarkingRule> rule;  ///< without identities, which no test can know
    std::string error;
};

Ruled ruled(const Words& words) {
    const ParsedKeep given = parsedKeep(words);
    EXPECT_EQ(given.error, "");
    auto rule = markingRuleOf(given.options, given.folders, systemFileSystem());
    if (rule && *rule) {
        for (std::vector<RuleFolder>* folders : {&(*rule)->preferred, &(*rule)->protectedFolders}) {
            for (RuleFolder& folder : *folders) {
                EXPECT_FALSE(folder.identities.empty());
                folder.identities.clear();
            }
        }
    }
    return rule ? Ruled{*rule, {}} : Ruled{std::nullopt, rule.error()};
}

TEST(KeepOptions, EveryRuleHasAWord) {
    const std::vector<std::pair<std::string, KeepRule>> rules{
        {"first", KeepRule::first},     {"newest", KeepRule::newest},
        {"oldest", KeepRule::oldest},   {"shortest", KeepRule::shortest},
        {"longest", KeepRule::longest}, {"preferred", KeepRule::preferred}};
    for (const auto& [word, rule] : rules) {
        EXPECT_EQ(parsedKeep({"--keep", word}).options.keep, rule) << word;
    }
}

TEST(KeepOptions, AnotherWordIsNamed) {
    EXPECT_EQ(
        parsedKeep({"--keep", "newset"}).error,
        "invalid value 'newset' for --keep: expected first, newest, oldest, shortest, longest "
        "or preferred; did you mean 'newest'?");
}

TEST(KeepOptions, EachFolderHasAnOptionOfItsOwn) {
    const ParsedKeep given =
        parsedKeep({"--prefer", "a", "b", "--prefer=c", "--protect", "d", "e", "--protect", "f"});
    EXPECT_EQ(given.error, "");
    EXPECT_EQ(given.options.preferred, (Words{"a", "c"}));
    EXPECT_EQ(given.options.protectedFolders, (Words{"d", "f"}));
    EXPECT_EQ(given.folders, (Words{"b", "e"}));
}

TEST(KeepOptions, AForgottenFolderDoesNotTakeTheNextOption) {
    EXPECT_EQ(parsedKeep({"a", "--prefer"}).error, "missing value for --prefer");
    EXPECT_EQ(parsedKeep({"--protect", ""}).error, "missing value for --protect");
    EXPECT_EQ(
        parsedKeep({"--protect", "-x"}).error,
        "invalid value '-x' for --protect: looks like an option; write './-x' for a folder of "
        "that name");
}

TEST(KeepOptions, WithoutThemThereIsNoRule) {
    const Ruled none = ruled({"/"});
    EXPECT_EQ(none.error, "");
    EXPECT_EQ(none.rule, std::nullopt);
}

TEST(KeepOptions, PreferredFoldersNeedTheirRule) {
    EXPECT_EQ(ruled({"--keep", "preferred"}).error,
              "--keep preferred needs a folder: --prefer FOLDER");
    EXPECT_EQ(ruled({"--keep", "newest", "--prefer", "/"}).error,
              "--prefer can only be combined with --keep preferred");
}

/// Its path has no links, so that it can be expected literally.
class RuleOfOptions : public testing::Test {
 protected:
    TemporaryFolder folder_{std::filesystem::canonical(std::filesystem::temp_directory_path())};
};

TEST_F(RuleOfOptions, PreferredFoldersAloneImplyTheirRule) {
    const std::string one = folder_.makeFolder("one");
    const std::string two = folder_.makeFolder("two");
    const MarkingRule expected{.keep = KeepRule::preferred, .preferred = {{{two}}, {{one}}}};
    EXPECT_EQ(ruled({"--prefer", two, "--prefer", one}).rule, expected);
    EXPECT_EQ(ruled({"--keep", "preferred", "--prefer", two, "--prefer", one}).rule, expected);
}

TEST_F(RuleOfOptions, ProtectedFoldersGoWithEveryRule) {
    EXPECT_EQ(ruled({"--protect", "/"}).rule, (MarkingRule{.protectedFolders = {{{"/"}}}}));
    EXPECT_EQ(ruled({"--keep", "oldest", "--protect", folder_.path() + "/./"}).rule,
              (MarkingRule{.keep = KeepRule::oldest, .protectedFolders = {{{folder_.path()}}}}));
}

TEST_F(RuleOfOptions, AFolderIsKnownByThePathsOfALinkedLocationToo) {
    const std::string real = folder_.makeFolder("real/inner");
    const std::string link = folder_.makeLink("link", folder_.pathOf("real"));
    EXPECT_EQ(ruled({"--prefer", real, "--protect", link, link + "/inner/"}).rule,
              (MarkingRule{.keep = KeepRule::preferred,
                           .preferred = {{{real, link + "/inner"}}},
                           .protectedFolders = {{{folder_.pathOf("real"), link + "/inner"}}}}));
}

TEST_F(RuleOfOptions, AFolderIsKnownByThePathOfAFileGivenThroughALink) {
    const std::string real = folder_.makeFolder("real/inner");
    folder_.writeFile("real/inner/a.jpg", "x");
    const std::string link = folder_.makeLink("link", folder_.pathOf("real"));
    EXPECT_EQ(ruled({"--protect", real, link + "/inner/a.jpg"}).rule,
              (MarkingRule{.protectedFolders = {{{real, link + "/inner"}}}}));
}

TEST_F(RuleOfOptions, TheSameFolderMayBePreferredAndProtected) {
    EXPECT_EQ(ruled({"--prefer", folder_.path(), "--prefer", folder_.path() + "/.", "--protect",
                     folder_.path()})
                  .rule,
              (MarkingRule{.keep = KeepRule::preferred,
                           .preferred = {{{folder_.path()}}, {{folder_.path()}}},
                           .protectedFolders = {{{folder_.path()}}}}));
}

TEST_F(RuleOfOptions, AFolderThatCannotBeListedIsNamed) {
    const std::string gone = folder_.pathOf("gone");
    const std::string file = folder_.writeFile("file", "x");
    EXPECT_EQ(ruled({"--prefer", "/", "--prefer", gone}).error,
              "invalid value '" + gone + "' for --prefer: No such file or directory");
    EXPECT_EQ(ruled({"--protect", file}).error,
              "invalid value '" + file + "' for --protect: Not a directory");
}

}  // namespace
}  // namespace tarvin
