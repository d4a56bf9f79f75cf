#pragma once

#include "model/file.h"
#include "platform/file_system.h"
#include "platform/open_folder.h"

#include <chrono>
#include <list>
#include <memory>
#include <unordered_map>

namespace tarvin {

/// Keeps the folders open that files are moved out of, so that one is opened once and not for each
/// of its files. A folder is given out only while what stands at its path is what the scan walked.
/// One thread.
class OpenFolders final {
 public:
    /// `maxAge` is how long a folder that was looked at is believed to stand where it was. At most
    /// `maxOpen` folders are open.
    OpenFolders(FileSystem& fileSystem, std::chrono::milliseconds maxAge, std::size_t maxOpen)
        : fileSystem_(fileSystem), maxAge_(maxAge), maxOpen_(maxOpen) {}

    /// ESTALE if another folder stands at the path now; a link at its end is not followed, unless
    /// it is where the scan began. Stays open for as long as it is held.
    Result<std::shared_ptr<const OpenFolder>> open(const Directory& directory);

    /// Looks at every folder again when it is next asked for.
    void invalidate();

 private:
    using Clock = std::chrono::steady_clock;

    struct Kept {
        const Directory* directory = nullptr;
        std::shared_ptr<const OpenFolder> folder;
        Clock::time_point checkedAt;
    };

    Result<std::shared_ptr<const OpenFolder>> openAnew(const Directory& directory);

    FileSystem& fileSystem_;
    const std::chrono::milliseconds maxAge_;
    const std::size_t maxOpen_;
    std::list<Kept> kept_;  // the one asked for last comes first
    std::unordered_map<const Directory*, std::list<Kept>::iterator> byDirectory_;
};

}  // namespace tarvin
