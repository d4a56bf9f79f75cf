#include "scan/range_comparison.h"

#include <xxhash.h>

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

namespace tarvin {

namespace {

// Bytes held of the reference file, and bytes read of the others at a time. Both fit into the
// second-level cache of a core, so that comparing costs little more than reading.
constexpr std::size_t referenceBytes = 256 * 1024;
constexpr std::size_t maxChunkBytes = 128 * 1024;
// In a large group the chunks shrink with the number of files, so that one of each fits into this
// many slabs beside the reference.
constexpr std::size_t slabsForLargeGroup = 16;
// A large group holds more of the reference, so that most files are decided in one visit each, one
// after the other, and not all of them in the last moment. Whole slabs.
constexpr std::size_t referenceSlabsForLargeGroup = 4;
// Groups of at least this size are shared out among the workers.
constexpr std::size_t minSharedGroup = 128;

/// Bytes read of a file at a time: there must be room for a chunk of each file beside the reference
/// and the chunks being read. A power of two, so that chunks fill whole slabs.
std::size_t chunkBytesFor(std::size_t groupSize, std::size_t readers, std::size_t room) {
    const std::size_t chunks = groupSize - 1 + readers;
    return std::bit_floor(std::clamp<std::size_t>(room / chunks, 1, maxChunkBytes));
}

}  // namespace

std::size_t slabsFor(std::size_t groupSize) {
    if (groupSize > maxSmallGroup) {
        return referenceSlabsForLargeGroup + slabsForLargeGroup;
    }
    const std::size_t bytes = referenceBytes + groupSize * maxChunkBytes;
    return (bytes + BufferPool::slabBytes - 1) / BufferPool::slabBytes;
}

std::size_t maxReferenceBytes(std::size_t groupSize, std::size_t capacity) {
    const std::size_t slabs =
        std::min(referenceSlabsForLargeGroup, capacity / BufferPool::slabBytes / 2);
    return groupSize > maxSmallGroup && slabs > 0 ? slabs * BufferPool::slabBytes : referenceBytes;
}

/// One file during a visit: open already, or opened now and closed afterwards.
class RangeComparison::Opened final {
 public:
    Opened(const Context& context, std::uint32_t number) : reader_(context.reader) {
        const Candidates& candidates = context.candidates;
        if (!candidates.open.empty()) {
            // NOLINTNEXTLINE(bugprone-unchecked-optional-access): checked just before.
            candidate_ = candidates.open[number] ? &*candidates.open[number] : nullptr;
            return;
        }
        share_ = reader_.descriptors().take(1);
        own_ = reader_.open(*candidates.files[number]);
        // NOLINTNEXTLINE(bugprone-unchecked-optional-access): members were read.
        if (own_ && reader_.isAsBefore(*candidates.seen[number], *own_)) {
            candidate_ = &*own_;
        }
    }

    /// Whether all that was read since the file was opened is the content of one unchanged file.
    /// Files that are kept open are checked once, when they are decided.
    [[nodiscard]] bool isUnchanged() const { return !own_ || reader_.isUnchanged(*own_); }

    /// nullptr if the file cannot be read any more or has changed.
    [[nodiscard]] const OpenCandidate* get() const { return candidate_; }

 private:
    CandidateReader& reader_;
    Budget::Share share_;
    std::optional<OpenCandidate> own_;
    const OpenCandidate* candidate_ = nullptr;
};

RangeComparison::RangeComparison(Context context, ComparisonOrder::Range range,
                                 std::size_t groupSize, BufferPool::Lease& lease, bool decidesFiles)
    : context_(context), range_(range), decidesFiles_(decidesFiles), lease_(lease) {
    const std::size_t readers = groupSize < minSharedGroup ? 1 : context_.pool.width() + 1;
    lease_.rewind();
    const std::size_t held = allocateReference(maxReferenceBytes(groupSize, lease.capacity()));
    chunkBytes_ = chunkBytesFor(groupSize, readers, lease.capacity() - held);
    for (std::size_t reader = 0; reader < readers; ++reader) {
        scratch_.push_back(lease_.allocate(chunkBytes_));
    }
}

void RangeComparison::compare(const FileGroup& group) {
    std::size_t next = 0;
    while (next < group.size() && !readReference(group[next])) {
        ++next;
    }
    if (next == group.size()) {
        return;
    }
    same_.push_back(group[next]);
    const std::span<const std::uint32_t> others = std::span(group).subspan(next + 1);
    isPair_ = others.size() == 1;
    if (scratch_.size() == 1) {
        compareAll(others);
        return;
    }
    const std::size_t filesAShare = context_.pool.filesAShare();
    const std::size_t shares = (others.size() + filesAShare - 1) / filesAShare;
    context_.pool.forEach(shares, [this, others, filesAShare](std::size_t share) {
        const std::size_t from = share * filesAShare;
        compareAll(others.subspan(from, std::min(filesAShare, others.size() - from)));
    });
}

void RangeComparison::collect(const AgreeingFiles& before, std::uint64_t to,
                              std::vector<AgreeingFiles>& into,
                              const std::function<void(FileGroup group)>& agreed) {
    const auto add = [&](std::uint64_t reached, FileGroup group) {
        if (group.size() > 1 && reached == to) {
            agreed(std::move(group));
        } else if (group.size() > 1) {
            into.push_back({std::move(group), reached, before.readAheadTo});
        } else if (!context_.reader.control().stop()) {
            logIfChanged(group);
            context_.verdict.decided(group);
        }
    };
    for (auto& [key, branches] : branches_) {
        for (Branch& branch : branches) {
            add(before.position + branch.offset + branch.bytes.size(), std::move(branch.group));
        }
    }
    add(before.position + range_.length, std::move(same_));
}

/// Allocates whole slabs, so that no chunk reaches from one into the next. Returns their bytes.
std::size_t RangeComparison::allocateReference(std::size_t maxBytes) {
    std::size_t held = 0;
    for (std::size_t left = static_cast<std::size_t>(range_.length); left > 0;) {
        const std::span<std::byte> slab =
            lease_.allocate(std::min(maxBytes, BufferPool::slabBytes));
        reference_.push_back(slab.first(std::min(left, slab.size())));
        left -= reference_.back().size();
        held += slab.size();
    }
    return held;
}

/// At most a chunk of the reference.
std::span<std::byte> RangeComparison::referenceAt(std::size_t offset) const {
    const std::span<std::byte> slab = reference_[offset / BufferPool::slabBytes];
    const std::size_t inSlab = offset % BufferPool::slabBytes;
    return slab.subspan(inSlab, std::min(chunkBytes_, slab.size() - inSlab));
}

bool RangeComparison::readReference(std::uint32_t file) {
    const Opened opened(context_, file);
    if (opened.get() == nullptr) {
        return false;
    }
    std::uint64_t offset = range_.offset;
    for (const std::span<std::byte> slab : reference_) {
        if (!context_.reader.read(*opened.get(), offset, slab)) {
            return false;
        }
        context_.verdict.advanced(file, slab.size());
        offset += slab.size();
    }
    return opened.isUnchanged();
}

void RangeComparison::compareAll(std::span<const std::uint32_t> files) {
    const std::span<std::byte> scratch = takeScratch();
    for (const std::uint32_t file : files) {
        compareFile(file, scratch);
    }
    const std::lock_guard lock(mutex_);
    scratch_.push_back(scratch);
}

std::span<std::byte> RangeComparison::takeScratch() {
    const std::lock_guard lock(mutex_);
    const std::span<std::byte> scratch = scratch_.back();
    scratch_.pop_back();
    return scratch;
}

void RangeComparison::compareFile(std::uint32_t file, std::span<std::byte> scratch) {
    const Opened opened(context_, file);
    if (opened.get() == nullptr) {
        return;
    }
    for (std::size_t offset = 0; offset < range_.length; offset += chunkBytes_) {
        const std::span<std::byte> expected = referenceAt(offset);
        const std::span<std::byte> chunk = scratch.first(expected.size());
        if (!context_.reader.read(*opened.get(), range_.offset + offset, chunk)) {
            return;
        }
        context_.verdict.advanced(file, chunk.size());
        if (std::memcmp(expected.data(), chunk.data(), chunk.size()) != 0) {
            if (opened.isUnchanged()) {
                leave(file, offset, chunk);
            }
            return;
        }
    }
    if (opened.isUnchanged()) {
        stay(file);
    }
}

void RangeComparison::stay(std::uint32_t file) {
    {
        const std::lock_guard lock(mutex_);
        same_.push_back(file);
    }
    if (decidesFiles_) {
        context_.verdict.decided({&file, 1});
    }
}

/// Files that differ from all others may do so because they were being changed. Those that are not
/// kept open have been checked when they were read.
void RangeComparison::logIfChanged(std::span<const std::uint32_t> files) {
    if (context_.candidates.open.empty()) {
        return;
    }
    for (const std::uint32_t file : files) {
        const std::optional<OpenCandidate>& candidate = context_.candidates.open[file];
        if (candidate) {
            context_.reader.isUnchanged(*candidate);
        }
    }
}

/// Adds the file to those that left the reference with the same bytes at the same offset. The hash
/// only finds them; the bytes decide.
void RangeComparison::leave(std::uint32_t file, std::size_t offset, std::span<std::byte> chunk) {
    if (isPair_) {
        logIfChanged({&file, 1});
        return;
    }
    const std::uint64_t key = XXH3_64bits_withSeed(chunk.data(), chunk.size(), offset);
    const std::lock_guard lock(mutex_);
    std::vector<Branch>& alike = branches_[key];
    for (Branch& branch : alike) {
        if (branch.offset == offset &&
            std::memcmp(branch.bytes.data(), chunk.data(), chunk.size()) == 0) {
            branch.group.push_back(file);
            return;
        }
    }
    const std::span<std::byte> kept = lease_.allocate(chunkBytes_).first(chunk.size());
    std::memcpy(kept.data(), chunk.data(), chunk.size());
    alike.push_back({offset, kept, {file}});
}

}  // namespace tarvin
