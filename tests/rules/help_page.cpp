#include "rules/help_page.h"

#include <glib.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <set>
#include <sstream>
#include <utility>

namespace tarvin {

namespace {

constexpr std::string_view doctype = "<!DOCTYPE html>\n";
constexpr std::string_view blanks = " \t\n";

/// An element of the page with all text inside it.
struct Element {
    std::string name;
    std::string parent;  // its name; empty for the root
    std::map<std::string, std::string, std::less<>> attributes;
    std::string text;
    int line = 0;  // from 1
    bool isInContents = false;

    /// Empty if missing.
    [[nodiscard]] std::string attribute(std::string_view key) const {
        const auto found = attributes.find(key);
        return found == attributes.end() ? std::string() : found->second;
    }
};

/// The elements in document order, and the open ones.
struct Page {
    std::vector<Element> elements;
    std::vector<std::size_t> open;
};

Page& pageOf(gpointer data) {
    return *static_cast<Page*>(data);
}

void beginElement(GMarkupParseContext* context, const gchar* name, const gchar** keys,
                  const gchar** values, gpointer data, GError** error) {
    Page& page = pageOf(data);
    Element element;
    element.name = name;
    element.parent = page.open.empty() ? "" : page.elements[page.open.back()].name;
    g_markup_parse_context_get_position(context, &element.line, nullptr);
    for (; *keys != nullptr; ++keys, ++values) {
        if (!element.attributes.emplace(*keys, *values).second) {
            g_set_error(error, g_quark_from_static_string("help-page"), 0, "%s stands twice",
                        *keys);
            return;
        }
    }
    element.isInContents = element.name == "nav" ||
                           (!page.open.empty() && page.elements[page.open.back()].isInContents);
    page.open.push_back(page.elements.size());
    page.elements.push_back(std::move(element));
}

void endElement(GMarkupParseContext* /*context*/, const gchar* /*name*/, gpointer data,
                GError** /*error*/) {
    pageOf(data).open.pop_back();
}

void takeText(GMarkupParseContext* /*context*/, const gchar* text, gsize length, gpointer data,
              GError** /*error*/) {
    Page& page = pageOf(data);
    for (const std::size_t position : page.open) {
        page.elements[position].text.append(text, length);
    }
}

/// The elements of the page, at least one, or why it is not well-formed.
std::pair<Page, std::string> parse(const std::string& text) {
    constexpr GMarkupParser parser{beginElement, endElement, takeText, nullptr, nullptr};
    Page page;
    const std::unique_ptr<GMarkupParseContext, decltype(&g_markup_parse_context_free)> context(
        g_markup_parse_context_new(&parser, GMarkupParseFlags{}, &page, nullptr),
        &g_markup_parse_context_free);
    GError* error = nullptr;
    std::string failure;
    if (g_markup_parse_context_parse(context.get(), text.data(), static_cast<gssize>(text.size()),
                                     &error) == 0 ||
        g_markup_parse_context_end_parse(context.get(), &error) == 0) {
        failure = error->message;
        g_error_free(error);
    } else if (page.elements.empty()) {
        failure = "it has no element";
    }
    return {std::move(page), std::move(failure)};
}

/// The text with white space collapsed and trimmed.
std::string joined(std::string_view text) {
    std::istringstream words{std::string(text)};
    std::string out;
    for (std::string word; words >> word;) {
        out += out.empty() ? word : ' ' + word;
    }
    return out;
}

bool mentions(std::string_view text, std::string_view wanted) {
    return text.find(wanted) != std::string_view::npos;
}

/// 0 if it is not a heading.
int headingLevel(const Element& element) {
    const std::string& name = element.name;
    const bool isHeading = name.size() == 2 && name[0] == 'h' && name[1] >= '1' && name[1] <= '6';
    return isHeading ? name[1] - '0' : 0;
}

/// 0 if it is not a number.
std::int64_t numberIn(const std::string& text) {
    std::int64_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [stopped, failure] = std::from_chars(text.data(), end, number);
    return failure == std::errc() && stopped == end ? number : 0;
}

/// The manual page without troff requests: "\-" becomes a hyphen, font and space escapes are
/// removed.
std::string readable(std::string_view manual) {
    std::string out;
    for (std::size_t at = 0; at < manual.size(); ++at) {
        if (manual[at] == '"') {
            continue;
        }
        if (manual[at] != '\\' || at + 1 == manual.size()) {
            out += manual[at];
            continue;
        }
        ++at;
        if (manual[at] == '-') {
            out += '-';
        }
    }
    return out;
}

bool isOfAWord(char byte) {
    return std::isalnum(static_cast<unsigned char>(byte)) != 0 || byte == '-' || byte == '_';
}

/// Whether `text` has `wanted` as a whole word.
bool holdsWord(std::string_view text, std::string_view wanted) {
    for (std::size_t at = text.find(wanted); at != std::string_view::npos;
         at = text.find(wanted, at + 1)) {
        const std::size_t end = at + wanted.size();
        if ((at == 0 || !isOfAWord(text[at - 1])) &&
            (end == text.size() || !isOfAWord(text[end]))) {
            return true;
        }
    }
    return false;
}

/// Element names, each between spaces, and their allowed parents.
struct Rule {
    std::string_view elements;
    std::string_view parents;
};

constexpr std::string_view sections = " body main section div nav header figure li dd td th ";
constexpr std::string_view phrases =
    " p h1 h2 h3 h4 a span em strong code kbd li dt dd td th caption figcaption pre div header nav "
    "section ";

constexpr std::array rules{
    Rule{" html ", ""},
    Rule{" head body ", " html "},
    Rule{" meta title style ", " head "},
    Rule{" header main nav section div p ul ol dl pre table figure h1 h2 h3 h4 ", sections},
    Rule{" li ", " ul ol "},
    Rule{" dt dd ", " dl "},
    Rule{" caption thead tbody ", " table "},
    Rule{" tr ", " thead tbody "},
    Rule{" td th ", " tr "},
    Rule{" figcaption ", " figure "},
    Rule{" img ", " figure section p div "},
    Rule{" a span em strong code kbd ", phrases},
    Rule{" svg ", " header div span p h1 "},
    Rule{" rect path circle ", " svg "},
};

bool holdsName(std::string_view names, const std::string& name) {
    return name.empty() ? names.empty() : names.find(' ' + name + ' ') != std::string_view::npos;
}

/// Checks one page and collects its breaches.
class PageCheck final {
 public:
    PageCheck(const std::vector<Element>& elements, const Pictures& pictures,
              const std::string& manual)
        : elements_(elements), pictures_(pictures), manual_(manual) {}

    std::vector<std::string> breaches() {
        checkHead();
        checkStyle();
        for (const Element& element : elements_) {
            checkSelfContained(element);
            checkPlace(element);
        }
        checkLinks();
        checkPictures();
        checkHeadings();
        checkCommands();
        return std::move(breaches_);
    }

 private:
    void addBreach(const std::string& what) { breaches_.push_back(what); }

    void addBreach(const Element& where, const std::string& what) {
        addBreach("line " + std::to_string(where.line) + ": " + what);
    }

    [[nodiscard]] std::vector<const Element*> all(std::string_view name) const {
        std::vector<const Element*> found;
        for (const Element& element : elements_) {
            if (element.name == name) {
                found.push_back(&element);
            }
        }
        return found;
    }

    [[nodiscard]] bool anyMeta(std::string_view key, std::string_view value) const {
        const std::vector<const Element*> metas = all("meta");
        return std::any_of(metas.begin(), metas.end(),
                           [&](const Element* meta) { return meta->attribute(key) == value; });
    }

    void checkHead() {
        const std::vector<const Element*> titles = all("title");
        if (elements_.front().name != "html" || elements_.front().attribute("lang") != "en") {
            addBreach("the page is not html with lang=\"en\"");
        }
        if (!anyMeta("charset", "utf-8")) {
            addBreach("the page does not state its character set");
        }
        if (!anyMeta("name", "viewport")) {
            addBreach("the page does not fit itself to small screens");
        }
        if (titles.size() != 1 || joined(titles.front()->text).empty()) {
            addBreach("the page has not one title");
        }
    }

    void checkStyle() {
        std::string style;
        for (const Element* each : all("style")) {
            style += each->text;
        }
        for (const char* wanted : {"color-scheme: light dark;", "(prefers-color-scheme: dark)",
                                   "@media print", "@media (max-width:"}) {
            if (!mentions(style, wanted)) {
                addBreach(std::string("the style lacks ") + wanted);
            }
        }
        for (const char* unwanted : {"url(", "@import", "http:", "https:"}) {
            if (mentions(style, unwanted)) {
                addBreach(std::string("the style fetches something: ") + unwanted);
            }
        }
    }

    /// No attribute runs code or fetches a resource; elements that do are not allowed at all.
    void checkSelfContained(const Element& element) {
        for (const auto& [key, value] : element.attributes) {
            if (key.starts_with("on") || key == "srcset" || key == "http-equiv" ||
                mentions(value, "://") || mentions(value, "javascript:") ||
                mentions(value, "url(")) {
                addBreach(element, key + " reaches outside the page");
            }
        }
    }

    /// Only known elements, each where HTML allows it.
    void checkPlace(const Element& element) {
        const auto rule = std::find_if(rules.begin(), rules.end(), [&](const Rule& each) {
            return holdsName(each.elements, element.name);
        });
        if (rule == rules.end()) {
            addBreach(element, "there is no use for " + element.name);
        } else if (!holdsName(rule->parents, element.parent)) {
            addBreach(element, element.name + " does not belong into " + element.parent);
        }
    }

    void checkLinks() {
        std::set<std::string> ids;
        for (const Element& element : elements_) {
            const std::string id = element.attribute("id");
            if (element.attributes.contains("id") && !ids.insert(id).second) {
                addBreach(element, "the id " + id + " is given twice");
            }
        }
        for (const Element& element : elements_) {
            const std::string labels = element.attribute("aria-labelledby");
            if (!labels.empty() && !ids.contains(labels)) {
                addBreach(element, "there is no id " + labels);
            }
            if (element.name != "a") {
                continue;
            }
            const std::string target = element.attribute("href");
            if (!target.starts_with('#')) {
                addBreach(element, "the link to '" + target + "' leaves the page");
            } else if (!ids.contains(target.substr(1))) {
                addBreach(element, "the link " + target + " leads nowhere");
            }
        }
    }

    void checkPictures() {
        std::set<std::string> used;
        for (const Element* image : all("img")) {
            const std::string name = image->attribute("src");
            used.insert(name);
            if (joined(image->attribute("alt")).empty()) {
                addBreach(*image, "the picture " + name + " has no text in its place");
            }
            const auto file = pictures_.find(name);
            if (file == pictures_.end()) {
                addBreach(*image, "there is no picture " + name);
            } else if (!isOfProportion(*image, file->second)) {
                addBreach(*image, "the picture " + name + " is drawn out of proportion");
            }
        }
        for (const auto& [name, size] : pictures_) {
            if (!used.contains(name)) {
                addBreach("the picture " + name + " is not used");
            }
        }
    }

    /// Rounded to pixels.
    static bool isOfProportion(const Element& image, const PictureSize& file) {
        const std::int64_t width = numberIn(image.attribute("width"));
        const std::int64_t height = numberIn(image.attribute("height"));
        const std::int64_t difference = width * file.height - height * file.width;
        return width > 0 && height > 0 &&
               (difference < 0 ? -difference : difference) * 2 <= std::int64_t{file.width};
    }

    void checkHeadings() {
        const std::map<std::string, std::string> contents = linksOfContents();
        int before = 0;
        int titles = 0;
        for (const Element& element : elements_) {
            const int level = headingLevel(element);
            if (level == 0) {
                continue;
            }
            if (level > before + 1) {
                addBreach(element, element.name + " skips a level");
            }
            before = level;
            titles += level == 1 ? 1 : 0;
            const auto entry = contents.find('#' + element.attribute("id"));
            if (level > 1 && (entry == contents.end() || entry->second != joined(element.text))) {
                addBreach(element,
                          "'" + joined(element.text) + "' is not in the table of contents");
            }
        }
        if (titles != 1) {
            addBreach("the page has not one h1");
        }
    }

    /// Link texts of the table of contents, by target.
    [[nodiscard]] std::map<std::string, std::string> linksOfContents() const {
        std::map<std::string, std::string> links;
        for (const Element* link : all("a")) {
            if (link->isInContents) {
                links[link->attribute("href")] = joined(link->text);
            }
        }
        return links;
    }

    void checkCommands() {
        for (const Element* code : all("code")) {
            std::istringstream lines(code->text);
            for (std::string line; std::getline(lines, line);) {
                if (line.starts_with("$ ")) {
                    line.erase(0, 2);
                }
                if (line.starts_with("tarvin ")) {
                    checkCommand(*code, line);
                } else if (line.starts_with("--")) {
                    checkCommand(*code, "tarvin " + line);
                }
            }
        }
    }

    /// The program, its command and every option; other words are examples.
    void checkCommand(const Element& code, const std::string& line) {
        std::istringstream words(line);
        std::string program;
        std::string word;
        words >> program;
        bool isCommand = true;
        while (words >> word) {
            const bool isOption = word.starts_with('-');
            isCommand = isCommand && std::all_of(word.begin(), word.end(), [](char byte) {
                            return byte >= 'a' && byte <= 'z';
                        });
            if ((isOption || isCommand) && !holdsWord(manual_, word)) {
                addBreach(code, "the manual does not know " + word + " of '" + line + "'");
            }
        }
    }

    const std::vector<Element>& elements_;
    const Pictures& pictures_;
    const std::string& manual_;
    std::vector<std::string> breaches_;
};

std::uint32_t bigEndian(std::string_view bytes) {
    std::uint32_t number = 0;
    for (const char byte : bytes) {
        number = number << 8U | static_cast<unsigned char>(byte);
    }
    return number;
}

}  // namespace

std::optional<PictureSize> sizeOfPng(std::string_view file) {
    using namespace std::string_view_literals;
    // The header chunk comes first; its first two numbers are the size.
    constexpr std::string_view beginning = "\x89PNG\r\n\x1a\n\0\0\0\x0dIHDR"sv;
    if (!file.starts_with(beginning) || file.size() < beginning.size() + 8) {
        return std::nullopt;
    }
    return PictureSize{bigEndian(file.substr(beginning.size(), 4)),
                       bigEndian(file.substr(beginning.size() + 4, 4))};
}

HelpPageChecker::HelpPageChecker(Pictures pictures, std::string_view manual)
    : pictures_(std::move(pictures)), manual_(readable(manual)) {}

std::vector<std::string> HelpPageChecker::breaches(const std::string& page) const {
    if (!page.starts_with(doctype)) {
        return {"the page does not begin with <!DOCTYPE html>"};
    }
    const auto [parsed, failure] = parse(page);
    if (!failure.empty()) {
        return {"the page is not well-formed: " + failure};
    }
    return PageCheck(parsed.elements, pictures_, manual_).breaches();
}

}  // namespace tarvin
