#include "corpus_plan.h"

#include "random.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

namespace tarvin::bench {
namespace {

constexpr std::uint64_t kibibyte = 1024;
constexpr std::uint64_t mebibyte = 1024 * kibibyte;

constexpr std::uint64_t oneSizeBytes = 64 * kibibyte;
constexpr std::uint64_t oneSizeHeadBytes = 4 * kibibyte;
constexpr std::uint64_t lateBytes = 32 * mebibyte;
constexpr std::uint64_t lateFamily = 4;
constexpr std::size_t minFolders = 8;       // four copies need four folders
constexpr std::size_t maxFolders = 19'530;  // a full tree of fan-out 5 and depth 6

// All files of a group have one kind of name: a finder may compare documents and images separately.
// Every name has an extension: files without one are skipped.
constexpr std::array<NamePattern, 6> names{{{"IMG_", ".jpg"},
                                            {"screenshot-", ".png"},
                                            {"note ", ".txt"},
                                            {"track-", ".mp3"},
                                            {"report_", ".pdf"},
                                            {"backup.", ".dat"}}};

std::uint64_t fileCount(const CorpusRequest& request, std::uint64_t atScaleOne) {
    const double scaled = static_cast<double>(atScaleOne) * request.scale;
    return request.files.value_or(std::max<std::uint64_t>(1, static_cast<std::uint64_t>(scaled)));
}

std::size_t folderCount(std::uint64_t files, std::uint64_t filesPerFolder) {
    const std::size_t wanted = files / filesPerFolder;
    return std::clamp(wanted, minFolders, maxFolders);
}

/// Chooses a different folder for each file of a group of copies.
void spread(std::span<PlannedFile> copies, std::size_t folders, Random& random) {
    const std::uint64_t start = random.below(folders);
    const std::uint64_t step = 1 + random.below(folders / 4);
    for (std::size_t i = 0; i < copies.size(); ++i) {
        copies[i].folder = static_cast<std::uint32_t>((start + i * step) % folders);
    }
}

/// Appends `count` equal files with a new content.
void addGroup(CorpusPlan& corpus, const PlannedFile& file, std::uint64_t count, Random& random) {
    const std::size_t first = corpus.files.size();
    corpus.files.insert(corpus.files.end(), count, file);
    spread(std::span(corpus.files).subspan(first), corpus.folders, random);
}

/// Adds `count` files, `copiesPercent` % of them copies of an earlier one, in groups of 2 to
/// `largestGroup`. `describe` returns the size and the extension of a new content.
template <typename Describe>
void addFiles(CorpusPlan& corpus, std::uint64_t count, std::uint64_t copiesPercent,
              std::uint64_t largestGroup, Random& random, Describe describe) {
    corpus.files.reserve(count);
    std::uint64_t copiesLeft = count * copiesPercent / 100;
    for (std::uint64_t body = 1; corpus.files.size() < count; ++body) {
        PlannedFile file = describe();
        file.body = body;
        const std::uint64_t wanted = 1 + random.below(largestGroup - 1);
        const std::uint64_t room = count - corpus.files.size() - 1;
        const std::uint64_t copies = std::min({wanted, copiesLeft, room});
        copiesLeft -= copies;
        addGroup(corpus, file, copies + 1, random);
    }
}

/// Many small files, nearly all of a size shared with others.
CorpusPlan planSmall(const CorpusRequest& request, Random& random) {
    const std::uint64_t count = fileCount(request, 100'000);
    CorpusPlan corpus;
    corpus.folders = folderCount(count, 330);
    addFiles(corpus, count, request.copiesPercent.value_or(25), 4, random, [&random] {
        PlannedFile file;
        file.size = kibibyte / 2 + random.below(15 * kibibyte + kibibyte / 2 + 1);
        file.name = &names[random.below(names.size())];
        return file;
    });
    return corpus;
}

/// Small files of six sizes: each has to be read, and copies are far apart.
CorpusPlan planFewSizes(const CorpusRequest& request, Random& random) {
    constexpr std::array<std::uint64_t, 6> sizes{3'000, 5'000, 8'000, 12'000, 20'000, 40'000};
    const std::uint64_t count = fileCount(request, 100'000);
    CorpusPlan corpus;
    corpus.folders = folderCount(count, 50);
    addFiles(corpus, count, request.copiesPercent.value_or(25), 2, random, [&] {
        PlannedFile file;
        file.size = sizes[random.below(sizes.size())];
        file.name = &names.front();
        return file;
    });
    return corpus;
}

/// Files of one size and one extension with equal beginnings: the largest class of candidates.
CorpusPlan planOneSize(const CorpusRequest& request, Random& random) {
    const std::uint64_t count = fileCount(request, 20'000);
    CorpusPlan corpus;
    corpus.folders = folderCount(count, 100);
    corpus.headBytes = oneSizeHeadBytes;
    addFiles(corpus, count, request.copiesPercent.value_or(10), 2, random, [] {
        PlannedFile file;
        file.size = oneSizeBytes;
        file.name = &names.front();
        return file;
    });
    return corpus;
}

/// Groups of four large files: two equal ones, and two that differ from these and from each other
/// in their last bytes only.
CorpusPlan planLate(const CorpusRequest& request, Random& random) {
    const std::uint64_t families = std::max<std::uint64_t>(1, fileCount(request, 48) / lateFamily);
    CorpusPlan corpus;
    corpus.folders = folderCount(families * lateFamily, lateFamily);
    for (std::uint64_t family = 1; family <= families; ++family) {
        PlannedFile file;
        file.size = lateBytes + family * 4 * kibibyte;
        file.body = family;
        file.name = &names.back();
        addGroup(corpus, file, lateFamily, random);
        const std::span<PlannedFile> members = std::span(corpus.files).last(lateFamily);
        members[2].tail = 2 * family;
        members[3].tail = 2 * family + 1;
    }
    return corpus;
}

/// Sizes from 200 KiB to 4 MiB, about 1 MiB on average: the fourth power of a uniform distribution
/// favours small ones.
std::uint64_t photoSize(Random& random) {
    const double unit = random.unit();
    const double span = static_cast<double>(4 * mebibyte - 200 * kibibyte);
    return 200 * kibibyte + static_cast<std::uint64_t>(unit * unit * unit * unit * span);
}

/// Like a folder of photos: large files, rarely of equal size unless they are copies.
CorpusPlan planPhotos(const CorpusRequest& request, Random& random) {
    const std::uint64_t count = fileCount(request, 3'000);
    CorpusPlan corpus;
    corpus.folders = folderCount(count, 50);
    addFiles(corpus, count, request.copiesPercent.value_or(15), 3, random, [&random] {
        PlannedFile file;
        file.size = photoSize(random);
        file.name = &names.front();
        return file;
    });
    return corpus;
}

/// Files that need not be read: each has a different size.
CorpusPlan planWalk(const CorpusRequest& request, Random& random) {
    const std::uint64_t count = fileCount(request, 300'000);
    CorpusPlan corpus;
    corpus.folders = folderCount(count, 50);
    corpus.sparse = true;
    std::uint64_t size = 0;
    addFiles(corpus, count, 0, 2, random, [&random, &size] {
        PlannedFile file;
        file.size = ++size;
        file.name = &names[random.below(names.size())];
        return file;
    });
    return corpus;
}

/// Shuffles the files, so that copies are not adjacent on the disk. Our own implementation: the
/// result of std::shuffle differs between libraries.
void shuffle(std::vector<PlannedFile>& files, Random& random) {
    for (std::size_t i = files.size(); i > 1; --i) {
        std::swap(files[i - 1], files[random.below(i)]);
    }
}

CorpusPlan planKind(const CorpusRequest& request, Random& random) {
    switch (request.kind) {
        case CorpusKind::small:
            return planSmall(request, random);
        case CorpusKind::fewsizes:
            return planFewSizes(request, random);
        case CorpusKind::onesize:
            return planOneSize(request, random);
        case CorpusKind::late:
            return planLate(request, random);
        case CorpusKind::photos:
            return planPhotos(request, random);
        case CorpusKind::walk:
            return planWalk(request, random);
    }
    return {};
}

}  // namespace

CorpusPlan planCorpus(const CorpusRequest& request) {
    Random random(request.seed);
    CorpusPlan corpus = planKind(request, random);
    shuffle(corpus.files, random);
    return corpus;
}

}  // namespace tarvin::bench
