// Times the clean-up of many sets of two files in the folder given, or in /var/tmp: how many files
// a second go to the Trash, beside the bare cost of as many notes written and files renamed, and
// how the walk alone grows with the number of sets.

#include "model/deletion_walk.h"
#include "model/file_store.h"
#include "platform/platform.h"
#include "scan/checked_trash.h"
#include "scan/duplicate_finder.h"
#include "work_folder.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace tarvin;
using tarvin::bench::WorkFolder;

constexpr std::size_t movedFiles = 5'000;

/// Moves nothing and says that it did.
class FreeTrash final : public Trash {
 public:
    bool fileExistsAtPath(const std::string& path) override {
        static_cast<void>(path);
        return true;
    }
    bool trashItemAtPath(const std::string& path) override {
        static_cast<void>(path);
        return true;
    }
};

template <typename Work>
double secondsFor(const Work& work) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

void write(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

/// A marked list of that many sets of two files, which need not be there.
std::shared_ptr<Modal> markedSets(FileStore& store, const std::string& folder, std::size_t count) {
    auto modal = std::make_shared<Modal>();
    const Directory* const in = store.addRoot(folder);
    for (std::size_t number = 0; number < count; ++number) {
        std::vector<std::shared_ptr<File>> set;
        for (const char* half : {"a", "b"}) {
            const std::string name = half + std::to_string(number) + ".jpg";
            const auto at = systemFileSystem().openDirectory(folder);
            const auto now = at ? systemFileSystem().attributesAt(*at, name.c_str())
                                : Result<FileAttributes>(SystemError{});
            set.push_back(store.share(store.addFile(
                in, name, now ? now->size : 1, now ? now->modified : std::nullopt, std::nullopt)));
        }
        fileSetUnderExtension(*modal, set);
    }
    modal->markAllExtension();
    return modal;
}

std::uint64_t movedBy(Modal& modal, Trash& trash, const DeletionWalk::BeforeSet& beforeSet = {}) {
    DeletionControl control;
    DeletionWalk walk(modal, trash, control, beforeSet);
    walk.start();
    return walk.wait().deletedFilesCount;
}

double cleanUp(const WorkFolder& folder) {
    const std::string photos = folder.pathOf("photos");
    std::filesystem::create_directory(photos);
    for (std::size_t number = 0; number < movedFiles; ++number) {
        for (const char* half : {"/a", "/b"}) {
            write(photos + half + std::to_string(number) + ".jpg",
                  "photo " + std::to_string(number));
        }
    }
    const std::shared_ptr<FileStore> store = FileStore::create();
    const std::shared_ptr<Modal> modal = markedSets(*store, photos, movedFiles);
    CheckedTrash trash(systemFileSystem(), systemTrash());
    std::uint64_t moved = 0;
    const double seconds = secondsFor([&] {
        moved = movedBy(*modal, trash, [&trash](const Set& set, const DeletionWalk::Progress&) {
            trash.beginSet(set);
        });
    });
    if (moved != movedFiles) {
        std::cerr << "Only " << moved << " files were moved.\n";
        std::exit(1);  // NOLINT(concurrency-mt-unsafe)
    }
    return seconds;
}

/// What nobody can do without: a note beside each file, and the file renamed.
double bareCost(const WorkFolder& folder) {
    for (const char* name : {"bare", "bare/files", "bare/info", "bare/from"}) {
        std::filesystem::create_directory(folder.pathOf(name));
    }
    for (std::size_t number = 0; number < movedFiles; ++number) {
        write(folder.pathOf("bare/from/b" + std::to_string(number) + ".jpg"),
              "photo " + std::to_string(number));
    }
    const std::string note =
        "[Trash Info]\nPath=" + std::string(60, 'x') + "\nDeletionDate=2026-01-31T12:00:00\n";
    return secondsFor([&] {
        for (std::size_t number = 0; number < movedFiles; ++number) {
            const std::string name = "b" + std::to_string(number) + ".jpg";
            write(folder.pathOf("bare/info/" + name + ".trashinfo"), note);
            std::filesystem::rename(folder.pathOf("bare/from/" + name),
                                    folder.pathOf("bare/files/" + name));
        }
    });
}

double walkOf(std::size_t sets) {
    const std::shared_ptr<FileStore> store = FileStore::create();
    const std::shared_ptr<Modal> modal = markedSets(*store, "/nowhere", sets);
    FreeTrash trash;
    return secondsFor([&] { movedBy(*modal, trash); });
}

}  // namespace

int main(int argc, char** argv) {
    const WorkFolder folder(argc > 1 ? argv[1] : "/var/tmp");
    // Before anything asks where the Trash is.
    ::setenv("XDG_DATA_HOME", folder.pathOf("data").c_str(), 1);  // NOLINT(concurrency-mt-unsafe)
    const double bare = bareCost(folder);
    const double cleaned = cleanUp(folder);
    std::printf("%zu files to the Trash: %.0f a second (%.3f s)\n", movedFiles,
                double{movedFiles} / cleaned, cleaned);
    std::printf("bare notes and renames:   %.0f a second (%.3f s), %.2f times as fast\n",
                double{movedFiles} / bare, bare, cleaned / bare);
    for (const std::size_t sets : {20'000U, 200'000U}) {
        const double seconds = walkOf(sets);
        std::printf("walk of %zu sets, nothing moved: %.3f s, %.2f us a set\n", sets, seconds,
                    seconds * 1e6 / static_cast<double>(sets));
    }
    return 0;
}
