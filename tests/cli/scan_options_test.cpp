#include "cli/scan_options.h"

#include "cli/usage_texts.h"

#include <CLI/CLI.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {
namespace {

using Words = std::vector<std::string>;

/// The options of a command line, or the error.
struct Parsed {
    ScanOptions options;
    std::string error;
};

Parsed parsed(Words words) {
    Parsed result;
    CLI::App command;
    addScanOptions(command, result.options);
    std::reverse(words.begin(), words.end());
    try {
        command.parse(std::move(words));
    } catch (const CLI::ParseError& error) {
        result.error = usageErrorText(error, command);
    }
    return result;
}

TEST(ScanOptions, AFolderIsEnough) {
    const Parsed result = parsed({"photos"});
    EXPECT_EQ(result.error, "");
    EXPECT_EQ(result.options.folders, Words{"photos"});
    EXPECT_EQ(result.options.format, ResultFormat::text);
    EXPECT_EQ(result.options.output, "-");
    EXPECT_TRUE(result.options.useExceptions);
    EXPECT_EQ(result.options.exceptionsFile, std::nullopt);
    EXPECT_EQ(result.options.progress, ProgressWhen::automatic);
}

TEST(ScanOptions, OptionsMayStandBetweenTheFolders) {
    const Parsed result = parsed({"a", "--format", "json", "b", "--output=o.json", "c d"});
    EXPECT_EQ(result.error, "");
    EXPECT_EQ(result.options.folders, (Words{"a", "b", "c d"}));
    EXPECT_EQ(result.options.format, ResultFormat::json);
    EXPECT_EQ(result.options.output, "o.json");
}

TEST(ScanOptions, FormatAndOutputHaveShortNames) {
    for (const Words& words : {Words{"-f", "json", "-o", "r", "a"}, Words{"-fjson", "a", "-or"}}) {
        const Parsed result = parsed(words);
        EXPECT_EQ(result.error, "");
        EXPECT_EQ(result.options.folders, Words{"a"});
        EXPECT_EQ(result.options.format, ResultFormat::json);
        EXPECT_EQ(result.options.output, "r");
    }
}

TEST(ScanOptions, AcceptsEveryFormat) {
    EXPECT_EQ(parsed({"--format", "text", "a"}).options.format, ResultFormat::text);
    EXPECT_EQ(parsed({"--format", "json", "a"}).options.format, ResultFormat::json);
    EXPECT_EQ(parsed({"--format", "csv", "a"}).options.format, ResultFormat::csv);
}

TEST(ScanOptions, AcceptsEveryProgressMode) {
    EXPECT_EQ(parsed({"--progress", "auto", "a"}).options.progress, ProgressWhen::automatic);
    EXPECT_EQ(parsed({"--progress", "always", "a"}).options.progress, ProgressWhen::always);
    EXPECT_EQ(parsed({"--progress", "never", "a"}).options.progress, ProgressWhen::never);
}

TEST(ScanOptions, TheLastOfTwoValuesWins) {
    const Parsed result =
        parsed({"--format", "csv", "--output", "1", "--format", "json", "--output", "2", "a"});
    EXPECT_EQ(result.error, "");
    EXPECT_EQ(result.options.format, ResultFormat::json);
    EXPECT_EQ(result.options.output, "2");
}

TEST(ScanOptions, ADashIsAnOutput) {
    const Parsed result = parsed({"--output", "-", "a"});
    EXPECT_EQ(result.error, "");
    EXPECT_EQ(result.options.output, "-");
}

TEST(ScanOptions, ExceptionsCanBeIgnoredOrReadFromAFile) {
    EXPECT_FALSE(parsed({"--no-exceptions", "a"}).options.useExceptions);
    EXPECT_EQ(parsed({"--exceptions", "list", "a"}).options.exceptionsFile, "list");
}

TEST(ScanOptions, TheExceptionsOptionsCannotBeCombined) {
    const std::string error = "--no-exceptions and --exceptions cannot be combined";
    EXPECT_EQ(parsed({"--no-exceptions", "--exceptions", "list", "a"}).error, error);
    EXPECT_EQ(parsed({"--exceptions", "list", "--no-exceptions", "a"}).error, error);
}

TEST(ScanOptions, AnInvalidValueIsRefused) {
    EXPECT_EQ(parsed({"--format", "xml", "a"}).error,
              "invalid value 'xml' for --format: expected text, json or csv");
    EXPECT_EQ(
        parsed({"--format", "JSON", "a"}).error,
        "invalid value 'JSON' for --format: expected text, json or csv; did you mean 'json'?");
    EXPECT_EQ(parsed({"--progress", "", "a"}).error, "missing value for --progress");
}

TEST(ScanOptions, AnOverriddenValueMustBeValidToo) {
    EXPECT_NE(parsed({"--format", "xml", "--format", "json", "a"}).error, "");
}

TEST(ScanOptions, WithoutFiltersSkipNothing) {
    const ScanFilter filter = parsed({"a"}).options.filter;
    EXPECT_TRUE(filter.excluded.empty());
    EXPECT_TRUE(filter.takesSize(0));
    EXPECT_FALSE(filter.skipHidden);
    EXPECT_FALSE(filter.oneFileSystem);
}

TEST(ScanOptions, FiltersAreTaken) {
    const Parsed result = parsed({"--exclude=[ab]", "--exclude=c", "a", "--min-size", "1KB",
                                  "--max-size=2MiB", "--skip-hidden", "b", "--one-file-system"});
    EXPECT_EQ(result.error, "");
    EXPECT_EQ(result.options.folders, (Words{"a", "b"}));
    EXPECT_EQ(result.options.filter.excluded.size(), 2U);
    EXPECT_EQ(result.options.filter.minSize, 1'000U);
    EXPECT_EQ(result.options.filter.maxSize, 2'097'152U);
    EXPECT_TRUE(result.options.filter.skipHidden);
    EXPECT_TRUE(result.options.filter.oneFileSystem);
}

TEST(ScanOptions, AListTakesThePlaceOfFolders) {
    for (const Words& words :
         {Words{"--files-from", "list", "-0"}, Words{"--null", "--files-from=list"}}) {
        const Parsed result = parsed(words);
        EXPECT_EQ(result.error, "");
        EXPECT_EQ(result.options.filesFrom, Words{"list"});
        EXPECT_TRUE(result.options.listIsNullTerminated);
    }
    EXPECT_EQ(parsed({"--files-from", "-", "a"}).options.filesFrom, Words{"-"});
    EXPECT_EQ(parsed({"--files-from", "b", "--files-from=a"}).options.filesFrom, (Words{"b", "a"}));
    EXPECT_EQ(parsed({"a", "-0"}).error, "--null requires --files-from");
}

TEST(ScanOptions, AMissingFolderIsRefused) {
    EXPECT_EQ(parsed({}).error, "missing argument: FOLDER");
}

TEST(ScanOptions, AMissingValueIsRefused) {
    for (const char* option : {"--format", "--output", "--exceptions", "--progress", "--exclude",
                               "--min-size", "--max-size", "--files-from"}) {
        EXPECT_EQ(parsed({"a", option}).error, std::string("missing value for ") + option);
    }
}

TEST(ScanOptions, AnUnknownOptionIsRefused) {
    EXPECT_NE(parsed({"a", "--recursive"}).error.find("--recursive"), std::string::npos);
    EXPECT_NE(parsed({"a", "-r"}).error.find("-r"), std::string::npos);
    EXPECT_NE(parsed({"a", "--form", "json"}).error.find("--form"), std::string::npos);
}

}  // namespace
}  // namespace tarvin
