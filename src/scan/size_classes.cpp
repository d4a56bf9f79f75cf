#include "scan/size_classes.h"

#include <bit>

namespace tarvin {

namespace {

constexpr std::uint32_t noPosition = 0xFFFFFFFF;

/// The first file of each size, in a hash table with linear probing that is at most half full.
class FirstBySize final {
 public:
    explicit FirstBySize(std::span<File* const> files)
        : files_(files), slots_(std::bit_ceil(files.size() * 2 + 1), noPosition) {}

    std::uint32_t& of(std::uint64_t size) {
        std::size_t slot = spread(size) & (slots_.size() - 1);
        while (slots_[slot] != noPosition && files_[slots_[slot]]->fileSize() != size) {
            slot = (slot + 1) & (slots_.size() - 1);
        }
        return slots_[slot];
    }

 private:
    static std::size_t spread(std::uint64_t size) {
        const std::uint64_t product = size * 0x9E3779B97F4A7C15U;
        return static_cast<std::size_t>(product ^ (product >> 32U));
    }

    std::span<File* const> files_;
    std::vector<std::uint32_t> slots_;
};

}  // namespace

SizeClasses::SizeClasses(std::span<File* const> files)
    : next_(files.size(), noPosition), classOf_(files.size(), noClass) {
    {
        // From the end, so that each file is inserted before those of its size that follow it.
        FirstBySize first(files);
        for (auto position = static_cast<std::uint32_t>(files.size()); position-- > 0;) {
            std::uint32_t& head = first.of(files[position]->fileSize());
            next_[position] = head;
            head = position;
        }
    }
    for (std::uint32_t position = 0; position < files.size(); ++position) {
        if (next_[position] == noPosition || classOf_[position] != noClass) {
            continue;
        }
        const auto number = static_cast<std::uint32_t>(heads_.size());
        heads_.push_back(position);
        counts_.push_back(0);
        for (std::uint32_t member = position; member != noPosition; member = next_[member]) {
            classOf_[member] = number;
            ++counts_.back();
        }
    }
}

void SizeClasses::members(std::size_t number, std::vector<std::uint32_t>& positions) const {
    positions.clear();
    positions.reserve(counts_[number]);
    for (std::uint32_t at = heads_[number]; at != noPosition; at = next_[at]) {
        positions.push_back(at);
    }
}

}  // namespace tarvin
