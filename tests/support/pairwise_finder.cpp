#include "support/pairwise_finder.h"

#include "scan/category.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <optional>
#include <sstream>
#include <utility>

namespace tarvin {

namespace {

using Contents = std::map<const File*, std::optional<std::string>>;

std::optional<std::string> contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        return std::nullopt;
    }
    std::ostringstream content;
    content << file.rdbuf();
    return std::move(content).str();
}

bool areEqual(const File* one, const File* other, const Contents& contents) {
    return one->fileSize() == other->fileSize() && contents.at(one) &&
           contents.at(one) == contents.at(other);
}

}  // namespace

PlainResult findPairwise(std::vector<File*> list) {
    Contents contents;
    for (const File* file : list) {
        contents.emplace(file, contentOf(file->filePath()));
    }
    PlainResult result;
    while (!list.empty()) {
        const File* pivot = list.front();
        list.erase(list.begin());
        std::vector<std::string> group{pivot->filePath()};
        for (auto candidate = list.begin(); candidate != list.end();) {
            if (areEqual(pivot, *candidate, contents)) {
                group.push_back((*candidate)->filePath());
                candidate = list.erase(candidate);
            } else {
                ++candidate;
            }
        }
        if (group.size() < 2) {
            continue;
        }
        const std::string key = extensionKey(pivot->fileName());
        auto extension =
            std::find_if(result.begin(), result.end(),
                         [&key](const PlainExtension& known) { return known.name == key; });
        if (extension == result.end()) {
            extension = result.insert(result.end(), {key, {}});
        }
        extension->sets.push_back(group);
    }
    return result;
}

PlainResult plainResultOf(const Modal& modal) {
    PlainResult result;
    for (const auto& extension : modal.extensions()) {
        PlainExtension& plain = result.emplace_back();
        plain.name = extension->name();
        for (const auto& set : extension->sets()) {
            std::vector<std::string>& paths = plain.sets.emplace_back();
            for (const auto& file : set->files()) {
                paths.push_back(file->filePath());
            }
        }
    }
    return result;
}

std::string printed(const PlainResult& result) {
    std::ostringstream out;
    for (const PlainExtension& extension : result) {
        out << extension.name << '\n';
        for (const auto& set : extension.sets) {
            out << "  set\n";
            for (const std::string& path : set) {
                out << "    " << path << '\n';
            }
        }
    }
    return out.str();
}

}  // namespace tarvin
