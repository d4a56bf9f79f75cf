#include "scan/content_partition.h"

#include <xxhash.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <iterator>
#include <numeric>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace tarvin {

namespace {

// Files below this size are read whole at once: one more system call would cost more than the bytes
// it might save. A byte more than the file should have is asked for, to see that it ends there.
constexpr std::uint64_t wholeFileBytes = 16 * 1024;
constexpr std::size_t mostFilesReadWhole = BufferPool::slabBytes / wholeFileBytes;
// Of a file read whole its two ends are enough for a fingerprint: bytes for each.
constexpr std::size_t fingerprintedEnd = 256;
// Classes, and groups that a look leaves together, up to this size keep their files open between
// stretches.
constexpr std::size_t mostFilesKeptOpen = 32;
// Larger classes than this are told apart by fingerprints first.
constexpr std::size_t worthFingerprints = 64;
constexpr std::size_t groupsAShare = 4;

using WholeFile = ContentPartition::WholeFile;

bool areEqual(const WholeFile& one, const WholeFile& other) {
    return one.bytes.size() == other.bytes.size() &&
           std::memcmp(one.bytes.data(), other.bytes.data(), one.bytes.size()) == 0;
}

std::uint64_t fingerprintOfEnds(std::span<const std::byte> bytes) {
    const std::size_t end = std::min(bytes.size(), fingerprintedEnd);
    const std::uint64_t front = XXH3_64bits(bytes.data(), end);
    return XXH3_64bits_withSeed(bytes.last(end).data(), end, front);
}

/// Fingerprints bring equal files side by side; the bytes decide.
std::vector<FileGroup> groupEqual(std::span<WholeFile> files) {
    std::sort(files.begin(), files.end(), [](const WholeFile& one, const WholeFile& other) {
        return std::tie(one.fingerprint, one.number) < std::tie(other.fingerprint, other.number);
    });
    std::vector<FileGroup> groups;
    for (std::size_t first = 0; first < files.size(); ++first) {
        if (files[first].taken) {
            continue;
        }
        FileGroup group;
        for (std::size_t next = first + 1;
             next < files.size() && files[next].fingerprint == files[first].fingerprint; ++next) {
            if (!files[next].taken && areEqual(files[first], files[next])) {
                files[next].taken = true;
                group.push_back(files[next].number);
            }
        }
        if (!group.empty()) {
            group.insert(group.begin(), files[first].number);
            groups.push_back(std::move(group));
        }
    }
    return groups;
}

/// The groups of two or more files that have the same present size and, where there are any, the
/// same fingerprint.
std::vector<FileGroup> alike(std::span<const std::optional<FileStamp>> stamps,
                             std::span<const std::uint64_t> fingerprints) {
    const auto key = [&](std::uint32_t number) {
        return std::pair(stamps[number]->size, fingerprints.empty() ? 0 : fingerprints[number]);
    };
    FileGroup readable;
    for (std::uint32_t number = 0; number < stamps.size(); ++number) {
        if (stamps[number]) {
            readable.push_back(number);
        }
    }
    std::stable_sort(readable.begin(), readable.end(),
                     [&](std::uint32_t one, std::uint32_t other) { return key(one) < key(other); });
    std::vector<FileGroup> groups;
    for (auto from = readable.begin(); from != readable.end();) {
        const auto to = std::find_if(
            from, readable.end(), [&](std::uint32_t number) { return key(number) != key(*from); });
        if (to - from > 1) {
            groups.emplace_back(from, to);
        }
        from = to;
    }
    return groups;
}

/// Whether two names lead to one and the same file, so that removing one would remove both. Files
/// with several names are told apart from one that is met twice by its number of names and by where
/// it is listed.
bool isOneFile(const FileStamp& one, const FileStamp& other, const File& oneFile,
               const File& otherFile) {
    return one.identity == other.identity &&
           (one.linkCount == 1 || (oneFile.fileName() == otherFile.fileName() &&
                                   oneFile.filePath() == otherFile.filePath()));
}

/// Whether two of the group have one identity.
bool mayHoldItself(const FileGroup& group, std::span<const std::optional<FileStamp>> stamps) {
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

/// Leaves out files that were met before on another way: a folder put under a link meanwhile, a
/// file mounted over another, a name that the listing gave twice.
FileGroup withoutItself(FileGroup group, std::span<File* const> files,
                        std::span<const std::optional<FileStamp>> stamps) {
    if (!mayHoldItself(group, stamps)) {
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

/// Tells of the files that are in no group: they have no equal.
void tellOfTheOthers(std::size_t fileCount, const std::vector<FileGroup>& groups,
                     ContentVerdict& verdict) {
    std::vector<bool> isInGroup(fileCount, false);
    for (const FileGroup& group : groups) {
        for (const std::uint32_t number : group) {
            isInGroup[number] = true;
        }
    }
    FileGroup others;
    for (std::uint32_t number = 0; number < fileCount; ++number) {
        if (!isInGroup[number]) {
            others.push_back(number);
        }
    }
    verdict.decided(others);
}

/// Passes on what is told of the members of a group by their numbers in the class.
class Renumbered final : public ContentVerdict {
 public:
    Renumbered(const FileGroup& numbers, ContentVerdict& to) : numbers_(numbers), to_(to) {}

    void equal(FileGroup group) override { to_.equal(inTheClass(group)); }
    void decided(std::span<const std::uint32_t> files) override { to_.decided(inTheClass(files)); }

 private:
    [[nodiscard]] FileGroup inTheClass(std::span<const std::uint32_t> files) const {
        FileGroup numbers;
        numbers.reserve(files.size());
        for (const std::uint32_t file : files) {
            numbers.push_back(numbers_[file]);
        }
        return numbers;
    }

    const FileGroup& numbers_;
    ContentVerdict& to_;
};

}  // namespace

/// What a first look at the files of a class told of each.
struct ContentPartition::Seen {
    std::vector<std::optional<FileStamp>> stamps;    ///< none for an unreadable file
    std::vector<std::uint64_t> fingerprints;         ///< of the first block; empty if none
    std::vector<std::optional<OpenCandidate>> open;  ///< empty if none is kept open
};

/// Passes on what is told, without files that a group holds twice.
class ContentPartition::Unrepeated final : public ContentVerdict {
 public:
    Unrepeated(std::span<File* const> files, const Seen& seen, ContentVerdict& to)
        : files_(files), seen_(seen), to_(to) {}

    void equal(FileGroup group) override {
        FileGroup kept = withoutItself(std::move(group), files_, seen_.stamps);
        if (kept.size() > 1) {
            for (const std::uint32_t number : kept) {
                // NOLINTNEXTLINE(bugprone-unchecked-optional-access): members were read.
                to_.compared(number, *seen_.stamps[number]);
            }
            to_.equal(std::move(kept));
        }
    }

    void decided(std::span<const std::uint32_t> files) override { to_.decided(files); }

 private:
    std::span<File* const> files_;
    const Seen& seen_;
    ContentVerdict& to_;
};

bool ContentPartition::isReadWhole(std::uint64_t fileSize, std::size_t fileCount) {
    return fileSize < wholeFileBytes && fileCount <= mostFilesReadWhole;
}

ContentPartition::Workspace ContentPartition::makeWorkspace() {
    return {buffers_.take(1), reader_.descriptors().take(1)};
}

std::optional<std::vector<FileGroup>> ContentPartition::compareWhole(std::span<File* const> files,
                                                                     Workspace& workspace) {
    workspace.lease_.rewind();
    std::vector<WholeFile>& read = workspace.read_;
    std::vector<std::optional<FileStamp>>& stamps = workspace.stamps_;
    read.clear();
    stamps.assign(files.size(), std::nullopt);
    for (std::uint32_t number = 0; number < files.size(); ++number) {
        const std::optional<OpenCandidate> candidate = reader_.open(*files[number]);
        if (!candidate) {
            continue;
        }
        if (candidate->stamp.size >= wholeFileBytes) {
            return std::nullopt;
        }
        const auto size = static_cast<std::size_t>(candidate->stamp.size);
        const std::span<std::byte> room = workspace.lease_.allocate(size + 1);
        if (reader_.readWhole(*candidate, room)) {
            const std::span<std::byte> bytes = room.first(size);
            read.push_back({number, false, bytes, fingerprintOfEnds(bytes)});
            stamps[number] = candidate->stamp;
        }
    }
    std::vector<FileGroup> groups = groupEqual(read);
    for (FileGroup& group : groups) {
        group = withoutItself(std::move(group), files, stamps);
    }
    std::erase_if(groups, [](const FileGroup& group) { return group.size() < 2; });
    return groups;
}

void ContentPartition::partition(std::span<File* const> files, ContentVerdict& verdict) {
    Seen seen;
    Budget::Share keptOpen;
    if (files.size() <= mostFilesKeptOpen) {
        keptOpen = reader_.keptDescriptors().tryTake(files.size());
    }
    seen.open.resize(keptOpen ? files.size() : 0);
    look(files, seen);

    const std::vector<FileGroup> groups = alike(seen.stamps, seen.fingerprints);
    if (!reader_.control().stop()) {
        tellOfTheOthers(files.size(), groups, verdict);
    }
    Unrepeated told(files, seen, verdict);
    ContentProver prover(reader_, buffers_, pool_, {files, seen.stamps, seen.open});
    const std::size_t shares = (groups.size() + groupsAShare - 1) / groupsAShare;
    pool_.forEach(shares, [&](std::size_t share) {
        const std::size_t end = std::min(groups.size(), (share + 1) * groupsAShare);
        for (std::size_t group = share * groupsAShare; group < end; ++group) {
            if (!seen.open.empty() || !proveOpen(files, seen, groups[group], told)) {
                prover.prove(groups[group], told);
            }
        }
    });
}

/// Proves a group of a class whose files were not kept open, with its own files open until the
/// end. False if it is too large for that, or others have too many open.
bool ContentPartition::proveOpen(std::span<File* const> files, const Seen& seen,
                                 const FileGroup& group, ContentVerdict& verdict) {
    const Budget::Share keptOpen = group.size() <= mostFilesKeptOpen
                                       ? reader_.keptDescriptors().tryTake(group.size())
                                       : Budget::Share();
    if (!keptOpen) {
        return false;
    }
    std::vector<File*> members;
    std::vector<std::optional<FileStamp>> stamps;
    std::vector<std::optional<OpenCandidate>> open;
    for (const std::uint32_t number : group) {
        members.push_back(files[number]);
        stamps.push_back(seen.stamps[number]);
        open.push_back(reader_.open(*files[number]));
        // NOLINTNEXTLINE(bugprone-unchecked-optional-access): members were read.
        if (open.back() && open.back()->stamp != *seen.stamps[number]) {
            open.back().reset();
        }
    }
    FileGroup all(group.size());
    std::iota(all.begin(), all.end(), 0U);
    Renumbered renumbered(group, verdict);
    ContentProver prover(reader_, buffers_, pool_, {members, stamps, open});
    prover.prove(std::move(all), renumbered);
    return true;
}

/// Opens each file once and keeps what the first block tells.
void ContentPartition::look(std::span<File* const> files, Seen& seen) {
    seen.stamps.resize(files.size());
    seen.fingerprints.resize(files.size() > worthFingerprints ? files.size() : 0);
    const std::size_t shares =
        (files.size() + WorkerPool::filesAShare - 1) / WorkerPool::filesAShare;
    pool_.forEach(shares, [&](std::size_t share) {
        const std::size_t end = std::min(files.size(), (share + 1) * WorkerPool::filesAShare);
        for (std::size_t number = share * WorkerPool::filesAShare; number < end; ++number) {
            lookAt(static_cast<std::uint32_t>(number), *files[number], seen);
        }
    });
}

void ContentPartition::lookAt(std::uint32_t number, const File& file, Seen& seen) {
    Budget::Share descriptor;
    if (seen.open.empty()) {
        descriptor = reader_.descriptors().take(1);
    }
    std::optional<OpenCandidate> candidate = reader_.open(file);
    if (!candidate) {
        return;
    }
    if (!seen.fingerprints.empty()) {
        // Filled by the read; zeroing it first would cost as much again.
        // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init)
        std::array<std::byte, ComparisonOrder::edgeBytes> block;
        if (candidate->stamp.size > block.size()) {
            reader_.expectLittle(*candidate);
        }
        const std::span<std::byte> bytes = std::span(block).first(
            static_cast<std::size_t>(std::min<std::uint64_t>(candidate->stamp.size, block.size())));
        if (!reader_.read(*candidate, 0, bytes)) {
            return;
        }
        seen.fingerprints[number] = XXH3_64bits(bytes.data(), bytes.size());
    }
    seen.stamps[number] = candidate->stamp;
    if (!seen.open.empty()) {
        seen.open[number] = std::move(candidate);
    }
}

}  // namespace tarvin
