#include "cli/program_run.h"
#include "support/file_content.h"
#include "support/pseudo_terminal.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>

namespace tarvin {
namespace {

using Words = ProgramRun::Words;

/// The output of a program whose standard output and error are one terminal.
std::string drawnBy(const Words& arguments, ProgramSetting setting = {}) {
    PseudoTerminal terminal;
    setting.output = terminal.programsEnd();
    setting.errors = terminal.programsEnd();
    ProgramRun run(arguments, setting);
    terminal.closeProgramsEnd();
    std::string drawn = terminal.readAll();
    run.wait();
    return drawn;
}

/// Two equal files and a missing folder, on a terminal of some type.
class Color : public testing::Test {
 protected:
    Color() {
        folder_.writeFile("a.jpg", "photo");
        folder_.writeFile("b.jpg", "photo");
    }

    [[nodiscard]] Words scan(Words options = {}) const {
        options.insert(options.begin(),
                       {"scan", "--progress", "never", folder_.path(), "/nonexistent"});
        return options;
    }

    [[nodiscard]] std::string drawn(const Words& options, const std::string& terminalKind = "xterm",
                                    const std::string& noColor = "") const {
        return drawnBy(scan(options),
                       {.environment = {{"TERM", terminalKind}, {"NO_COLOR", noColor}}});
    }

    TemporaryFolder folder_;
};

constexpr char escape = '\x1B';

/// The text without colour sequences and with the newlines of a file.
std::string withoutColor(std::string text) {
    for (const std::string mark : {"\x1B[1m", "\x1B[31m", "\x1B[0m", "\r"}) {
        for (std::size_t at = 0; (at = text.find(mark)) != std::string::npos;) {
            text.erase(at, mark.size());
        }
    }
    return text;
}

/// Without the elapsed time.
std::string beforeTheTime(const std::string& text) {
    return text.substr(0, text.find("Elapsed Time"));
}

TEST_F(Color, HeadingsAreBoldAndMessagesBeginInRedOnATerminal) {
    const std::string text = drawn({});
    EXPECT_THAT(text, testing::StartsWith("\x1B[31mtarvin:\x1B[0m cannot read '/nonexistent': "));
    EXPECT_THAT(text, testing::HasSubstr("\n\x1B[1mImage\x1B[0m\r\n  jpg\r\n"
                                         "    \x1B[1mSet(1)  0.00 KB each\x1B[0m\r\n      /"));
    EXPECT_THAT(drawn({"--color", "auto"}), testing::HasSubstr("\x1B[1mImage"));
    EXPECT_THAT(drawnBy({"scna"}, {.environment = {{"TERM", "xterm"}, {"NO_COLOR", ""}}}),
                testing::StartsWith("\x1B[31mtarvin:\x1B[0m unknown command 'scna'"));
}

TEST_F(Color, ChangesNoText) {
    const ProgramResult piped = runTarvin(scan());
    EXPECT_EQ(beforeTheTime(withoutColor(drawn({}))), beforeTheTime(piped.errors + piped.output));
}

TEST_F(Color, IsNotUsedInAPipeOrFileByDefault) {
    const ProgramSetting xterm{.environment = {{"TERM", "xterm"}, {"NO_COLOR", ""}}};
    for (const Words& options : {Words{}, Words{"--color=auto"}, Words{"--color=never"}}) {
        const ProgramResult piped = runTarvin(scan(options), xterm);
        EXPECT_EQ((piped.output + piped.errors).find(escape), std::string::npos);
    }
    // Standard output is a terminal, but the result goes to a file.
    const std::string file = folder_.pathOf("result");
    EXPECT_THAT(drawn({"--output", file}), testing::HasSubstr("/nonexistent"));
    EXPECT_EQ(contentOf(file).find(escape), std::string::npos);
    const ProgramResult always = runTarvin(scan({"--color=always"}), xterm);
    EXPECT_THAT(always.output, testing::StartsWith("\x1B[1mImage\x1B[0m\n"));
    EXPECT_THAT(always.errors, testing::StartsWith("\x1B[31mtarvin:\x1B[0m "));
}

TEST_F(Color, IsDisabledByOptionEnvironmentAndTerminalType) {
    EXPECT_EQ(drawn({"--color", "never"}).find(escape), std::string::npos);
    EXPECT_EQ(drawn({}, "xterm", "1").find(escape), std::string::npos);
    EXPECT_EQ(drawn({}, "xterm", "0").find(escape), std::string::npos);
    EXPECT_EQ(drawn({}, "dumb").find(escape), std::string::npos);
    EXPECT_EQ(drawn({}, "").find(escape), std::string::npos);
    EXPECT_THAT(drawn({"--color", "always"}, "dumb", "1"), testing::HasSubstr("\x1B[1mImage"));
    // Also for a command line that is rejected in the middle.
    EXPECT_THAT(drawnBy({"scan", "--color=never", "/", "--format"},
                        {.environment = {{"TERM", "xterm"}, {"NO_COLOR", ""}}}),
                testing::StartsWith("tarvin: missing value for --format"));
}

TEST_F(Color, IsNotUsedInJsonAndCsv) {
    for (const char* format : {"json", "csv"}) {
        EXPECT_EQ(runTarvin(scan({"--color", "always", "--format", format})).output.find(escape),
                  std::string::npos)
            << format;
    }
}

/// Whether the text begins with a control sequence or character. `before` is the preceding byte.
bool steersTheTerminal(std::string_view text, unsigned char before) {
    const auto byte = [text](std::size_t position) {
        return position < text.size() ? static_cast<unsigned char>(text[position]) : 0U;
    };
    const bool isC1 = byte(0) >= 0x80 && byte(0) <= 0x9F && (before < 0x80 || before == 0xC2);
    const bool isDirection =
        (text.starts_with("\xE2\x80") &&
         ((byte(2) >= 0x8E && byte(2) <= 0x8F) || (byte(2) >= 0xA8 && byte(2) <= 0xAE))) ||
        (text.starts_with("\xE2\x81") && byte(2) >= 0xA6 && byte(2) <= 0xA9);
    if (byte(0) == '\r') {
        return byte(1) != '\n' && byte(1) != '\r';
    }
    return (byte(0) < 0x20 && byte(0) != '\n') || byte(0) == 0x7F || isC1 || isDirection;
}

/// The output from the first control sequence on; empty if there is none.
std::string_view steeringIn(std::string_view drawn) {
    unsigned char before = 0;
    while (!drawn.empty() && !steersTheTerminal(drawn, before)) {
        before = static_cast<unsigned char>(drawn.front());
        drawn.remove_prefix(1);
    }
    return drawn;
}

/// Equal files and a folder whose names have control characters.
class HostileNames : public testing::Test {
 protected:
    HostileNames() {
        int number = 0;
        for (const char* part : {"\x1B[31m", "\x1B]0;title\x07", "\u009B31m", "\x7F\b\b", "\r",
                                 "\nMoved", "\u202Egpj", "\u2066", "\u2028",
                                 "\x9B"
                                 "1m",
                                 "\t"}) {
            folder_.writeFile("photos/" + std::to_string(++number) + part + "x.e" + part, "same");
            folder_.writeFile("photos/" + std::to_string(number) + part + "y.e" + part, "same");
        }
    }

    [[nodiscard]] std::string photos() const { return folder_.pathOf("photos"); }

    void expectHarmless(const Words& arguments) const {
        const std::string drawn =
            drawnBy(arguments,
                    {.environment = {{"XDG_DATA_HOME", folder_.pathOf("data")}, {"TERM", "dumb"}}});
        EXPECT_NE(drawn, "") << arguments.front();
        EXPECT_EQ(steeringIn(drawn), "") << arguments.front();
        EXPECT_EQ(drawn.find("\nMovedx"), std::string::npos) << drawn;
    }

    TemporaryFolder folder_;
};

TEST_F(HostileNames, ReachNoTerminalFromAScan) {
    for (const char* format : {"text", "json", "csv"}) {
        expectHarmless({"scan", "--format", format, photos()});
    }
}

TEST_F(HostileNames, ReachNoTerminalFromACleanUp) {
    for (const char* format : {"text", "json", "csv"}) {
        expectHarmless({"clean", "-n", "--format", format, photos()});
    }
    expectHarmless({"clean", "-y", photos()});
}

TEST_F(HostileNames, ReachNoTerminalFromAMessage) {
    const std::string name = "\x1B[31m\u009B\x7F\u202E\n\x9B";
    for (const Words& arguments : {Words{name},
                                   {"scan", name},
                                   {"scan", "--output", name + "/x", "/nonexistent"},
                                   {"scan", "--exceptions", name, "/nonexistent"},
                                   {"scan", "--format", name, "/"},
                                   {"scan", "--" + name, "/"},
                                   {"scan", "-" + name, "/"},
                                   {"help", name},
                                   {"exceptions", name},
                                   {"exceptions", "add", name},
                                   {"totals", name},
                                   {"scan", "--output", "-" + name, "/"},
                                   {"scan", "--yes=" + name, "/"}}) {
        expectHarmless(arguments);
    }
}

TEST_F(HostileNames, ReachNoTerminalFromTheExceptions) {
    Words add{"exceptions", "add"};
    for (const auto& entry : std::filesystem::directory_iterator(photos())) {
        add.push_back(entry.path());
    }
    expectHarmless(add);
    expectHarmless({"exceptions", "list"});
}

TEST_F(HostileNames, AreWrittenUnchangedToAPipe) {
    const std::string csv = runTarvin({"scan", "--format", "csv", photos()}).output;
    EXPECT_THAT(csv, testing::HasSubstr(photos() + "/1\x1B[31mx.e\x1B[31m,\r\n"));
    EXPECT_THAT(csv, testing::HasSubstr(photos() + "/3\u009B31mx.e\u009B31m,\r\n"));
}

}  // namespace
}  // namespace tarvin
