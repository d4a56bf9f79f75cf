#include "work_folder.h"

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <system_error>

namespace tarvin::bench {

WorkFolder::WorkFolder(const std::string& in) : path_(in + "/tarvin-bench-XXXXXX") {
    if (::mkdtemp(path_.data()) == nullptr) {
        std::cerr << "No folder can be made in " << in << '\n';
        std::exit(1);  // NOLINT(concurrency-mt-unsafe)
    }
}

WorkFolder::~WorkFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

}  // namespace tarvin::bench
