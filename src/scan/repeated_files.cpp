#include "scan/repeated_files.h"

#include <algorithm>
#include <tuple>
#include <unordered_map>
#include <vector>

namespace tarvin {

namespace {

/// Whether two paths lead to the same file, so that removing one would remove both. Hard links have
/// the same identity too; they differ in link count or path.
bool isOneFile(const FileStamp& one, const FileStamp& other, const File& oneFile,
               const File& otherFile) {
    return one.identity == other.identity &&
           (one.linkCount == 1 || (oneFile.fileName() == otherFile.fileName() &&
                                   oneFile.filePath() == otherFile.filePath()));
}

/// Whether two of the group have one identity.
bool hasRepeatedIdentity(const FileGroup& group, std::span<const std::optional<FileStamp>> stamps) {
    std::vector<FileIdentity> identities;
    identities.reserve(group.size());
    for (const std::uint32_t number : group) {
        // NOLINTNEXTLINE(bugprone-unchecked-optional-access): members were read.
        identities.push_back(stamps[number]->identity);
    }
    std::sort(identities.begin(), identities.end(), [](const auto& one, const auto& other) {
        return std::tie(one.inode, one.device) < std::tie(other.inode, other.device);
    });
    return std::adjacent_find(identities.begin(), identities.end()) != identities.end();
}

}  // namespace

FileGroup withoutRepeats(FileGroup group, std::span<File* const> files,
                         std::span<const std::optional<FileStamp>> stamps) {
    if (!hasRepeatedIdentity(group, stamps)) {
        return group;
    }
    std::unordered_multimap<FileIdentity, std::uint32_t, FileIdentityHash> met;
    std::erase_if(group, [&](std::uint32_t number) {
        const auto [from, to] = met.equal_range(stamps[number]->identity);
        const bool again = std::any_of(from, to, [&](const auto& known) {
            return isOneFile(*stamps[number], *stamps[known.second], *files[number],
                             *files[known.second]);
        });
        if (!again) {
            met.emplace(stamps[number]->identity, number);
        }
        return again;
    });
    return group;
}

}  // namespace tarvin
