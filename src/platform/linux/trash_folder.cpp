#include "platform/linux/trash_folder.h"

#include "platform/posix/exclusive_move.h"
#include "platform/posix/exclusive_rename.h"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace tarvin {

namespace {

/// Bytes. No file system has longer names, but some report a higher limit, in characters.
constexpr std::size_t maxNameBytes = 255;

/// Names tried for one file; with doubled steps the last number is about 10^12.
constexpr int maxTries = 40;

/// Bytes of a .trashinfo file: a path of 4,096 bytes, each as "%XX", and the keys.
constexpr std::size_t maxTrashInfoBytes = 16 * 1024;

/// Bytes; what `nameInTrash` requires.
constexpr std::size_t minNameBytes = 64;

}  // namespace

Result<TrashFolder, TrashRefusal> TrashFolder::open(const TrashRequest& request,
                                                    TrashCalls& calls) {
    auto parts = TrashParts::open(request, calls);
    if (!parts) {
        return parts.error();
    }
    std::size_t bytes = 0;
    if (const int failure = calls.maxNameLength(parts->files().number(), bytes); failure != 0) {
        return systemRefusal(failure);
    }
    bytes = bytes == 0 ? maxNameBytes : std::min(bytes, maxNameBytes);
    if (bytes < minNameBytes + trashInfoSuffix.size()) {
        return systemRefusal(ENAMETOOLONG);
    }
    return TrashFolder(std::move(*parts), bytes - trashInfoSuffix.size(), calls);
}

Result<std::string, TrashRefusal> TrashFolder::take(const Descriptor& from, const char* name,
                                                    std::string_view original,
                                                    std::string_view date) {
    const std::string text = trashInfoText(original, date);
    const std::string own = nameInTrash(name, 1, maxNameLength_);
    std::uint64_t number = numbers_.firstFor(own);
    std::uint64_t step = 1;  // doubled, so that few tries get past many taken names
    for (int tries = 0; tries < maxTries; ++tries) {
        std::string newName = number == 1 ? own : nameInTrash(name, number, maxNameLength_);
        // The .trashinfo file reserves the name; the rename detects a file without one.
        int failure = writeTrashInfo(newName, text);
        if (failure == 0) {
            failure = moveIn(from.number(), name, newName.c_str());
            if (failure == 0) {
                numbers_.take(own, number);
                return newName;
            }
            removeTrashInfo(newName);
        }
        if (failure != EEXIST) {
            return moveRefusal(failure, from.number(), name);
        }
        number += step;
        step *= 2;
    }
    return TrashRefusal{TrashRefusalKind::noName, {EEXIST}, "there is no free name in the Trash"};
}

bool TrashFolder::wasAt(const std::string& name, std::string_view original) const {
    std::string text;
    return readTrashInfo(name, text) == 0 && trashInfoPath(text) == percentEncoded(original);
}

Result<std::vector<TrashedFrom>, TrashRefusal> TrashFolder::findByPath(
    const std::unordered_map<std::string, std::size_t>& originals) const {
    FileSystem& fileSystem = systemFileSystem();
    // A separate descriptor: its listing starts at the beginning.
    const auto infos = fileSystem.openDirectoryAt(parts_.info(), ".");
    if (!infos) {
        return systemRefusal(infos.error().code);
    }
    std::vector<TrashedFrom> found;
    EntryBlock block(trashListingBytes);
    Result<bool> more = false;
    while ((more = fileSystem.listEntries(*infos, block)) && *more) {
        for (const EntryBlock::Entry& entry : block.entries()) {
            std::string name(entry.name);
            std::string text;
            if (!name.ends_with(trashInfoSuffix)) {
                continue;
            }
            name.resize(name.size() - trashInfoSuffix.size());
            const std::optional<std::string_view> original =
                readTrashInfo(name, text) == 0 ? trashInfoPath(text) : std::nullopt;
            const auto wanted = original ? originals.find(std::string(*original)) : originals.end();
            if (wanted == originals.end()) {
                continue;
            }
            if (const auto attributes = fileSystem.attributesAt(files(), name.c_str())) {
                found.push_back({wanted->second, {std::move(name), *attributes}});
            }
        }
    }
    if (!more) {
        return systemRefusal(more.error().code);
    }
    return found;
}

std::optional<TrashRefusal> TrashFolder::repairTrashInfo(const std::string& name,
                                                         std::string_view original,
                                                         std::string_view date) {
    std::string text;
    int failure = readTrashInfo(name, text);
    if (failure == 0 && trashInfoPath(text)) {
        return std::nullopt;
    }
    if (failure == 0) {
        removeTrashInfo(name);
    }
    if (failure == 0 || failure == ENOENT) {
        failure = writeTrashInfo(name, trashInfoText(original, date));
    }
    return failure == 0 ? std::nullopt : std::optional(systemRefusal(failure));
}

std::optional<TrashRefusal> TrashFolder::removeUnusedTrashInfos(
    const std::unordered_set<std::string>& originals, std::span<const std::string_view> names) {
    FileSystem& fileSystem = systemFileSystem();
    // A separate descriptor: its listing starts at the beginning.
    const auto infos = fileSystem.openDirectoryAt(parts_.info(), ".");
    if (!infos) {
        return systemRefusal(infos.error().code);
    }
    EntryBlock block(trashListingBytes);
    Result<bool> more = false;
    while ((more = fileSystem.listEntries(*infos, block)) && *more) {
        for (const EntryBlock::Entry& entry : block.entries()) {
            std::string name(entry.name);
            TrashEntryStatus status;
            if (!name.ends_with(trashInfoSuffix)) {
                continue;
            }
            name.resize(name.size() - trashInfoSuffix.size());
            std::string text;
            if (calls_.status(files().number(), name.c_str(), status) != ENOENT ||
                readTrashInfo(name, text) != 0) {
                continue;
            }
            const auto original = trashInfoPath(text);
            const bool isOurs =
                original ? originals.contains(std::string(*original))
                         : text.empty() && std::any_of(names.begin(), names.end(), [&](auto own) {
                               return isNameInTrashOf(own, name, maxNameLength_);
                           });
            if (isOurs) {
                removeTrashInfo(name);
            }
            // Another program may have moved this file here since the listing.
            if (isOurs && original && calls_.status(files().number(), name.c_str(), status) == 0) {
                static_cast<void>(writeTrashInfo(name, text));
            }
        }
    }
    return more ? std::nullopt : std::optional(systemRefusal(more.error().code));
}

std::optional<TrashRefusal> TrashFolder::flush() const {
    const int failure = calls_.flush(files().number());
    return failure == 0 ? std::nullopt : std::optional(systemRefusal(failure));
}

TrashRefusal TrashFolder::moveRefusal(int code, int folder, const char* name) const {
    TrashRefusal refusal = systemRefusal(code);
    TrashEntryStatus status;
    if (code == EXDEV) {
        refusal.kind = TrashRefusalKind::otherVolume;
        refusal.text = "the file and the Trash are on different file systems or mounts";
    } else if (code == ENOENT && calls_.status(folder, name, status) == ENOENT) {
        refusal.kind = TrashRefusalKind::gone;
    }
    return refusal;
}

int TrashFolder::writeTrashInfo(const std::string& name, std::string_view text) const {
    const std::string infoName = name + std::string(trashInfoSuffix);
    int number = -1;
    int failure = calls_.createFile(parts_.info().number(), infoName.c_str(), number);
    if (failure != 0) {
        return failure;
    }
    while (failure == 0 && !text.empty()) {
        std::size_t written = 0;
        failure = calls_.write(number, text.data(), text.size(), written);
        if (failure == 0 && written == 0) {
            failure = EIO;
        }
        text.remove_prefix(std::min(written, text.size()));
    }
    // Some file systems report only here that the disk is full.
    const int closing = calls_.close(number);
    failure = failure != 0 ? failure : closing;
    if (failure != 0) {
        removeTrashInfo(name);
    }
    return failure;
}

/// Reads at most `maxTrashInfoBytes`: our own files are not longer.
int TrashFolder::readTrashInfo(const std::string& name, std::string& text) const {
    const std::string infoName = name + std::string(trashInfoSuffix);
    int number = -1;
    int failure = calls_.openFile(parts_.info().number(), infoName.c_str(), number);
    if (failure != 0) {
        return failure;
    }
    text.resize(maxTrashInfoBytes);
    std::size_t length = 0;
    std::size_t count = 0;
    do {
        failure = calls_.read(number, text.data() + length, text.size() - length, count);
        length += count;
    } while (failure == 0 && count != 0 && length < text.size());
    text.resize(length);
    static_cast<void>(calls_.close(number));
    return failure;
}

void TrashFolder::removeTrashInfo(const std::string& name) const {
    const std::string infoName = name + std::string(trashInfoSuffix);
    static_cast<void>(calls_.unlink(parts_.info().number(), infoName.c_str()));
}

int TrashFolder::moveIn(int from, const char* name, const char* newName) const {
    const int to = files().number();
    const int failure = calls_.renameExclusively(from, name, to, newName);
    if (!isUnsupportedRename(failure)) {
        return failure;
    }
    // The .trashinfo file reserves the name, and only this user writes here.
    TrashEntryStatus status;
    const int statusFailure = calls_.status(to, newName, status);
    if (statusFailure != ENOENT) {
        return statusFailure == 0 ? EEXIST : statusFailure;
    }
    return calls_.rename(from, name, to, newName);
}

std::optional<TrashRefusal> TrashFolder::giveBack(const std::string& name, const Descriptor& to,
                                                  const char* newName) {
    const int failure =
        moveExclusively(calls_, files().number(), name.c_str(), to.number(), newName);
    if (failure == 0) {
        TrashEntryStatus status;
        if (calls_.status(files().number(), name.c_str(), status) == ENOENT) {
            removeTrashInfo(name);
        }
        return std::nullopt;
    }
    TrashRefusal refusal = moveRefusal(failure, files().number(), name.c_str());
    if (failure == EEXIST) {
        refusal.kind = TrashRefusalKind::taken;
    }
    return refusal;
}

}  // namespace tarvin
