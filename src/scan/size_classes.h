#pragma once

#include "model/file.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tarvin {

/// The files of one category by recorded size. Costs no file access and time in proportion to the
/// number of files; 8 bytes a file. Lists of up to four thousand million files. Never changes once
/// made.
class SizeClasses final {
 public:
    explicit SizeClasses(std::span<File* const> files);

    /// How many sizes two or more files have. These classes are numbered in the order of their
    /// first files.
    [[nodiscard]] std::size_t count() const { return heads_.size(); }
    /// Puts the positions of a class's files in the list into `positions`, ascending.
    void members(std::size_t number, std::vector<std::uint32_t>& positions) const;
    [[nodiscard]] std::size_t memberCount(std::size_t number) const { return counts_[number]; }
    /// The position of its first file.
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
