#include "scan/content_partition.h"

#include "scan/repeated_files.h"

#include <xxhash.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <iterator>
#include <mutex>
#include <numeric>
#include <tuple>
#include <unordered_set>
#include <utility>

namespace tarvin {

namespace {

// Files below this size are read whole: another system call would cost more than the bytes it might
// save. One byte more than the file's size is requested, to see that it ends there.
constexpr std::uint64_t wholeFileBytes = 16 * 1024;
constexpr std::size_t maxFilesReadWhole = BufferPool::slabBytes / wholeFileBytes;
// Bytes hashed at each end of a file that was read whole.
constexpr std::size_t hashedEndBytes = 256;
// Classes and groups up to this size keep their files open between ranges.
constexpr std::size_t maxFilesKeptOpen = 32;
// Larger classes are split by hashes of the first block before bytes are compared.
constexpr std::size_t maxFilesWithoutHashes = 64;
constexpr std::size_t groupsAShare = 4;

using WholeFile = ContentPartition::WholeFile;

bool areEqual(const WholeFile& one, const WholeFile& other) {
    return one.bytes.size() == other.bytes.size() &&
           std::memcmp(one.bytes.data(), other.bytes.data(), one.bytes.size()) == 0;
}

std::uint64_t hashOfEnds(std::span<const std::byte> bytes) {
    const std::size_t end = std::min(bytes.size(), hashedEndBytes);
    const std::uint64_t front = XXH3_64bits(bytes.data(), end);
    return XXH3_64bits_withSeed(bytes.last(end).data(), end, front);
}

/// Hashes bring equal files side by side; the bytes decide.
std::vector<FileGroup> groupEqual(std::span<WholeFile> files) {
    std::sort(files.begin(), files.end(), [](const WholeFile& one, const WholeFile& other) {
        return std::tie(one.hash, one.number) < std::tie(other.hash, other.number);
    });
    std::vector<FileGroup> groups;
    for (std::size_t first = 0; first < files.size(); ++first) {
        if (files[first].taken) {
            continue;
        }
        FileGroup group;
        for (std::size_t next = first + 1;
             next < files.size() && files[next].hash == files[first].hash; ++next) {
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

/// The groups of two or more files that have the same current size and, if there are hashes, the
/// same hash.
std::vector<FileGroup> alike(std::span<const std::optional<FileStamp>> stamps,
                             std::span<const std::uint64_t> hashes) {
    const auto key = [&](std::uint32_t number) {
        return std::pair(stamps[number]->size, hashes.empty() ? 0 : hashes[number]);
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

/// The files that are in no group.
FileGroup othersThan(const std::vector<FileGroup>& groups, std::size_t fileCount) {
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
    return others;
}

/// Forwards the results for the members of a group under their numbers in the class.
class Renumbered final : public ContentVerdict {
 public:
    Renumbered(const FileGroup& numbers, ContentVerdict& to) : numbers_(numbers), to_(to) {}

    void advanced(std::uint32_t file, std::uint64_t bytes) override {
        to_.advanced(numbers_[file], bytes);
    }
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

/// The data of each file of a class that are read before bytes are compared.
struct ContentPartition::Inspection {
    std::vector<std::optional<FileStamp>> stamps;    ///< nullopt for an unreadable file
    std::vector<std::uint64_t> hashes;               ///< of the first block; empty if not needed
    std::vector<std::optional<OpenCandidate>> open;  ///< empty if no file is kept open
};

/// Forwards the results, without the repeated files of each group.
class ContentPartition::RepeatFilter final : public ContentVerdict {
 public:
    RepeatFilter(std::span<File* const> files, const Inspection& seen, ContentVerdict& to)
        : files_(files), seen_(seen), to_(to) {}

    void advanced(std::uint32_t file, std::uint64_t bytes) override { to_.advanced(file, bytes); }

    void equal(FileGroup group) override {
        FileGroup kept = withoutRepeats(std::move(group), files_, seen_.stamps);
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
    const Inspection& seen_;
    ContentVerdict& to_;
};

/// Forwards the results, but holds back those of groups with a file on an unsteady volume.
class ContentPartition::FirstComparison final : public ContentVerdict {
 public:
    FirstComparison(const CandidateReader& reader, std::span<const std::optional<FileStamp>> stamps,
                    ContentVerdict& to)
        : reader_(reader), stamps_(stamps), to_(to) {}

    void advanced(std::uint32_t file, std::uint64_t bytes) override { to_.advanced(file, bytes); }

    void equal(FileGroup group) override {
        if (std::none_of(group.begin(), group.end(),
                         [this](std::uint32_t file) { return isUnsteady(file); })) {
            to_.equal(std::move(group));
            return;
        }
        const std::lock_guard lock(mutex_);
        unconfirmed_.push_back(std::move(group));
    }

    void decided(std::span<const std::uint32_t> files) override {
        for (const std::uint32_t file : files) {
            if (!isUnsteady(file)) {
                to_.decided({&file, 1});
            }
        }
    }

    /// After the comparison.
    [[nodiscard]] const std::vector<FileGroup>& unconfirmed() const { return unconfirmed_; }

 private:
    [[nodiscard]] bool isUnsteady(std::uint32_t file) const {
        const std::optional<FileStamp>& stamp = stamps_[file];
        return stamp && reader_.isUnsteady(stamp->identity.device);
    }

    const CandidateReader& reader_;
    std::span<const std::optional<FileStamp>> stamps_;
    ContentVerdict& to_;
    std::mutex mutex_;
    std::vector<FileGroup> unconfirmed_;  // guarded by mutex_
};

/// Forwards the groups. The bytes have been counted the first time.
class ContentPartition::SecondComparison final : public ContentVerdict {
 public:
    explicit SecondComparison(ContentVerdict& to) : to_(to) {}

    void equal(FileGroup group) override {
        {
            const std::lock_guard lock(mutex_);
            confirmed_.insert(group.begin(), group.end());
        }
        to_.equal(std::move(group));
    }

    void decided(std::span<const std::uint32_t> /*files*/) override {}

    /// After the comparison.
    [[nodiscard]] bool isConfirmed(std::uint32_t file) const { return confirmed_.contains(file); }

 private:
    ContentVerdict& to_;
    std::mutex mutex_;
    std::unordered_set<std::uint32_t> confirmed_;  // guarded by mutex_
};

bool ContentPartition::isReadWhole(std::uint64_t fileSize, std::size_t fileCount) {
    return fileSize < wholeFileBytes && fileCount <= maxFilesReadWhole;
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
        if (candidate->stamp.size >= wholeFileBytes ||
            reader_.isUnsteady(candidate->stamp.identity.device)) {
            return std::nullopt;
        }
        const auto size = static_cast<std::size_t>(candidate->stamp.size);
        const std::span<std::byte> room = workspace.lease_.allocate(size + 1);
        if (reader_.readWhole(*candidate, room)) {
            const std::span<std::byte> bytes = room.first(size);
            read.push_back({number, false, bytes, hashOfEnds(bytes)});
            stamps[number] = candidate->stamp;
        }
    }
    std::vector<FileGroup> groups = groupEqual(read);
    for (FileGroup& group : groups) {
        group = withoutRepeats(std::move(group), files, stamps);
    }
    std::erase_if(groups, [](const FileGroup& group) { return group.size() < 2; });
    logResized(files, stamps, groups);
    return groups;
}

void ContentPartition::partition(std::span<File* const> files, ContentVerdict& verdict) {
    Inspection seen;
    Budget::Share keptOpen;
    if (files.size() <= maxFilesKeptOpen) {
        keptOpen = reader_.keptDescriptors().tryTake(files.size());
    }
    seen.open.resize(keptOpen ? files.size() : 0);
    inspectAll(files, seen);

    const std::vector<FileGroup> groups = alike(seen.stamps, seen.hashes);
    if (!reader_.control().stop()) {
        logResized(files, seen.stamps, groups);
        verdict.decided(othersThan(groups, files.size()));
    }
    RepeatFilter filter(files, seen, verdict);
    ContentComparer comparer(reader_, buffers_, pool_, {files, seen.stamps, seen.open});
    const std::size_t shares = (groups.size() + groupsAShare - 1) / groupsAShare;
    pool_.forEach(shares, [&](std::size_t share) {
        const std::size_t end = std::min(groups.size(), (share + 1) * groupsAShare);
        for (std::size_t group = share * groupsAShare; group < end; ++group) {
            if (!seen.open.empty() || !compareOpen(files, seen, groups[group], filter)) {
                compareSurely(comparer, files, seen.stamps, groups[group], filter);
            }
        }
    });
}

/// Reports a group as ContentComparer does, once it is confirmed.
void ContentPartition::compareSurely(ContentComparer& comparer, std::span<File* const> files,
                                     std::span<const std::optional<FileStamp>> stamps,
                                     FileGroup group, ContentVerdict& verdict) {
    const FileGroup members = group;
    FirstComparison first(reader_, stamps, verdict);
    comparer.compare(std::move(group), first);
    for (const FileGroup& equal : first.unconfirmed()) {
        compareAgain(comparer, files, equal, verdict);
    }
    if (!reader_.control().stop()) {
        verdict.decided(members);
    }
}

void ContentPartition::compareAgain(ContentComparer& comparer, std::span<File* const> files,
                                    const FileGroup& group, ContentVerdict& verdict) {
    SecondComparison second(verdict);
    comparer.compare(group, second);
    for (const std::uint32_t file : group) {
        if (!second.isConfirmed(file)) {
            reader_.logChange(*files[file]);
        }
    }
}

/// Compares a group of a class whose files were not kept open, with its own files open until the
/// end. Returns false if the group is too large for that, or no descriptors are left for it.
bool ContentPartition::compareOpen(std::span<File* const> files, const Inspection& seen,
                                   const FileGroup& group, ContentVerdict& verdict) {
    const Budget::Share keptOpen = group.size() <= maxFilesKeptOpen
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
        if (open.back() && !reader_.isAsBefore(*seen.stamps[number], *open.back())) {
            open.back().reset();
        }
    }
    FileGroup all(group.size());
    std::iota(all.begin(), all.end(), 0U);
    Renumbered renumbered(group, verdict);
    ContentComparer comparer(reader_, buffers_, pool_, {members, stamps, open});
    compareSurely(comparer, members, stamps, std::move(all), renumbered);
    return true;
}

/// Logs the files outside the groups that no longer have their recorded size. They have only been
/// compared with files of that size, so their duplicates were not looked for.
void ContentPartition::logResized(std::span<File* const> files,
                                  std::span<const std::optional<FileStamp>> stamps,
                                  const std::vector<FileGroup>& groups) {
    const auto isResized = [&](std::uint32_t number) {
        return stamps[number] && stamps[number]->size != files[number]->fileSize();
    };
    // Seldom any, so the rest costs nothing.
    bool anyResized = false;
    for (std::uint32_t number = 0; number < files.size() && !anyResized; ++number) {
        anyResized = isResized(number);
    }
    if (!anyResized) {
        return;
    }
    for (const std::uint32_t number : othersThan(groups, files.size())) {
        if (isResized(number)) {
            reader_.logChange(*files[number]);
        }
    }
}

/// Opens each file once, for its stamp and the hash of its first block.
void ContentPartition::inspectAll(std::span<File* const> files, Inspection& seen) {
    seen.stamps.resize(files.size());
    seen.hashes.resize(files.size() > maxFilesWithoutHashes ? files.size() : 0);
    const std::size_t filesAShare = pool_.filesAShare();
    const std::size_t shares = (files.size() + filesAShare - 1) / filesAShare;
    pool_.forEach(shares, [&](std::size_t share) {
        const std::size_t end = std::min(files.size(), (share + 1) * filesAShare);
        for (std::size_t number = share * filesAShare; number < end; ++number) {
            inspect(static_cast<std::uint32_t>(number), *files[number], seen);
        }
    });
}

void ContentPartition::inspect(std::uint32_t number, const File& file, Inspection& seen) {
    Budget::Share descriptor;
    if (seen.open.empty()) {
        descriptor = reader_.descriptors().take(1);
    }
    std::optional<OpenCandidate> candidate = reader_.open(file);
    if (!candidate) {
        return;
    }
    if (!seen.hashes.empty()) {
        // Not zeroed: the read fills it, and zeroing would cost as much again.
        // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init)
        std::array<std::byte, ComparisonOrder::edgeBytes> block;
        if (candidate->stamp.size > block.size()) {
            reader_.disableReadAhead(*candidate);
        }
        const std::span<std::byte> bytes = std::span(block).first(
            static_cast<std::size_t>(std::min<std::uint64_t>(candidate->stamp.size, block.size())));
        if (!reader_.read(*candidate, 0, bytes)) {
            return;
        }
        seen.hashes[number] = XXH3_64bits(bytes.data(), bytes.size());
    }
    seen.stamps[number] = candidate->stamp;
    if (!seen.open.empty()) {
        seen.open[number] = std::move(candidate);
    }
}

}  // namespace tarvin
