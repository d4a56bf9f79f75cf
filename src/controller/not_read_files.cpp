#include "controller/not_read_files.h"

#include "controller/shown_numbers.h"

#include <algorithm>
#include <cerrno>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvin {

namespace {

/// A folder that could not be read; the path is in the ScanResult.
struct NotReadFolder {
    std::string_view path;
    SystemError error;
    bool isTrash = false;
};

/// Sorts a folder directly before everything below it: "/a", "/a/b", "/a b".
bool sortsBefore(const NotReadFolder& one, const NotReadFolder& other) {
    const auto rank = [](char byte) {
        return byte == '/' ? 0 : int{static_cast<unsigned char>(byte)};
    };
    return std::lexicographical_compare(
        one.path.begin(), one.path.end(), other.path.begin(), other.path.end(),
        [rank](char left, char right) { return rank(left) < rank(right); });
}

bool isInsideOrSame(std::string_view path, std::string_view folder) {
    return path.starts_with(folder) &&
           (path.size() == folder.size() || folder.ends_with('/') || path[folder.size()] == '/');
}

/// Sorts them and leaves out those inside another one.
std::vector<NotReadFolder> topmostOf(std::vector<NotReadFolder> folders) {
    std::stable_sort(folders.begin(), folders.end(), sortsBefore);
    std::vector<NotReadFolder> topmost;
    for (const NotReadFolder& folder : folders) {
        if (topmost.empty() || !isInsideOrSame(folder.path, topmost.back().path)) {
            topmost.push_back(folder);
        }
    }
    return topmost;
}

}  // namespace

NotReadFiles::NotReadFiles(const ScanResult& result) : files_(result.unreadable.files) {
    std::vector<NotReadFolder> folders;
    folders.reserve(result.unreadableLocations.size());
    for (const UnreadableLocation& location : result.unreadableLocations) {
        folders.push_back({location.path, location.error, location.isTrash});
    }
    for (const Unreadable& each : result.unreadable.kept) {
        if (each.isFolder) {
            folders.push_back({each.path, each.error});
        }
    }
    const std::size_t known = folders.size();
    folders = topmostOf(std::move(folders));
    folders_ =
        result.unreadable.folders + result.unreadableLocations.size() - (known - folders.size());
    for (const NotReadFolder& folder : folders) {
        add(folder.path,
            folder.isTrash ? tr("Trash folders are never scanned") : reasonOf(folder.error),
            FileReason::Kind::folder);
    }
    for (const Unreadable& each : result.unreadable.kept) {
        if (!each.isFolder) {
            add(each.path, each.hasChanged ? tr("Changed while it was read") : reasonOf(each.error),
                FileReason::Kind::file);
        }
    }
}

void NotReadFiles::add(std::string_view path, const QString& reason, FileReason::Kind kind) {
    if (static_cast<std::size_t>(reasons_.size()) < FileReasons::maxListed) {
        reasons_.push_back(fileReason(path, reason, kind));
    }
}

QString NotReadFiles::notice() const {
    const QString folders = ShownNumbers::count(folders_);
    const QString files = ShownNumbers::count(files_);
    if (folders_ == 0 && files_ == 0) {
        return {};
    }
    if (files_ == 0) {
        return folders_ == 1 ? tr("1 folder could not be read.")
                             : tr("%1 folders could not be read.").arg(folders);
    }
    if (folders_ == 0) {
        return files_ == 1 ? tr("1 file could not be read.")
                           : tr("%1 files could not be read.").arg(files);
    }
    if (folders_ == 1) {
        return files_ == 1 ? tr("1 folder and 1 file could not be read.")
                           : tr("1 folder and %1 files could not be read.").arg(files);
    }
    return files_ == 1 ? tr("%1 folders and 1 file could not be read.").arg(folders)
                       : tr("%1 folders and %2 files could not be read.").arg(folders, files);
}

QString NotReadFiles::reasonOf(SystemError error) {
    switch (error.code) {
        case EACCES:
        case EPERM:
            return tr("Permission denied");
        case EIO:
            return tr("Input/output error");
        case ENOENT:
            return tr("Not there any more");
        case ETIMEDOUT:
        case EHOSTDOWN:
        case EHOSTUNREACH:
        case ENETDOWN:
        case ENETUNREACH:
        case ENOTCONN:
        case ECONNRESET:
            return tr("Stopped answering");
        default:
            return QString::fromStdString(error.text());
    }
}

}  // namespace tarvin
