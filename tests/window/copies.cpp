#include "window/copies.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace tarvin {

namespace {

namespace fs = std::filesystem;

std::string contentOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void writeSet(const std::string& folder, const Copies& kind, int set) {
    constexpr int setsInAFolder = 100;
    const std::string name = kind.extension + std::to_string(set) + "." + kind.extension;
    std::string content = name;
    content.resize(bytesOfEachCopy, '.');
    for (int copy = 0; copy < kind.copies; ++copy) {
        const fs::path subfolder = fs::path(folder) / ("copy" + std::to_string(copy)) /
                                   std::to_string(set / setsInAFolder);
        if (set % setsInAFolder == 0) {
            fs::create_directories(subfolder);
        }
        std::ofstream(subfolder / name, std::ios::binary) << content;
    }
}

/// The path in the line "Path=/home/user/letter.txt". Names in tests need no percent-decoding.
std::string placeBefore(const fs::path& information) {
    const std::string path = "\nPath=";
    const std::string text = contentOf(information);
    const std::size_t begin = text.find(path);
    if (!text.starts_with("[Trash Info]\n") || begin == std::string::npos) {
        return {};
    }
    return text.substr(begin + path.size(), text.find('\n', begin + 1) - begin - path.size());
}

}  // namespace

void writeCopies(const std::string& folder, const std::vector<Copies>& all) {
    for (const Copies& kind : all) {
        for (int set = 0; set < kind.sets; ++set) {
            writeSet(folder, kind, set);
        }
    }
}

std::map<std::string, std::string> filesBelow(const std::string& folder) {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file()) {
            files.emplace(entry.path().string(), contentOf(entry.path()));
        }
    }
    return files;
}

std::map<std::string, std::string> trashedFiles(const std::string& dataFolder) {
    const fs::path trash = fs::path(dataFolder) / "Trash";
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::directory_iterator(trash / "files")) {
        const fs::path name = entry.path().filename();
        const std::string before = placeBefore(trash / "info" / (name.string() + ".trashinfo"));
        EXPECT_FALSE(before.empty()) << name << " cannot be put back";
        EXPECT_TRUE(files.emplace(before, contentOf(entry.path())).second) << before << " twice";
    }
    const fs::directory_iterator information(trash / "info");
    EXPECT_EQ(std::distance(begin(information), end(information)),
              static_cast<std::ptrdiff_t>(files.size()));
    return files;
}

}  // namespace tarvin
