#include "rules/include_rules.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstddef>
#include <optional>
#include <sstream>

namespace tarvin {

namespace {

enum class Library {
    standard,
    system,
    glib,
    libheif,
    libplist,
    openjpeg,
    sqlite,
    utf8proc,
    xxhash,
    cli11,
    json,
    qt
};

/// What a folder may include besides itself and the standard library.
struct Layer {
    std::string_view folder;
    /// Folders, with a trailing slash, or single headers.
    std::array<std::string_view, 12> ours{};
    std::array<Library, 3> libraries{};
    /// Allowed in .cpp files, never in a header that others include.
    std::array<Library, 3> librariesInSources{};
};

constexpr std::array layers{
    Layer{.folder = "platform", .librariesInSources = {Library::system, Library::glib}},
    Layer{.folder = "model", .ours = {"platform/file_system.h", "platform/timestamp.h"}},
    Layer{.folder = "text", .librariesInSources = {Library::utf8proc}},
    Layer{.folder = "scan",
          .ours = {"model/", "platform/", "text/", "store/scan_memory.h", "store/store_error.h"},
          .librariesInSources = {Library::xxhash}},
    Layer{.folder = "store",
          .ours = {"platform/", "text/"},
          .librariesInSources = {Library::libplist, Library::sqlite}},
    Layer{.folder = "clean", .ours = {"model/", "platform/", "store/"}},
    Layer{.folder = "report",
          .ours = {"model/", "platform/", "scan/", "text/"},
          .librariesInSources = {Library::system, Library::json}},
    Layer{.folder = "preview",
          .ours = {"platform/confinement.h", "platform/conventions.h", "platform/file_system.h"},
          .libraries = {Library::qt},
          .librariesInSources = {Library::system, Library::libheif, Library::openjpeg}},
    Layer{.folder = "network", .libraries = {Library::qt}, .librariesInSources = {Library::system}},
    Layer{.folder = "controls", .libraries = {Library::qt}},
    Layer{.folder = "interface", .ours = {"controls/"}, .libraries = {Library::qt}},
    Layer{.folder = "controller",
          .ours = {"model/", "text/search_key.h", "text/shown_name.h", "scan/", "store/", "clean/",
                   "report/", "platform/", "preview/preview_format.h", "network/read_bounds.h",
                   "controls/", "interface/"},
          .libraries = {Library::qt}},
    Layer{.folder = "cli",
          .ours = {"model/", "scan/", "store/", "clean/", "report/", "platform/", "text/"},
          .libraries = {Library::cli11, Library::json},
          .librariesInSources = {Library::system}},
    Layer{.folder = "app",
          .ours = {"controller/", "interface/translation.h", "platform/conventions.h",
                   "platform/platform.h"},
          .libraries = {Library::qt}},
};

/// How to recognise a library's headers: a whole name, or a folder with a trailing slash.
struct HeaderOf {
    std::string_view name;
    Library library;
};

constexpr std::array headers{
    HeaderOf{"dirent.h", Library::system},      HeaderOf{"dlfcn.h", Library::system},
    HeaderOf{"errno.h", Library::system},       HeaderOf{"fcntl.h", Library::system},
    HeaderOf{"linux/", Library::system},        HeaderOf{"mntent.h", Library::system},
    HeaderOf{"poll.h", Library::system},        HeaderOf{"pthread.h", Library::system},
    HeaderOf{"pwd.h", Library::system},         HeaderOf{"signal.h", Library::system},
    HeaderOf{"spawn.h", Library::system},       HeaderOf{"sys/", Library::system},
    HeaderOf{"termios.h", Library::system},     HeaderOf{"unistd.h", Library::system},
    HeaderOf{"glib.h", Library::glib},          HeaderOf{"glib/", Library::glib},
    HeaderOf{"libheif/", Library::libheif},     HeaderOf{"openjpeg.h", Library::openjpeg},
    HeaderOf{"plist/", Library::libplist},      HeaderOf{"sqlite3.h", Library::sqlite},
    HeaderOf{"utf8proc.h", Library::utf8proc},  HeaderOf{"xxhash.h", Library::xxhash},
    HeaderOf{"CLI/", Library::cli11},           HeaderOf{"nlohmann/", Library::json},
    HeaderOf{"CommonCrypto/", Library::system}, HeaderOf{"mach/", Library::system},
    HeaderOf{"objc/", Library::system},
};

bool matches(std::string_view name, std::string_view pattern) {
    return pattern.ends_with('/') ? name.starts_with(pattern) : name == pattern;
}

bool isQt(std::string_view name) {
    return name.size() > 1 && name[0] == 'Q' &&
           (name[1] == 't' || std::isupper(static_cast<unsigned char>(name[1])) != 0);
}

bool isStandard(std::string_view name) {
    return name.find_first_of("./") == std::string_view::npos;
}

std::optional<Library> libraryOf(std::string_view name) {
    const auto* known =
        std::find_if(headers.begin(), headers.end(),
                     [name](const HeaderOf& header) { return matches(name, header.name); });
    if (known != headers.end()) {
        return known->library;
    }
    if (isQt(name)) {
        return Library::qt;
    }
    return isStandard(name) ? std::optional(Library::standard) : std::nullopt;
}

/// The words after "#include"; nullopt for other lines.
std::optional<std::string_view> includedBy(std::string_view line) {
    const auto skipBlanks = [&line] {
        line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    };
    skipBlanks();
    if (!line.starts_with('#')) {
        return std::nullopt;
    }
    line.remove_prefix(1);
    skipBlanks();
    constexpr std::string_view keyword = "include";
    if (!line.starts_with(keyword)) {
        return std::nullopt;
    }
    line.remove_prefix(keyword.size());
    skipBlanks();
    return line;
}

std::optional<std::string_view> between(std::string_view text, char open, char close) {
    if (!text.starts_with(open)) {
        return std::nullopt;
    }
    const std::size_t end = text.find(close, 1);
    if (end == std::string_view::npos) {
        return std::nullopt;
    }
    return text.substr(1, end - 1);
}

std::string judgeOurs(const Layer& layer, std::string_view name) {
    const bool own = name.substr(0, name.find('/')) == layer.folder && name != layer.folder;
    const bool allowed =
        own || std::any_of(layer.ours.begin(), layer.ours.end(), [name](std::string_view pattern) {
            return !pattern.empty() && matches(name, pattern);
        });
    if (allowed) {
        return {};
    }
    return std::string(layer.folder) + "/ may not include \"" + std::string(name) + '"';
}

std::string judgeLibrary(const Layer& layer, bool isHeader, std::string_view name) {
    const std::string quoted = '<' + std::string(name) + '>';
    const std::optional<Library> library = libraryOf(name);
    if (!library) {
        return quoted + " is of no library that the project uses";
    }
    const auto holds = [library](const std::array<Library, 3>& allowed) {
        return std::find(allowed.begin(), allowed.end(), *library) != allowed.end();
    };
    if (*library == Library::standard || holds(layer.libraries)) {
        return {};
    }
    if (!holds(layer.librariesInSources)) {
        return std::string(layer.folder) + "/ may not include " + quoted;
    }
    return isHeader ? "a header may not include " + quoted : std::string();
}

/// Why a line is not allowed in its file; empty if it is.
std::string judge(const Layer& layer, bool isHeader, std::string_view included) {
    if (const auto ours = between(included, '"', '"')) {
        return judgeOurs(layer, *ours);
    }
    if (const auto library = between(included, '<', '>')) {
        return judgeLibrary(layer, isHeader, *library);
    }
    return "an #include that names no file cannot be judged";
}

const Layer* layerOf(std::string_view path) {
    const std::string_view folder = path.substr(0, path.find('/'));
    const auto* layer =
        std::find_if(layers.begin(), layers.end(),
                     [folder](const Layer& candidate) { return candidate.folder == folder; });
    return layer == layers.end() || folder == path ? nullptr : layer;
}

}  // namespace

std::vector<std::string> includeBreaches(std::string_view path, std::string_view text) {
    const std::string name(path);
    const Layer* layer = layerOf(path);
    if (layer == nullptr) {
        return {name + ": in no folder of the layer table"};
    }
    std::vector<std::string> breaches;
    std::istringstream lines{std::string(text)};
    std::string line;
    for (std::size_t number = 1; std::getline(lines, line); ++number) {
        const std::optional<std::string_view> included = includedBy(line);
        const std::string reason =
            included ? judge(*layer, path.ends_with(".h"), *included) : std::string();
        if (!reason.empty()) {
            breaches.push_back(name + ':' + std::to_string(number) + ": " + reason);
        }
    }
    return breaches;
}

}  // namespace tarvin
