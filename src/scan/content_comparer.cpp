#include "scan/content_comparer.h"

#include "scan/read_ahead.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <optional>
#include <unordered_map>
#include <utility>

namespace tarvin {

namespace {

// A group with more than this to compare is cut into sections for several workers.
constexpr std::uint64_t minSharedBytes = 4 * 1024 * 1024;
constexpr std::uint64_t maxSectionBytes = 8 * 1024 * 1024;
constexpr std::size_t maxSections = 8;
// Bytes that are read of one file on a rotational disk before the arm goes to the next one. Unless
// the files are most likely copies, the first stretch is short, because most files that differ do
// so early; the next one is this many times as long. At the most, two files need 180 ms for a
// stretch and 13 ms for the way to it. The stretches of all files of a group wait in the page
// cache.
constexpr std::uint64_t minStretchBytes = 2 * 1024 * 1024;
constexpr std::uint64_t stretchGrowth = 16;
constexpr std::uint64_t maxStretchesBytes = 64 * 1024 * 1024;

/// Splits each group into the parts whose files are also together in one group of `parts`.
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
            // A file in no part differs from all others.
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

ContentComparer::ContentComparer(CandidateReader& reader, BufferPool& buffers, WorkerPool& pool,
                                 Candidates candidates)
    : reader_(reader), buffers_(buffers), pool_(pool), candidates_(candidates) {}

void ContentComparer::compare(FileGroup group, ContentVerdict& verdict) {
    const FileGroup members = group;
    // NOLINTNEXTLINE(bugprone-unchecked-optional-access): members were read.
    const ComparisonOrder order(candidates_.seen[group.front()]->size);
    const bool inParallel = pool_.cores() > 1 && group.size() <= maxSmallGroup &&
                            order.size() - order.middle() > minSharedBytes &&
                            !isOnRotationalDevice(group.front());
    const std::size_t leaseCount =
        inParallel ? std::min<std::size_t>(pool_.cores(), maxSections) : 1;
    std::vector<BufferPool::Lease> leases =
        buffers_.takeSeveral(leaseCount, slabsFor(group.size()));

    if (inParallel) {
        std::vector<FileGroup> groups;
        compareSection(
            std::move(group), order, {0, order.middle(), false}, leases.front(),
            [&groups](FileGroup alike) { groups.push_back(std::move(alike)); }, verdict);
        for (FileGroup& alike : groups) {
            for (FileGroup& equal : compareInParallel(std::move(alike), order, leases, verdict)) {
                report(equal, verdict);
            }
        }
    } else {
        compareSection(
            std::move(group), order, {0, order.size(), true}, leases.front(),
            [&](const FileGroup& equal) { report(equal, verdict); }, verdict);
    }
    if (!reader_.control().stop()) {
        verdict.decided(members);
    }
}

void ContentComparer::report(const FileGroup& group, ContentVerdict& verdict) {
    FileGroup kept = withoutChanged(group);
    if (kept.size() > 1) {
        std::sort(kept.begin(), kept.end());
        verdict.equal(std::move(kept));
    }
}

/// A file whose reading a stop cut short looks unreadable: it is in no group that reaches the end.
void ContentComparer::compareSection(FileGroup group, const ComparisonOrder& order, Section section,
                                     BufferPool::Lease& lease, const Agreed& agreed,
                                     ContentVerdict& verdict) {
    if (section.from == section.to) {
        agreed(std::move(group));
        return;
    }
    std::vector<AgreeingFiles> open;
    open.push_back({std::move(group), section.from});
    while (!open.empty() && !reader_.control().stop()) {
        AgreeingFiles at = std::move(open.back());
        open.pop_back();
        ComparisonOrder::Range range = order.rangeAt(at.position);
        range.length =
            std::min({range.length, section.to - at.position,
                      std::uint64_t{maxReferenceBytes(at.group.size(), lease.capacity())}});
        readAhead(at, order, at.position + range.length);
        const bool isLast = section.isWholeFile && at.position + range.length == section.to;
        RangeComparison comparison({reader_, pool_, candidates_, verdict}, range, at.group.size(),
                                   lease, isLast);
        comparison.compare(at.group);
        comparison.collect(at, section.to, open, agreed);
    }
}

/// Before files on a rotational disk are compared up to position `to`: begins to read the next
/// stretch of each file, one after the other, unless they are read ahead so far, or it is in the
/// beginnings that ReadAhead reads. They are compared in turns of a few hundred kilobytes, and
/// otherwise each turn would seek.
void ContentComparer::readAhead(AgreeingFiles& files, const ComparisonOrder& order,
                                std::uint64_t to) {
    const std::uint64_t first =
        order.middle() - ComparisonOrder::edgeBytes + ReadAhead::beginningBytes;
    if (to <= std::max(files.readAheadTo, first) || !isOnRotationalDevice(files.group.front())) {
        return;
    }
    const std::uint64_t from = std::max(files.position, files.readAheadTo);
    const std::uint64_t most = std::max(maxStretchesBytes / files.group.size(), minStretchBytes);
    const std::uint64_t next = files.readAheadTo == 0
                                   ? minStretchBytes
                                   : std::clamp(from * stretchGrowth, minStretchBytes, most);
    const std::uint64_t wanted = ReadAhead::areLikelyCopies(files.group.size()) ? most : next;
    const ComparisonOrder::Range rest = order.rangeAt(from);
    const std::uint64_t length = std::min(wanted, rest.length);
    for (const std::uint32_t number : files.group) {
        if (const auto& candidate = candidates_.open[number]) {
            reader_.readAhead(*candidate, rest.offset, length);
        }
    }
    files.readAheadTo = from + length;
}

/// Compares the bytes between the two edges.
std::vector<FileGroup> ContentComparer::compareInParallel(FileGroup group,
                                                          const ComparisonOrder& order,
                                                          std::vector<BufferPool::Lease>& leases,
                                                          ContentVerdict& verdict) {
    std::uint64_t from = order.middle();
    std::vector<FileGroup> groups{std::move(group)};
    while (from < order.size() && !groups.empty()) {
        const std::uint64_t share = std::clamp<std::uint64_t>(
            (order.size() - from + leases.size() - 1) / leases.size(), 1, maxSectionBytes);
        std::vector<std::vector<FileGroup>> parts(leases.size());
        pool_.forEach(leases.size(), [&](std::size_t number) {
            const std::uint64_t begin = std::min(order.size(), from + number * share);
            const Section section{begin, std::min(order.size(), begin + share), false};
            for (const FileGroup& alike : groups) {
                compareSection(
                    alike, order, section, leases[number],
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

/// On a rotational disk several readers at once only cause seeks. Known for files kept open.
bool ContentComparer::isOnRotationalDevice(std::uint32_t number) const {
    if (candidates_.open.empty()) {
        return false;
    }
    const auto& open = candidates_.open[number];
    return open && open->onlyReader != nullptr;
}

/// Removes files that were changed or replaced while they were read. Files that are opened for each
/// range have been checked then.
FileGroup ContentComparer::withoutChanged(const FileGroup& group) {
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
