#include "scan/content_prover.h"

#include <xxhash.h>

#include <algorithm>
#include <bit>
#include <cstring>
#include <map>

namespace tarvin {

namespace {

// What is held of the trunk and read of the others at a time. Both fit the second-level cache of a
// core together, so that comparing costs little more than reading.
constexpr std::size_t trunkBytes = 256 * 1024;
constexpr std::size_t largestPiece = 128 * 1024;
// Groups up to this size are read in the largest pieces. In larger ones the pieces shrink with the
// number of files, so that one of each fits into this many slabs beside the trunk.
constexpr std::size_t smallGroup = 32;
constexpr std::size_t slabsForLargeGroup = 16;
// A large group holds more of the trunk, so that most files are decided in one visit each, one
// after the other, and not all of them in the last moment. Whole slabs.
constexpr std::size_t trunkSlabsForLargeGroup = 4;
// From here on the files of a group are shared out among the workers.
constexpr std::size_t groupWorthSharing = 128;
// A group with more than this to compare is cut into stretches for several workers.
constexpr std::uint64_t stretchWorthSharing = 4 * 1024 * 1024;
constexpr std::uint64_t largestStretch = 8 * 1024 * 1024;
constexpr std::size_t mostStretches = 8;

std::size_t slabsFor(std::size_t groupSize) {
    if (groupSize > smallGroup) {
        return trunkSlabsForLargeGroup + slabsForLargeGroup;
    }
    const std::size_t bytes = trunkBytes + groupSize * largestPiece;
    return (bytes + BufferPool::slabBytes - 1) / BufferPool::slabBytes;
}

/// Bytes of the trunk that are held at once, of a lease of `capacity` bytes.
std::size_t mostOfTheTrunk(std::size_t groupSize, std::size_t capacity) {
    const std::size_t slabs =
        std::min(trunkSlabsForLargeGroup, capacity / BufferPool::slabBytes / 2);
    return groupSize > smallGroup && slabs > 0 ? slabs * BufferPool::slabBytes : trunkBytes;
}

/// How much is read of a file at a time, so that there is room for a piece of each file beside the
/// trunk and the pieces being read. A power of two, so that slabs are filled without a rest.
std::size_t pieceBytesFor(std::size_t groupSize, std::size_t readers, std::size_t room) {
    const std::size_t pieces = groupSize - 1 + readers;
    return std::bit_floor(std::clamp<std::size_t>(room / pieces, 1, largestPiece));
}

/// Splits each group into those parts that lie together in one group of `parts`, too.
std::vector<FileGroup> refine(const std::vector<FileGroup>& groups,
                              const std::vector<FileGroup>& parts) {
    std::unordered_map<std::uint32_t, std::size_t> partOf;
    for (std::size_t part = 0; part < parts.size(); ++part) {
        for (const std::uint32_t file : parts[part]) {
            partOf.emplace(file, part);
        }
    }
    std::vector<FileGroup> refined;
    for (const FileGroup& group : groups) {
        std::map<std::size_t, FileGroup> byPart;
        for (const std::uint32_t file : group) {
            // A file in no part is known to differ from all others.
            if (const auto found = partOf.find(file); found != partOf.end()) {
                byPart[found->second].push_back(file);
            }
        }
        for (auto& [part, files] : byPart) {
            if (files.size() > 1) {
                refined.push_back(std::move(files));
            }
        }
    }
    return refined;
}

}  // namespace

ComparisonOrder::ComparisonOrder(std::uint64_t fileSize)
    : size_(fileSize),
      first_(std::min(fileSize, edgeBytes)),
      last_(std::min(fileSize - first_, edgeBytes)) {}

ComparisonOrder::Piece ComparisonOrder::pieceAt(std::uint64_t position) const {
    if (position < first_) {
        return {position, first_ - position};
    }
    if (position < middle()) {
        return {size_ - last_ + (position - first_), middle() - position};
    }
    return {position - last_, size_ - position};
}

/// One file for the time of a visit: open already, or opened now and closed afterwards.
class ContentProver::Opened final {
 public:
    Opened(ContentProver& prover, std::uint32_t number) {
        const Candidates& candidates = prover.candidates_;
        if (!candidates.open.empty()) {
            // NOLINTNEXTLINE(bugprone-unchecked-optional-access): looked at just before.
            candidate_ = candidates.open[number] ? &*candidates.open[number] : nullptr;
            return;
        }
        share_ = prover.reader_.descriptors().take(1);
        own_ = prover.reader_.open(*candidates.files[number]);
        if (own_ && candidates.seen[number] == own_->stamp) {
            candidate_ = &*own_;
        }
    }

    /// Whether what was read since it was opened is the content of one and the same file. What is
    /// kept open is looked at once, at the end.
    [[nodiscard]] bool isStillItself(ContentProver& prover) const {
        return !own_ || prover.reader_.isUnchanged(*own_);
    }

    /// None if the file cannot be read any more or has become another.
    [[nodiscard]] const OpenCandidate* get() const { return candidate_; }

 private:
    Budget::Share share_;
    std::optional<OpenCandidate> own_;
    const OpenCandidate* candidate_ = nullptr;
};

/// Files that agree up to a position.
struct ContentProver::Position {
    FileGroup group;
    std::uint64_t position = 0;
};

/// Positions from which and up to which files are compared.
struct ContentProver::Stretch {
    std::uint64_t from = 0;
    std::uint64_t to = 0;
    bool endsTheFile = false;  // and began at its beginning
};

/// One stretch of a group's files held against the trunk. Files that leave it do so at the first
/// piece that differs, and those that leave alike at the same piece stay together.
class ContentProver::Window final {
 public:
    /// With `decidesFiles` a file that agrees with the trunk to the end of this stretch is decided.
    Window(ContentProver& prover, ComparisonOrder::Piece stretch, std::size_t groupSize,
           BufferPool::Lease& lease, ContentVerdict& verdict, bool decidesFiles)
        : prover_(prover),
          stretch_(stretch),
          verdict_(verdict),
          decidesFiles_(decidesFiles),
          lease_(lease) {
        const std::size_t readers = groupSize < groupWorthSharing ? 1 : prover.pool_.width() + 1;
        lease_.rewind();
        const std::size_t held = allocateTrunk(mostOfTheTrunk(groupSize, lease.capacity()));
        pieceBytes_ = pieceBytesFor(groupSize, readers, lease.capacity() - held);
        for (std::size_t reader = 0; reader < readers; ++reader) {
            scratch_.push_back(lease_.allocate(pieceBytes_));
        }
    }

    /// Sorts the files of `group`, several at once if that is worth it.
    void sort(const FileGroup& group) {
        std::size_t next = 0;
        while (next < group.size() && !readTrunk(group[next])) {
            ++next;
        }
        if (next == group.size()) {
            return;
        }
        same_.push_back(group[next]);
        const std::span<const std::uint32_t> others = std::span(group).subspan(next + 1);
        lonePair_ = others.size() == 1;
        if (scratch_.size() == 1) {
            visitAll(others);
            return;
        }
        const std::size_t shares =
            (others.size() + WorkerPool::filesAShare - 1) / WorkerPool::filesAShare;
        prover_.pool_.forEach(shares, [this, others](std::size_t share) {
            const std::size_t from = share * WorkerPool::filesAShare;
            visitAll(others.subspan(from, std::min(WorkerPool::filesAShare, others.size() - from)));
        });
    }

    /// Passes on the groups of two or more that have come to position `to`, and adds the others
    /// with the positions they have come to. `position` is where this stretch began.
    void collect(std::uint64_t position, std::uint64_t to, std::vector<Position>& into,
                 const Proven& proven) {
        const auto add = [&](std::uint64_t reached, FileGroup group) {
            if (group.size() > 1 && reached == to) {
                proven(std::move(group));
            } else if (group.size() > 1) {
                into.push_back({std::move(group), reached});
            } else if (!prover_.reader_.control().stop()) {
                verdict_.decided(group);
            }
        };
        for (auto& [key, branches] : branches_) {
            for (Branch& branch : branches) {
                add(position + branch.offset + branch.bytes.size(), std::move(branch.group));
            }
        }
        add(position + stretch_.length, std::move(same_));
    }

 private:
    struct Branch {
        std::size_t offset;  // in the trunk
        std::span<std::byte> bytes;
        FileGroup group;
    };

    /// In whole slabs, so that no piece reaches from one into the next. How many bytes that takes.
    std::size_t allocateTrunk(std::size_t most) {
        std::size_t held = 0;
        for (std::size_t left = static_cast<std::size_t>(stretch_.length); left > 0;) {
            const std::span<std::byte> slab =
                lease_.allocate(std::min(most, BufferPool::slabBytes));
            trunk_.push_back(slab.first(std::min(left, slab.size())));
            left -= trunk_.back().size();
            held += slab.size();
        }
        return held;
    }

    /// At most a piece of the trunk.
    [[nodiscard]] std::span<std::byte> trunkAt(std::size_t offset) const {
        const std::span<std::byte> slab = trunk_[offset / BufferPool::slabBytes];
        const std::size_t inSlab = offset % BufferPool::slabBytes;
        return slab.subspan(inSlab, std::min(pieceBytes_, slab.size() - inSlab));
    }

    bool readTrunk(std::uint32_t file) {
        const Opened opened(prover_, file);
        if (opened.get() == nullptr) {
            return false;
        }
        std::uint64_t offset = stretch_.offset;
        for (const std::span<std::byte> slab : trunk_) {
            if (!prover_.reader_.read(*opened.get(), offset, slab)) {
                return false;
            }
            offset += slab.size();
        }
        return opened.isStillItself(prover_);
    }

    void visitAll(std::span<const std::uint32_t> files) {
        const std::span<std::byte> scratch = takeScratch();
        for (const std::uint32_t file : files) {
            visit(file, scratch);
        }
        const std::lock_guard lock(mutex_);
        scratch_.push_back(scratch);
    }

    std::span<std::byte> takeScratch() {
        const std::lock_guard lock(mutex_);
        const std::span<std::byte> scratch = scratch_.back();
        scratch_.pop_back();
        return scratch;
    }

    void visit(std::uint32_t file, std::span<std::byte> scratch) {
        const Opened opened(prover_, file);
        if (opened.get() == nullptr) {
            return;
        }
        for (std::size_t offset = 0; offset < stretch_.length; offset += pieceBytes_) {
            const std::span<std::byte> trunk = trunkAt(offset);
            const std::span<std::byte> piece = scratch.first(trunk.size());
            if (!prover_.reader_.read(*opened.get(), stretch_.offset + offset, piece)) {
                return;
            }
            if (std::memcmp(trunk.data(), piece.data(), piece.size()) != 0) {
                if (opened.isStillItself(prover_)) {
                    leave(file, offset, piece);
                }
                return;
            }
        }
        if (opened.isStillItself(prover_)) {
            stay(file);
        }
    }

    void stay(std::uint32_t file) {
        {
            const std::lock_guard lock(mutex_);
            same_.push_back(file);
        }
        if (decidesFiles_) {
            verdict_.decided({&file, 1});
        }
    }

    /// Puts the file with those that left the trunk with the same bytes at the same place. The
    /// fingerprint only says where to look; the bytes decide.
    void leave(std::uint32_t file, std::size_t offset, std::span<std::byte> piece) {
        if (lonePair_) {
            return;
        }
        const std::uint64_t key = XXH3_64bits_withSeed(piece.data(), piece.size(), offset);
        const std::lock_guard lock(mutex_);
        std::vector<Branch>& alike = branches_[key];
        for (Branch& branch : alike) {
            if (branch.offset == offset &&
                std::memcmp(branch.bytes.data(), piece.data(), piece.size()) == 0) {
                branch.group.push_back(file);
                return;
            }
        }
        const std::span<std::byte> kept = lease_.allocate(pieceBytes_).first(piece.size());
        std::memcpy(kept.data(), piece.data(), piece.size());
        alike.push_back({offset, kept, {file}});
    }

    ContentProver& prover_;
    const ComparisonOrder::Piece stretch_;
    ContentVerdict& verdict_;
    const bool decidesFiles_;
    std::size_t pieceBytes_ = 0;
    bool lonePair_ = false;
    std::vector<std::span<std::byte>> trunk_;
    std::mutex mutex_;
    BufferPool::Lease& lease_;                                         // guarded by mutex_
    std::vector<std::span<std::byte>> scratch_;                        // guarded by mutex_
    FileGroup same_;                                                   // guarded by mutex_
    std::unordered_map<std::uint64_t, std::vector<Branch>> branches_;  // guarded by mutex_
};

ContentProver::ContentProver(CandidateReader& reader, BufferPool& buffers, WorkerPool& pool,
                             Candidates candidates)
    : reader_(reader), buffers_(buffers), pool_(pool), candidates_(candidates) {}

void ContentProver::prove(FileGroup group, ContentVerdict& verdict) {
    const FileGroup members = group;
    // NOLINTNEXTLINE(bugprone-unchecked-optional-access): members were read.
    const ComparisonOrder order(candidates_.seen[group.front()]->size);
    const bool inParallel = pool_.cores() > 1 && group.size() <= smallGroup &&
                            order.size() - order.middle() > stretchWorthSharing &&
                            !isOnRotationalDevice(group.front());
    const std::size_t leaseCount =
        inParallel ? std::min<std::size_t>(pool_.cores(), mostStretches) : 1;
    std::vector<BufferPool::Lease> leases =
        buffers_.takeSeveral(leaseCount, slabsFor(group.size()));

    if (inParallel) {
        std::vector<FileGroup> groups;
        proveStretch(
            std::move(group), order, {0, order.middle(), false}, leases.front(),
            [&groups](FileGroup alike) { groups.push_back(std::move(alike)); }, verdict);
        for (FileGroup& alike : groups) {
            for (FileGroup& equal : proveInParallel(std::move(alike), order, leases, verdict)) {
                tell(equal, verdict);
            }
        }
    } else {
        proveStretch(
            std::move(group), order, {0, order.size(), true}, leases.front(),
            [&](const FileGroup& equal) { tell(equal, verdict); }, verdict);
    }
    if (!reader_.control().stop()) {
        verdict.decided(members);
    }
}

void ContentProver::tell(const FileGroup& group, ContentVerdict& verdict) {
    FileGroup kept = withoutChanged(group);
    if (kept.size() > 1) {
        std::sort(kept.begin(), kept.end());
        verdict.equal(std::move(kept));
    }
}

/// What a stop cut short looks like an unreadable file: it is in no group that gets to the end.
void ContentProver::proveStretch(FileGroup group, const ComparisonOrder& order, Stretch stretch,
                                 BufferPool::Lease& lease, const Proven& proven,
                                 ContentVerdict& verdict) {
    if (stretch.from == stretch.to) {
        proven(std::move(group));
        return;
    }
    std::vector<Position> open;
    open.push_back({std::move(group), stretch.from});
    while (!open.empty() && !reader_.control().stop()) {
        const Position at = std::move(open.back());
        open.pop_back();
        ComparisonOrder::Piece piece = order.pieceAt(at.position);
        piece.length = std::min({piece.length, stretch.to - at.position,
                                 std::uint64_t{mostOfTheTrunk(at.group.size(), lease.capacity())}});
        const bool isLast = stretch.endsTheFile && at.position + piece.length == stretch.to;
        Window window(*this, piece, at.group.size(), lease, verdict, isLast);
        window.sort(at.group);
        window.collect(at.position, stretch.to, open, proven);
    }
}

/// Compares what lies between the two edges.
std::vector<FileGroup> ContentProver::proveInParallel(FileGroup group, const ComparisonOrder& order,
                                                      std::vector<BufferPool::Lease>& leases,
                                                      ContentVerdict& verdict) {
    std::uint64_t from = order.middle();
    std::vector<FileGroup> groups{std::move(group)};
    while (from < order.size() && !groups.empty()) {
        const std::uint64_t share = std::clamp<std::uint64_t>(
            (order.size() - from + leases.size() - 1) / leases.size(), 1, largestStretch);
        std::vector<std::vector<FileGroup>> parts(leases.size());
        pool_.forEach(leases.size(), [&](std::size_t number) {
            const std::uint64_t begin = std::min(order.size(), from + number * share);
            const Stretch stretch{begin, std::min(order.size(), begin + share), false};
            for (const FileGroup& alike : groups) {
                proveStretch(
                    alike, order, stretch, leases[number],
                    [&](FileGroup equal) { parts[number].push_back(std::move(equal)); }, verdict);
            }
        });
        for (const std::vector<FileGroup>& part : parts) {
            groups = refine(groups, part);
        }
        from = std::min(order.size(), from + leases.size() * share);
    }
    return groups;
}

/// There, several readers would only send the heads to and fro. Known of what is kept open.
bool ContentProver::isOnRotationalDevice(std::uint32_t number) const {
    if (candidates_.open.empty()) {
        return false;
    }
    const auto& open = candidates_.open[number];
    return open && open->onlyReader != nullptr;
}

/// Leaves out what was changed or replaced while it was read. Where files are opened for each
/// stretch, that has been looked at then.
FileGroup ContentProver::withoutChanged(const FileGroup& group) {
    if (candidates_.open.empty()) {
        return group;
    }
    FileGroup kept;
    for (const std::uint32_t number : group) {
        const auto& open = candidates_.open[number];
        if (open && reader_.isUnchanged(*open)) {
            kept.push_back(number);
        }
    }
    return kept;
}

}  // namespace tarvin
