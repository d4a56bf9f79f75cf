#include "scan/repeated_files.h"

#include <algorithm>
#include <functional>
#include <string>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tarvin {

namespace {

/// Whether two paths lead to the same file, so that removing one would remove both. Hard links have
/// the same identity too; they differ in link count or path. Without inode numbers only the path
/// counts.
bool isOneFile(const FileStamp& one, const FileStamp& other, const File& oneFile,
               const File& otherFile) {
    const bool isIdentified = one.identity.inode != 0 && other.identity.inode != 0;
    return (isIdentified && one.linkCount == 1) || (oneFile.fileName() == otherFile.fileName() &&
                                                    oneFile.filePath() == otherFile.filePath());
}

/// The identity, or without an inode number one made of the path.
FileIdentity identityOf(const FileStamp& stamp, const File& file) {
    return stamp.identity.inode != 0
               ? stamp.identity
               : FileIdentity{stamp.identity.device, std::hash<std::string>()(file.filePath())};
}

/// Whether two of the group have one identity.
bool hasRepeatedIdentity(const FileGroup& group, std::span<File* const> files,
                         std::span<const std::optional<FileStamp>> stamps) {
    std::vector<FileIdentity> identities;
    identities.reserve(group.size());
    for (const std::uint32_t number : group) {
        // NOLINTNEXTLINE(bugprone-unchecked-optional-access): members were read.
        identities.push_back(identityOf(*stamps[number], *files[number]));
    }
    std::sort(identities.begin(), identities.end(), [](const auto& one, const auto& other) {
        return std::tie(one.inode, one.device) < std::tie(other.inode, other.device);
    });
    return std::adjacent_find(identities.begin(), identities.end()) != identities.end();
}

}  // namespace

FileGroup withoutRepeats(FileGroup group, std::span<File* const> files,
                         std::span<const std::optional<FileStamp>> stamps) {
    if (!hasRepeatedIdentity(group, files, stamps)) {
        return group;
    }
    std::unordered_multimap<FileIdentity, std::uint32_t, FileIdentityHash> met;
    std::erase_if(group, [&](std::uint32_t number) {
        // NOLINTNEXTLINE(bugprone-unchecked-optional-access): members were read.
        const FileIdentity identity = identityOf(*stamps[number], *files[number]);
        const auto [from, to] = met.equal_range(identity);
        const bool again = std::any_of(from, to, [&](const auto& known) {
            return isOneFile(*stamps[number], *stamps[known.second], *files[number],
                             *files[known.second]);
        });
        if (!again) {
            met.emplace(identity, number);
        }
        return again;
    });
    return group;
}

FileGroup withoutRepeats(FileGroup group, std::span<File* const> files) {
    std::vector<std::optional<FileStamp>> stamps(files.size());
    for (const std::uint32_t number : group) {
        const FileVersion& version = *files[number]->version();
        stamps[number] = {version.identity, 0, {}, {}, version.linkCount};
    }
    return withoutRepeats(std::move(group), files, stamps);
}

}  // namespace tarvin
