#include "rules/help_page.h"

#include "rules/project_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

namespace fs = std::filesystem;

constexpr const char* helpFolder = "resources/help";

constexpr std::string_view manual =
    ".TH TARVIN 1\n"
    ".B tarvin scan\n"
    "looks, and\n"
    ".B tarvin exceptions\n"
    ".BR list \" | \" add\n"
    ".RB [ \\-\\-format\n"
    ".BR text | json\n"
    ".BR \\-\\-dry\\-run ]\n";

/// A valid page with three sections and one image.
const std::string& goodPage() {
    static const std::string page =
        R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8"/>
<meta name="viewport" content="width=device-width"/>
<title>Guide</title>
<style>
:root { color-scheme: light dark; }
@media (prefers-color-scheme: dark) { p { color: white; } }
@media (max-width: 40rem) { p { margin: 0; } }
@media print { nav { display: none; } }
</style>
</head>
<body>
<h1>Guide</h1>
<nav><a href="#one">First  &amp;
<em>foremost</em></a><a href="#two">Second</a><a href="#three">Third</a></nav>
<section aria-labelledby="one"><h2 id="one">First &amp; foremost</h2>
<img src="window.png" width="508" height="266" alt="The window"/></section>
<h3 id="two">Second</h3>
<pre><code>$ tarvin scan --format json ~/Pictures
tarvin exceptions add keep.jpg
found: tarvin-4.jpg</code></pre>
<h2 id="three">Third</h2>
</body>
</html>
)";
    return page;
}

/// The valid page with the first `old`, which must exist, replaced.
std::string pageWith(std::string_view old, std::string_view replacement) {
    std::string page = goodPage();
    const std::size_t at = page.find(old);
    EXPECT_NE(at, std::string::npos) << old;
    return at == std::string::npos ? page : page.replace(at, old.size(), replacement);
}

std::vector<std::string> breachesOf(const std::string& page) {
    return HelpPageChecker({{"window.png", {1016, 531}}}, manual).breaches(page);
}

std::vector<std::string> breachesWith(std::string_view old, std::string_view replacement) {
    return breachesOf(pageWith(old, replacement));
}

TEST(HelpPageChecker, APageInOrderHasNoBreach) {
    EXPECT_THAT(breachesOf(goodPage()), IsEmpty());
}

TEST(HelpPageChecker, APageBeginsWithItsKind) {
    EXPECT_THAT(breachesWith("<!DOCTYPE html>\n", ""),
                ElementsAre("the page does not begin with <!DOCTYPE html>"));
    EXPECT_THAT(breachesOf(""), ElementsAre("the page does not begin with <!DOCTYPE html>"));
}

TEST(HelpPageChecker, APageIsWellFormed) {
    const auto isReported =
        ElementsAre(testing::StartsWith("the page is not well-formed: Error on line 1"));
    EXPECT_THAT(breachesWith("</h1>", "</h2>"), isReported);
    EXPECT_THAT(breachesWith("<meta charset=\"utf-8\"/>", "<br>"), ElementsAre(testing::_));
    EXPECT_THAT(breachesWith("id=\"one\"", "id=one"), isReported);
    EXPECT_THAT(breachesWith("&amp;", "&"), isReported);
    EXPECT_THAT(breachesWith("&amp;", "&nbsp;"), isReported);
    EXPECT_THAT(breachesWith("<h1>", "<h1>\xFF"), ElementsAre(testing::_));
    EXPECT_THAT(breachesWith("</html>\n", ""), ElementsAre(testing::_));
    EXPECT_THAT(breachesOf("<!DOCTYPE html>\n"),
                ElementsAre("the page is not well-formed: it has no element"));
}

TEST(HelpPageChecker, ThePageHasElementsItHasAUseFor) {
    EXPECT_THAT(breachesWith("<h1>Guide</h1>", "<h1>Guide</h1><blink>new</blink>"),
                ElementsAre("line 15: there is no use for blink"));
}

TEST(HelpPageChecker, AnElementStandsWhereItBelongs) {
    const auto added = [](const std::string& elements) {
        return breachesWith("<h1>Guide</h1>", "<h1>Guide</h1>" + elements);
    };
    EXPECT_THAT(added("<ul><li><p>A <em>word</em></p></li></ul>"), IsEmpty());
    EXPECT_THAT(added("<p><div>in</div></p>"), ElementsAre("line 15: div does not belong into p"));
    EXPECT_THAT(added("<p><p>in</p></p>"), ElementsAre("line 15: p does not belong into p"));
    EXPECT_THAT(added("<ul><p>in</p></ul>"), ElementsAre("line 15: p does not belong into ul"));
    EXPECT_THAT(added("<li>out</li>"), ElementsAre("line 15: li does not belong into body"));
    EXPECT_THAT(added("<table><tr><td>in</td></tr></table>"),
                ElementsAre("line 15: tr does not belong into table"));
}

TEST(HelpPageChecker, AnAttributeStandsOnce) {
    EXPECT_THAT(breachesWith("alt=\"The window\"", "alt=\"The\" alt=\"window\""),
                ElementsAre("the page is not well-formed: alt stands twice"));
}

TEST(HelpPageChecker, ThePageStatesItsLanguageCharactersAndTitle) {
    EXPECT_THAT(breachesWith(" lang=\"en\"", ""),
                ElementsAre("the page is not html with lang=\"en\""));
    EXPECT_THAT(breachesWith("<meta charset=\"utf-8\"/>\n", ""),
                ElementsAre("the page does not state its character set"));
    EXPECT_THAT(breachesWith("name=\"viewport\"", "name=\"author\""),
                ElementsAre("the page does not fit itself to small screens"));
    EXPECT_THAT(breachesWith("<title>Guide</title>\n", ""),
                ElementsAre("the page has not one title"));
    EXPECT_THAT(breachesWith("<title>Guide<", "<title> <"),
                ElementsAre("the page has not one title"));
}

TEST(HelpPageChecker, TheStyleHasBothColorSchemesPaperAndSmallScreens) {
    EXPECT_THAT(breachesWith("color-scheme: light dark;", ""),
                ElementsAre("the style lacks color-scheme: light dark;"));
    EXPECT_THAT(breachesWith("(prefers-color-scheme: dark)", "(color)"),
                ElementsAre("the style lacks (prefers-color-scheme: dark)"));
    EXPECT_THAT(breachesWith("@media print", "@media tv"),
                ElementsAre("the style lacks @media print"));
    EXPECT_THAT(breachesWith("(max-width:", "(max-height:"),
                ElementsAre("the style lacks @media (max-width:"));
}

TEST(HelpPageChecker, TheStyleFetchesNothing) {
    EXPECT_THAT(breachesWith("color: white;", "background: url(paper.png);"),
                ElementsAre("the style fetches something: url("));
    EXPECT_THAT(breachesWith("<style>", "<style>@import 'more.css';"),
                ElementsAre("the style fetches something: @import"));
}

TEST(HelpPageChecker, NothingIsRun) {
    EXPECT_THAT(breachesWith("<h1>", "<script>run()</script><h1>"),
                ElementsAre("line 15: there is no use for script"));
    EXPECT_THAT(breachesWith("<h1>", "<h1 onclick=\"run()\">"),
                ElementsAre("line 15: onclick reaches outside the page"));
}

TEST(HelpPageChecker, NothingIsFetchedFromOutside) {
    EXPECT_THAT(breachesWith("<title>", "<link rel=\"icon\" href=\"a.png\"/><title>"),
                ElementsAre("line 6: there is no use for link"));
    EXPECT_THAT(breachesWith("<h1>", "<h1 cite=\"https://example.org\">"),
                ElementsAre("line 15: cite reaches outside the page"));
    EXPECT_THAT(breachesWith("<h1>", "<h1 style=\"background: url(a.png)\">"),
                ElementsAre("line 15: style reaches outside the page"));
    EXPECT_THAT(breachesWith("alt=\"The", "srcset=\"window.png 2x\" alt=\"The"),
                ElementsAre("line 19: srcset reaches outside the page"));
    EXPECT_THAT(breachesWith("src=\"window.png\"", "src=\"../window.png\""),
                ElementsAre("line 19: there is no picture ../window.png",
                            "the picture window.png is not used"));
}

TEST(HelpPageChecker, LinksStayInThePage) {
    EXPECT_THAT(breachesWith("<h1>Guide", "<h1><a href=\"more.html\">Guide</a>"),
                ElementsAre("line 15: the link to 'more.html' leaves the page"));
    EXPECT_THAT(breachesWith("<h1>Guide", "<h1><a href=\"https://example.org\">Guide</a>"),
                ElementsAre("line 15: href reaches outside the page",
                            "line 15: the link to 'https://example.org' leaves the page"));
    EXPECT_THAT(breachesWith("<h1>Guide", "<h1><a href=\"#four\">Guide</a>"),
                ElementsAre("line 15: the link #four leads nowhere"));
    EXPECT_THAT(breachesWith("<h1>Guide", "<h1><a href=\"#\">Guide</a>"),
                ElementsAre("line 15: the link # leads nowhere"));
    EXPECT_THAT(breachesWith("aria-labelledby=\"one\"", "aria-labelledby=\"four\""),
                ElementsAre("line 18: there is no id four"));
}

TEST(HelpPageChecker, AnIdIsGivenOnce) {
    EXPECT_THAT(breachesWith("<pre>", "<pre id=\"one\">"),
                ElementsAre("line 21: the id one is given twice"));
}

TEST(HelpPageChecker, APictureIsThereAndHasATextInItsPlace) {
    EXPECT_THAT(breachesWith("alt=\"The window\"", ""),
                ElementsAre("line 19: the picture window.png has no text in its place"));
    EXPECT_THAT(breachesWith("alt=\"The window\"", "alt=\" \""),
                ElementsAre("line 19: the picture window.png has no text in its place"));
    EXPECT_THAT(
        breachesWith("src=\"window.png\"", "src=\"door.png\""),
        ElementsAre("line 19: there is no picture door.png", "the picture window.png is not used"));
}

TEST(HelpPageChecker, APictureKeepsItsProportion) {
    EXPECT_THAT(breachesWith("width=\"508\" height=\"266\"", "width=\"1016\" height=\"531\""),
                IsEmpty());
    for (const char* wrong : {"width=\"508\" height=\"267\"", "width=\"508\"", "height=\"266\"",
                              "width=\"50%\" height=\"266\"", "width=\"0\" height=\"0\""}) {
        EXPECT_THAT(breachesWith("width=\"508\" height=\"266\"", wrong),
                    ElementsAre("line 19: the picture window.png is drawn out of proportion"))
            << wrong;
    }
}

TEST(HelpPageChecker, HeadingsSkipNoLevel) {
    EXPECT_THAT(breachesWith("<h3 id=\"two\">Second</h3>", "<h4 id=\"two\">Second</h4>"),
                ElementsAre("line 20: h4 skips a level"));
    EXPECT_THAT(breachesWith("<h1>Guide</h1>", "<p>Guide</p>"),
                ElementsAre("line 18: h2 skips a level", "the page has not one h1"));
    EXPECT_THAT(breachesWith("</body>", "<h1>Again</h1></body>"),
                ElementsAre("the page has not one h1"));
}

TEST(HelpPageChecker, EveryHeadingIsInTheTableOfContents) {
    EXPECT_THAT(breachesWith("<a href=\"#two\">Second</a>", ""),
                ElementsAre("line 20: 'Second' is not in the table of contents"));
    EXPECT_THAT(breachesWith("<h3 id=\"two\">Second</h3>", "<p id=\"two\"/><h3>Second</h3>"),
                ElementsAre("line 20: 'Second' is not in the table of contents"));
    EXPECT_THAT(breachesWith("id=\"two\">Second", "id=\"two\">Next"),
                ElementsAre("line 20: 'Next' is not in the table of contents"));
}

TEST(HelpPageChecker, ALinkElsewhereIsNoTableOfContents) {
    EXPECT_THAT(breachesWith("<a href=\"#three\">Third</a></nav>",
                             "</nav><p><a href=\"#three\">Third</a></p>"),
                ElementsAre("line 24: 'Third' is not in the table of contents"));
}

TEST(HelpPageChecker, TheManualKnowsEveryCommand) {
    EXPECT_THAT(
        breachesWith("tarvin scan", "tarvin find"),
        ElementsAre(
            "line 21: the manual does not know find of 'tarvin find --format json ~/Pictures'"));
    EXPECT_THAT(
        breachesWith("exceptions add", "exceptions drop"),
        ElementsAre("line 21: the manual does not know drop of 'tarvin exceptions drop keep.jpg'"));
}

TEST(HelpPageChecker, TheManualKnowsEveryOption) {
    EXPECT_THAT(breachesWith("--format", "--dry-run"), IsEmpty());
    EXPECT_THAT(
        breachesWith("--format", "--form"),
        ElementsAre(
            "line 21: the manual does not know --form of 'tarvin scan --form json ~/Pictures'"));
    EXPECT_THAT(breachesWith("--format", "--run"),
                ElementsAre("line 21: the manual does not know --run of 'tarvin scan --run json "
                            "~/Pictures'"));
    EXPECT_THAT(breachesWith("<h1>Guide", "<h1><code>tarvin --purge</code>"),
                ElementsAre("line 15: the manual does not know --purge of 'tarvin --purge'"));
}

TEST(HelpPageChecker, TheManualKnowsAnOptionThatStandsAlone) {
    EXPECT_THAT(breachesWith("<h1>Guide", "<h1><code>--dry-run</code>"), IsEmpty());
    EXPECT_THAT(breachesWith("<h1>Guide", "<h1><code>--purge</code>"),
                ElementsAre("line 15: the manual does not know --purge of 'tarvin --purge'"));
}

TEST(SizeOfPng, IsWhatTheHeadStates) {
    const std::string head("\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\x03\xF8\0\0\x02\x13", 24);
    const auto size = sizeOfPng(head);
    ASSERT_TRUE(size);
    EXPECT_EQ(size->width, 1016U);
    EXPECT_EQ(size->height, 531U);
    EXPECT_FALSE(sizeOfPng(head.substr(0, 23)));
    EXPECT_FALSE(sizeOfPng("GIF89a" + head));
    EXPECT_FALSE(sizeOfPng(""));
}

/// The images in the folder of the page, which must have no other files.
Pictures picturesOfThePage() {
    Pictures pictures;
    for (const fs::directory_entry& entry : fs::directory_iterator(projectRoot() / helpFolder)) {
        const std::string name = entry.path().filename().string();
        if (name == "index.html") {
            continue;
        }
        const auto size = sizeOfPng(readProjectFile(fs::path(helpFolder) / name));
        EXPECT_TRUE(size) << name << " is no picture";
        pictures[name] = size.value_or(PictureSize{});
    }
    return pictures;
}

TEST(HelpPage, IsInOrder) {
    const Pictures pictures = picturesOfThePage();
    EXPECT_FALSE(pictures.empty());
    const HelpPageChecker checker(pictures, readProjectFile("packaging/man/tarvin.1"));
    EXPECT_THAT(checker.breaches(readProjectFile("resources/help/index.html")), IsEmpty());
}

TEST(HelpPage, IsSharedWithAllItsPictures) {
    const std::string rules = readProjectFile("resources/CMakeLists.txt");
    EXPECT_THAT(rules, testing::HasSubstr("help/index.html"));
    for (const auto& [name, size] : picturesOfThePage()) {
        EXPECT_THAT(rules, testing::HasSubstr("help/" + name));
    }
}

TEST(HelpPage, IsQuickToOpen) {
    constexpr std::size_t largestPicture = 250'000;
    for (const auto& [name, size] : picturesOfThePage()) {
        EXPECT_LT(readProjectFile(fs::path(helpFolder) / name).size(), largestPicture) << name;
    }
}

}  // namespace
}  // namespace tarvin
