#pragma once

#include "scan/candidate_reader.h"

#include <cstdint>
#include <span>
#include <vector>

namespace tarvin {

/// Numbers of files of one class, ascending.
using FileGroup = std::vector<std::uint32_t>;

/// Receives the results of comparing the files of one class. Called on the comparing threads,
/// several at once.
class ContentVerdict {
 public:
    virtual ~ContentVerdict() = default;

    /// The state of a group's file when it was opened for the comparison. Reported before its
    /// group.
    virtual void compared(std::uint32_t /*file*/, const FileStamp& /*stamp*/) {}
    /// `bytes` more of a file have been read and compared; no byte is reported twice.
    virtual void advanced(std::uint32_t /*file*/, std::uint64_t /*bytes*/) {}
    /// Two or more files whose bytes are equal from the first to the last. Each file is in at most
    /// one group.
    virtual void equal(FileGroup group) = 0;
    /// Nothing more has to be read of these files: they equal others, differ from all others, or
    /// are unreadable. A file may be reported more than once.
    virtual void decided(std::span<const std::uint32_t> files) = 0;
};

}  // namespace tarvin
