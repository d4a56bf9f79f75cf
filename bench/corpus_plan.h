#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace tarvin::bench {

/// The kinds of trees; corpus_plan.cpp describes each.
enum class CorpusKind { small, fewsizes, onesize, late, photos, walk };

/// The parameters of a tree. Equal requests give equal plans on every machine.
struct CorpusRequest {
    CorpusKind kind = CorpusKind::small;
    std::uint64_t seed = 1;
    double scale = 1;                            ///< times the kind's own number of files
    std::optional<std::uint64_t> files;          ///< exactly so many files, at any scale
    std::optional<std::uint64_t> copiesPercent;  ///< instead of the kind's own share of copies
};

/// The prefix and the extension of one kind of file name.
struct NamePattern {
    std::string_view stem;
    std::string_view extension;  ///< with its dot
};

/// One file to write. Two files of a tree are equal if and only if size, body and tail are.
struct PlannedFile {
    std::uint64_t size = 0;  ///< bytes
    std::uint64_t body = 0;  ///< number of the content, from 1
    std::uint64_t tail = 0;  ///< number of the content of the last bytes; 0: the body's own
    std::uint32_t folder = 0;
    const NamePattern* name = nullptr;  ///< lives as long as the program
};

/// A tree: its files in the order in which they are written.
struct CorpusPlan {
    std::vector<PlannedFile> files;
    std::size_t folders = 0;
    std::uint64_t headBytes = 0;  ///< so many first bytes are equal in all files
    bool sparse = false;          ///< the files have sizes only, no byte of them is written
};

/// Plans every file of a tree.
[[nodiscard]] CorpusPlan planCorpus(const CorpusRequest& request);

}  // namespace tarvin::bench
