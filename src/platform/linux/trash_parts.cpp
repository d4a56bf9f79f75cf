#include "platform/linux/trash_parts.h"

#include "platform/file_paths.h"

#include <sys/stat.h>

#include <cerrno>
#include <utility>

namespace tarvin {

namespace {

constexpr std::array partNames{"", "files", "info"};

/// Creates a folder and its missing parents, for the user alone.
int makeWithParents(TrashCalls& calls, const std::string& path) {
    const int failure = calls.makeFolder(TrashCalls::currentFolder, path.c_str());
    const std::size_t slash = path.rfind('/');
    if (failure != ENOENT || slash == std::string::npos || slash == 0) {
        return failure;
    }
    const int above = makeWithParents(calls, path.substr(0, slash));
    if (above != 0 && above != EEXIST) {
        return above;
    }
    return calls.makeFolder(TrashCalls::currentFolder, path.c_str());
}

}  // namespace

TrashRefusal systemRefusal(int code) {
    const SystemError error{code};
    return {TrashRefusalKind::system, error, error.text()};
}

Result<TrashParts, TrashRefusal> TrashParts::open(const TrashRequest& request, TrashCalls& calls) {
    TrashParts parts(request, calls);
    if (auto refusal = parts.openAll()) {
        return std::move(*refusal);
    }
    return parts;
}

std::optional<TrashRefusal> TrashParts::openAll() {
    Descriptor shared;
    int parent = TrashCalls::currentFolder;
    std::string name = request_.path;
    if (request_.isShared) {
        if (auto refusal = openShared(shared)) {
            return refusal;
        }
        parent = shared.number();
        name.erase(0, name.rfind('/') + 1);
    }
    for (std::size_t at = 0; at < partCount; ++at) {
        const std::string path = pathIn(request_.path, partNames[at]);
        if (auto refusal =
                openPart(parts_[at], parent, at == trashPart ? name : partNames[at], path)) {
            return refusal;
        }
        parent = parts_[trashPart].folder.number();
    }
    return std::nullopt;
}

/// Opens the ".Trash" that the users of a volume share.
std::optional<TrashRefusal> TrashParts::openShared(Descriptor& shared) const {
    const std::string path = sharedPath();
    int number = -1;
    int failure = calls_.openFolder(TrashCalls::currentFolder, path.c_str(), number);
    if (failure != 0) {
        return openRefusal(failure, path);
    }
    shared = Descriptor(systemFileSystem(), number);
    TrashEntryStatus status;
    failure = calls_.statusOf(number, status);
    if (failure != 0) {
        return systemRefusal(failure);
    }
    if ((status.mode & S_ISVTX) == 0) {
        return TrashRefusal{TrashRefusalKind::notPrivate, {EPERM}, path + " has no sticky bit"};
    }
    return std::nullopt;
}

std::string TrashParts::sharedPath() const {
    return request_.path.substr(0, request_.path.rfind('/'));
}

std::optional<TrashRefusal> TrashParts::openPart(Part& part, int parent, const std::string& name,
                                                 const std::string& path) {
    int number = -1;
    int failure = calls_.openFolder(parent, name.c_str(), number);
    if (failure == ENOENT && request_.make) {
        failure = parent == TrashCalls::currentFolder ? makeWithParents(calls_, name)
                                                      : calls_.makeFolder(parent, name.c_str());
        if (failure == 0 || failure == EEXIST) {
            failure = calls_.openFolder(parent, name.c_str(), number);
        }
    }
    if (failure != 0) {
        return openRefusal(failure, path);
    }
    part.folder = Descriptor(systemFileSystem(), number);
    TrashEntryStatus status;
    failure = calls_.statusOf(number, status);
    if (failure != 0) {
        return systemRefusal(failure);
    }
    part.identity = status.identity;
    return statusRefusal(status, path);
}

TrashRefusal TrashParts::openRefusal(int code, const std::string& path) const {
    // With O_DIRECTORY and O_NOFOLLOW a symbolic link fails with ENOTDIR, like a file.
    TrashEntryStatus status;
    if ((code == ENOTDIR || code == ELOOP) &&
        calls_.status(TrashCalls::currentFolder, path.c_str(), status) == 0) {
        if (S_ISLNK(status.mode)) {
            return {TrashRefusalKind::link, {ELOOP}, path + " is a link"};
        }
        if (!S_ISDIR(status.mode)) {
            return {TrashRefusalKind::notFolder, {ENOTDIR}, path + " is not a folder"};
        }
    }
    TrashRefusal refusal = systemRefusal(code);
    if (code == ENOENT && !request_.make) {
        refusal.kind = TrashRefusalKind::gone;
    }
    return refusal;
}

std::optional<TrashRefusal> TrashParts::statusRefusal(const TrashEntryStatus& status,
                                                      const std::string& path) const {
    if (status.owner != request_.user) {
        const char* const whose = request_.isHome
                                      ? "the Trash of the home folder belongs to somebody else"
                                      : "the Trash of this volume belongs to somebody else";
        return TrashRefusal{TrashRefusalKind::notOurs, {EPERM}, whose};
    }
    if (request_.keepsRights && (status.mode & (S_IWGRP | S_IWOTH)) != 0) {
        return TrashRefusal{
            TrashRefusalKind::notPrivate, {EPERM}, path + " can be changed by others"};
    }
    return std::nullopt;
}

bool TrashParts::isIntact() const {
    TrashEntryStatus status;
    if (request_.isShared &&
        (calls_.status(TrashCalls::currentFolder, sharedPath().c_str(), status) != 0 ||
         !S_ISDIR(status.mode) || (status.mode & S_ISVTX) == 0)) {
        return false;
    }
    for (std::size_t at = 0; at < partCount; ++at) {
        const std::string path = pathIn(request_.path, partNames[at]);
        if (calls_.status(TrashCalls::currentFolder, path.c_str(), status) != 0 ||
            status.identity != parts_[at].identity || statusRefusal(status, path)) {
            return false;
        }
    }
    return true;
}

}  // namespace tarvin
