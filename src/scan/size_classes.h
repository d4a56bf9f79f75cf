#pragma once

#include "model/file.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tarvin {

/// Groups the files of one category by recorded size, without file access. Time is linear in the
/// number of files, memory 8 bytes per file. At most 4 billion files. Immutable.
class SizeClasses final {
 public:
    explicit SizeClasses(std::span<File* const> files);

    /// The number of sizes shared by two or more files. These classes are numbered in the order of
    /// their first files.
    [[nodiscard]] std::size_t count() const { return heads_.size(); }
    /// Sets `positions` to the positions of the class's files in the list, ascending.
    void members(std::size_t number, std::vector<std::uint32_t>& positions) const;
    [[nodiscard]] std::size_t memberCount(std::size_t number) const { return counts_[number]; }
    /// The position of the class's first file.
    [[nodiscard]] std::uint32_t firstOf(std::size_t number) const { return heads_[number]; }

    static constexpr std::uint32_t noClass = 0xFFFFFFFF;
    /// The class of the file at a position; noClass if no other file has its size.
    [[nodiscard]] std::uint32_t classOf(std::uint32_t position) const { return classOf_[position]; }

 private:
    std::vector<std::uint32_t> next_;     // the next file of the same size, by position
    std::vector<std::uint32_t> classOf_;  // by position
    std::vector<std::uint32_t> heads_;
    std::vector<std::uint32_t> counts_;
};

}  // namespace tarvin
