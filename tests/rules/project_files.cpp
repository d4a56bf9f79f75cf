#include "rules/project_files.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace tarvin {

namespace {

namespace fs = std::filesystem;

bool isCpp(const fs::path& file) {
    return file.extension() == ".cpp" || file.extension() == ".h";
}

bool asksForBash(const fs::path& file) {
    std::ifstream in(projectRoot() / file);
    std::string firstLine;
    std::getline(in, firstLine);
    return firstLine.starts_with('#') && firstLine.find("bash") != std::string::npos;
}

}  // namespace

fs::path projectRoot() {
    return TARVIN_SOURCE_DIR;
}

std::string readProjectFile(const fs::path& file) {
    std::ifstream in(projectRoot() / file, std::ios::binary);
    if (!in) {
        throw std::runtime_error("cannot read " + file.string());
    }
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::vector<fs::path> cppFilesBelow(std::string_view folder) {
    std::vector<fs::path> files;
    for (const fs::directory_entry& entry :
         fs::recursive_directory_iterator(projectRoot() / folder)) {
        if (entry.is_regular_file() && isCpp(entry.path())) {
            files.push_back(entry.path().lexically_relative(projectRoot()));
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::vector<fs::path> bashScripts() {
    std::vector<fs::path> scripts;
    for (const char* folder : {".", ".ci", "scripts", "bench"}) {
        for (const fs::directory_entry& entry : fs::directory_iterator(projectRoot() / folder)) {
            const fs::path file = entry.path().lexically_normal().lexically_relative(projectRoot());
            if (entry.is_regular_file() && asksForBash(file)) {
                scripts.push_back(file);
            }
        }
    }
    std::sort(scripts.begin(), scripts.end());
    return scripts;
}

}  // namespace tarvin
