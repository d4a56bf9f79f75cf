#include "cleaned_tree.h"

#include "platform/platform.h"
#include "scan/scan_run.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <iterator>
#include <string_view>
#include <system_error>

namespace tarvin::bench {

namespace {

[[noreturn]] void fail(const std::string& what) {
    std::cerr << what << '\n';
    std::exit(1);  // NOLINT(concurrency-mt-unsafe)
}

void write(const std::string& path, std::string_view bytes) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    const bool isWritten = file >= 0 && ::write(file, bytes.data(), bytes.size()) ==
                                            static_cast<ssize_t>(bytes.size());
    if (file < 0 || ::close(file) != 0 || !isWritten) {
        fail("No file can be written at " + path);
    }
}

void makeFolder(const std::string& path) {
    if (::mkdir(path.c_str(), 0700) != 0) {
        fail("No folder can be made at " + path);
    }
}

/// A few hundred sizes, so that the scan has as many size classes as in a real tree.
std::string contentOf(std::size_t number) {
    return "photo " + std::to_string(number) + std::string(number % 331, '.');
}

}  // namespace

void writeTree(const std::string& folder, const CleanedTree& tree) {
    makeFolder(folder);
    for (const std::string_view half : {"/keep", "/copies"}) {
        const bool isCopies = half == "/copies";
        const std::string top = folder + std::string(half);
        makeFolder(top);
        std::string in;
        for (std::size_t number = 0; number < tree.files; ++number) {
            if (number % tree.perFolder == 0) {
                // At most 1,000 subfolders in a folder.
                const std::size_t count = number / tree.perFolder;
                const std::string above = top + '/' + std::to_string(count / 1000);
                if (count % 1000 == 0) {
                    makeFolder(above);
                }
                in = above + '/' + std::to_string(count % 1000);
                makeFolder(in);
            }
            const std::string name = isCopies && tree.oneName
                                         ? "/photo.jpg"
                                         : "/photo-" + std::to_string(number) + ".jpg";
            write(in + name, contentOf(number));
        }
    }
}

std::shared_ptr<Modal> scanTree(const std::string& folder, std::size_t sets) {
    ScanObserver observer;
    ScanRun run(systemPlatform(), observer);
    run.start({{folder + "/keep", "", "", true, true}, {folder + "/copies", "", "", true, true}},
              {});
    run.wait();
    std::shared_ptr<Modal> modal = run.result().modal;
    if (modal == nullptr || modal->totalFiles() != sets) {
        fail("The scan did not find the sets of " + folder);
    }
    modal->markAllExtension();
    return modal;
}

std::vector<MarkedFile> markedFiles(const Modal& modal) {
    std::vector<MarkedFile> marked;
    for (const auto& extension : modal.extensions()) {
        for (const auto& set : extension->sets()) {
            for (const auto& file : set->files()) {
                if (file->state() == CheckState::on) {
                    marked.push_back({file->directory()->path(), std::string(file->fileName())});
                }
            }
        }
    }
    return marked;
}

std::size_t entriesIn(const std::string& folder) {
    std::error_code missing;
    const std::filesystem::directory_iterator entries(folder, missing);
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

}  // namespace tarvin::bench
