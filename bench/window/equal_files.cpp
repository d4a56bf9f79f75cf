#include "equal_files.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <filesystem>

namespace tarvin::bench {

namespace {

constexpr std::uint64_t filesOfFolder = 1000;
constexpr std::uint64_t sizes = 4000;  // the number of different sizes, so that few sets share one

constexpr std::array known{"jpg", "png", "gif", "tif", "mp4", "mov", "avi", "mp3", "m4a", "wav",
                           "pdf", "doc", "txt", "csv", "zip", "rar", "exe", "jar", "dll", "lnk"};

std::string extensionOf(std::uint64_t number) {
    return number < known.size() ? known[number] : "x" + std::to_string(number);
}

std::string contentOf(std::uint64_t set) {
    constexpr std::uint64_t stride = 7919;  // a prime, so that neighbouring sets differ in size
    std::string content = "set " + std::to_string(set) + "\n";
    content.resize(content.size() + set * stride % sizes, '.');
    return content;
}

bool write(const std::string& path, const std::string& content) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (file < 0) {
        return false;
    }
    const bool isWhole =
        ::write(file, content.data(), content.size()) == static_cast<ssize_t>(content.size());
    return ::close(file) == 0 && isWhole;
}

}  // namespace

bool writeEqualFiles(const std::string& folder, const EqualFiles& request) {
    std::uint64_t written = 0;
    std::string in;
    for (std::uint64_t set = 0; set < request.sets; ++set) {
        const std::string content = contentOf(set);
        const std::uint64_t copies =
            request.files / request.sets + (set < request.files % request.sets ? 1 : 0);
        for (std::uint64_t copy = 0; copy < copies; ++copy) {
            if (written % filesOfFolder == 0) {
                in = folder + "/" + std::to_string(written / filesOfFolder);
                std::filesystem::create_directories(in);
            }
            const std::string name = "file " + std::to_string(set) + " copy " +
                                     std::to_string(copy) + "." +
                                     extensionOf(set % request.extensions);
            if (!write(in + "/" + name, content)) {
                return false;
            }
            ++written;
        }
    }
    return true;
}

}  // namespace tarvin::bench
