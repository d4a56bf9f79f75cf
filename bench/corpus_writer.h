#pragma once

#include "corpus_plan.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace tarvin::bench {

/// Writes a planned tree to the disk. Call write() at most once. One thread. A failure is reported
/// on standard error and leaves the files written so far.
class CorpusWriter final {
 public:
    /// `plan` must outlive this object. `seed` determines the contents.
    CorpusWriter(const CorpusPlan& plan, std::uint64_t seed);

    /// Makes the folder `out`, which must not exist, and its files. Returns false on failure.
    bool write(const std::string& out);

    /// The total size of all files in bytes, after a successful write().
    [[nodiscard]] std::uint64_t bytes() const { return bytes_; }

 private:
    bool makeFolders(const std::string& out);
    bool writeFile(const std::string& path, const PlannedFile& file);
    bool writeContent(int descriptor, const PlannedFile& file);
    void overlayHead(std::span<char> firstBlock) const;
    void overlayTail(std::span<char> block, std::uint64_t offset, const PlannedFile& file) const;
    [[nodiscard]] std::uint64_t streamSeed(std::uint64_t number) const;

    const CorpusPlan& plan_;
    std::uint64_t seed_ = 0;
    std::uint64_t bytes_ = 0;
    std::vector<std::string> folders_;  ///< paths, by the number of the folder
    std::vector<char> head_;            ///< the bytes all files begin with
    std::vector<char> buffer_;
};

}  // namespace tarvin::bench
