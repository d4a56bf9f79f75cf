#include "report/list_reader.h"

#include "report/fake_report.h"
#include "report/result_writer.h"
#include "support/pipe.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <thread>
#include <variant>
#include <vector>

namespace tarvin {
namespace {

using Read = std::variant<ListedFiles, ListError>;

Read readFrom(const std::string& text) {
    Pipe pipe;
    std::thread writer([&] {
        Output output(pipe.writing());
        output.append(text);
        output.flush();
        pipe.closeWriting();
    });
    Read read = readListedFiles(pipe.reading());
    // The writer would get SIGPIPE if the rest were not read.
    static_cast<void>(pipe.readAll());
    writer.join();
    return read;
}

/// The list in one set.
std::string setOf(const std::string& files) {
    return R"({"categories": [{"extensions": [{"sets": [{"files": [)" + files + "]}]}]}]}";
}

/// A list without files, of this version.
std::string versioned(const std::string& version) {
    return R"({"version": )" + version + R"(, "categories": []})";
}

ListedFiles filesIn(const std::string& text) {
    Read read = readFrom(text);
    if (const auto* const error = std::get_if<ListError>(&read)) {
        ADD_FAILURE() << error->reason;
        return {};
    }
    return std::get<ListedFiles>(read);
}

std::string reasonIn(const std::string& text) {
    const Read read = readFrom(text);
    const auto* const error = std::get_if<ListError>(&read);
    return error == nullptr ? "" : error->reason;
}

TEST(ListReader, ReadsWhatTheWriterWrote) {
    MadeUpReport report;
    report.addSet(Category::image, {{"/p/a.jpg", 1000}, {"/p/\xFF.jpg", 1000}});
    report.addSet(Category::other, {{"/\u00E4 \"b\"\n.x", 1}, {"/c.x", 1}});
    report.addUnreadable("/closed", "Permission denied");
    report.markDuplicates();
    const ListedFiles files = filesIn(writtenBy(writeJson, report));
    ASSERT_EQ(files.size(), 4U);
    EXPECT_EQ(files[0].path, "/p/a.jpg");
    EXPECT_EQ(files[1].path, "/p/\xFF.jpg");
    EXPECT_EQ(files[2].path, "/\u00E4 \"b\"\n.x");
    EXPECT_EQ(files[0].set, files[1].set);
    EXPECT_LT(files[1].set, files[2].set);
    EXPECT_TRUE(files[0].keep);
    EXPECT_FALSE(files[1].keep);
    EXPECT_EQ(files[1].state, ListedState::usable);
}

TEST(ListReader, IgnoresOtherKeysAndTheirOrder) {
    const ListedFiles files = filesIn(
        R"({"note": {"sets": [[{"files": 1}]]}, "categories": [{"extensions": [{"sets": [{"x": 1.5,
            "files": [{"keep": true, "tags": ["a", {"keep": false}], "filePath": "/a"},
            {"filePath": "/b", "keep": null, "size": -1}]}], "name": "jpg"}]}]})");
    ASSERT_EQ(files.size(), 2U);
    EXPECT_EQ(files[0].path, "/a");
    EXPECT_TRUE(files[0].keep);
    EXPECT_EQ(files[1].path, "/b");
    EXPECT_FALSE(files[1].keep);
}

TEST(ListReader, AnEmptyListHasNoFiles) {
    EXPECT_TRUE(filesIn(R"({"categories": []})").empty());
    EXPECT_TRUE(filesIn(writtenBy(writeJson, MadeUpReport())).empty());
}

TEST(ListReader, TwoPathsThatDifferMakeAnEntryInexact) {
    const ListedFiles files = filesIn(setOf(R"({"filePath": "/a", "filePathBytes": "2f62"},
        {"filePath": "/a", "filePathBytes": "2f6"}, {"filePath": "/a", "filePathBytes": "2f61"})"));
    ASSERT_EQ(files.size(), 3U);
    EXPECT_EQ(files[0].state, ListedState::inexact);
    EXPECT_EQ(files[1].state, ListedState::inexact);
    EXPECT_EQ(files[2].state, ListedState::usable);
    EXPECT_EQ(files[2].path, "/a");
}

TEST(ListReader, RefusesAListThatIsCutOffAnywhere) {
    const std::string whole = setOf(R"({"filePath": "/a", "keep": true}, {"filePath": "/\u00e4"})");
    ASSERT_EQ(filesIn(whole).size(), 2U);
    for (std::size_t length = 1; length < whole.size(); ++length) {
        EXPECT_EQ(reasonIn(whole.substr(0, length)),
                  "it ends too early (byte " + std::to_string(length) + ")");
    }
    EXPECT_EQ(reasonIn(""), "it is empty");
}

TEST(ListReader, RefusesWhatIsNotJson) {
    EXPECT_EQ(reasonIn("category,extension\r\n"), "it is not JSON (byte 1)");
    EXPECT_EQ(reasonIn("{]"), "it is not JSON (byte 2)");
    EXPECT_EQ(reasonIn(setOf("") + "{}"), "it is not JSON (byte 62)");
    EXPECT_NE(reasonIn(setOf("{\"filePath\": \"/\xFF\"}")), "");
}

TEST(ListReader, RefusesOtherShapes) {
    const std::vector<std::pair<std::string, std::string>> rows = {
        {"[]", "it is not an object"},
        {"1", "it is not an object"},
        {"{}", "\"categories\" is missing"},
        {R"({"categories": {}})", "\"categories\" is not an array"},
        {R"({"categories": null})", "\"categories\" is not an array"},
        {R"({"categories": [[]]})", "an element of \"categories\" is not an object"},
        {R"({"categories": [{}]})", "\"extensions\" is missing"},
        {R"({"categories": [], "categories": []})", "\"categories\" is repeated"},
        {R"({"categories": [{"extensions": [{"sets": [{}]}]}]})", "\"files\" is missing"},
        {setOf("{}"), "\"filePath\" is missing"},
        {setOf("\"/a\""), "an element of \"files\" is not an object"},
        {setOf(R"({"filePath": 1})"), "\"filePath\" is not a text"},
        {setOf(R"({"filePath": null})"), "\"filePath\" is not a text"},
        {setOf(R"({"filePath": ["/a"]})"), "\"filePath\" is not a text"},
        {setOf(R"({"filePath": "/a", "filePathBytes": true})"), "\"filePathBytes\" is not a text"},
        {setOf(R"({"filePath": "/a", "keep": "true"})"), "\"keep\" is neither true nor false"},
        {setOf(R"({"filePath": "/a", "keep": 1})"), "\"keep\" is neither true nor false"},
        {setOf(R"({"filePath": "/a", "filePath": "/b"})"), "\"filePath\" is repeated"},
        {setOf(R"({"filePath": "/a", "keep": true, "keep": false})"), "\"keep\" is repeated"},
        {R"({"dryRun": true, "files": []})", "\"categories\" is missing"},
        {versioned("0"), "\"version\" is not a whole number from 1"},
        {versioned("-1"), "\"version\" is not a whole number from 1"},
        {versioned("1.0"), "\"version\" is not a whole number from 1"},
        {versioned("\"1\""), "\"version\" is not a whole number from 1"},
        {versioned("null"), "\"version\" is not a whole number from 1"},
        {versioned("true"), "\"version\" is not a whole number from 1"},
        {versioned("[1]"), "\"version\" is not a whole number from 1"},
        {versioned("{}"), "\"version\" is not a whole number from 1"},
        {versioned("1, \"version\": 1"), "\"version\" is repeated"},
    };
    for (const auto& [text, reason] : rows) {
        const std::string begin = "not a list of sets: " + reason + " (byte ";
        EXPECT_TRUE(reasonIn(text).starts_with(begin)) << text << ": " << reasonIn(text);
    }
}

TEST(ListReader, TakesItsOwnVersionAndListsWithoutOne) {
    EXPECT_EQ(reasonIn(versioned("1")), "");
    EXPECT_EQ(reasonIn(R"({"categories": []})"), "");
    EXPECT_EQ(reasonIn(R"({"categories": [{"version": 9, "extensions": [{"version": "x",
        "sets": [{"version": 0, "files": [{"version": [], "filePath": "/a"}]}]}]}]})"),
              "");
}

TEST(ListReader, RefusesANewerVersionWhereverItStands) {
    EXPECT_EQ(reasonIn(versioned("2")), "its version is 2, and this tarvin reads 1 (byte 14)");
    EXPECT_EQ(reasonIn(versioned("18446744073709551615")),
              "its version is 18446744073709551615, and this tarvin reads 1 (byte 33)");
    EXPECT_EQ(reasonIn(R"({"categories": [], "version": 2})"),
              "its version is 2, and this tarvin reads 1 (byte 32)");
}

TEST(ListReader, RefusesMoreBytesAndMoreFilesThanItsLimits) {
    const std::string two = setOf(R"({"filePath": "/a"}, {"filePath": "/b"})");
    const auto reasonWithin = [&two](const ListLimits& limits) {
        const std::string text = two;
        Pipe pipe;
        Output output(pipe.writing());
        output.append(text);
        EXPECT_TRUE(output.flush());
        pipe.closeWriting();
        const Read read = readListedFiles(pipe.reading(), limits);
        const auto* const error = std::get_if<ListError>(&read);
        return error == nullptr ? std::string() : error->reason;
    };
    EXPECT_EQ(reasonWithin({.bytes = two.size(), .files = 2}), "");
    EXPECT_EQ(reasonWithin({.bytes = two.size() - 1, .files = 2}),
              "it is longer than " + std::to_string(two.size() - 1) + " bytes");
    EXPECT_TRUE(reasonWithin({.bytes = two.size(), .files = 1})
                    .starts_with("not a list of sets: it has more than 1 file (byte "));
}

#ifdef TARVIN_SANITIZED
constexpr std::uint32_t sets = 50'000;
#else
constexpr std::uint32_t sets = 500'000;
#endif

/// A million files must be read in seconds, and in the memory of their paths.
TEST(ListReader, ReadsAMillionFilesThatAPipeSends) {
    Pipe pipe;
    std::thread writer([&] {
        Output output(pipe.writing());
        output.append(R"({"categories": [{"extensions": [{"sets": [)");
        for (std::uint32_t set = 0; set < sets; ++set) {
            output.append(set == 0 ? R"({"files": [{"filePath": "/a)"
                                   : R"(, {"files": [{"filePath": "/a)");
            output.appendNumber(set);
            output.append(R"(", "keep": true}, {"filePath": "/b)");
            output.appendNumber(set);
            output.append(R"("}]})");
        }
        output.append("]}]}]}");
        output.flush();
        pipe.closeWriting();
    });
    Read read = readListedFiles(pipe.reading());
    static_cast<void>(pipe.readAll());
    writer.join();
    ASSERT_TRUE(std::holds_alternative<ListedFiles>(read));
    ListedFiles& files = std::get<ListedFiles>(read);
    checkListedFiles(files);
    ASSERT_EQ(files.size(), 2 * sets);
    EXPECT_EQ(files.back().path, "/b" + std::to_string(sets - 1));
    EXPECT_EQ(files.back().set, sets - 1);
    EXPECT_EQ(files.back().state, ListedState::usable);
    EXPECT_FALSE(files.back().keep);
    EXPECT_TRUE(files[files.size() - 2].keep);
}

TEST(ListReader, RefusesValuesThatAreNestedDeeply) {
    EXPECT_TRUE(reasonIn(R"({"x": )" + std::string(1'000'000, '['))
                    .starts_with("not a list of sets: values are nested too deeply (byte "));
}

TEST(ListReader, RefusesTextsOfMoreThanAMegabyte) {
    const std::string most(std::size_t{1} << 20U, 'x');
    EXPECT_EQ(filesIn(setOf(R"({"filePath": ")" + most + "\"}"))[0].path.size(), most.size());
    EXPECT_TRUE(reasonIn(setOf(R"({"filePath": ")" + most + "xx\"}"))
                    .starts_with("a text is longer than 1 MiB (byte "));
    EXPECT_TRUE(reasonIn(R"({"x": 1)" + std::string(most.size() + 1, '0') + '}')
                    .starts_with("a text is longer than 1 MiB (byte "));
}

TEST(ListReader, ALongListWithEscapesHasNoLongText) {
    std::string many;
    for (int number = 0; number < 40'000; ++number) {
        many += R"({"filePath": "/\"\\\"quoted\\"},)";
    }
    many.pop_back();
    const ListedFiles files = filesIn(setOf(many));
    ASSERT_EQ(files.size(), 40'000U);
    EXPECT_EQ(files.back().path, R"(/"\"quoted\)");
}

TEST(ListReader, ReportsAReadError) {
    const int folder = ::open("/", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const Read read = readListedFiles(folder);
    ::close(folder);
    ASSERT_TRUE(std::holds_alternative<ListError>(read));
    EXPECT_EQ(std::get<ListError>(read).reason, "Is a directory");
}

}  // namespace
}  // namespace tarvin
