#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace tarvin::bench {

/// The trees there are; corpus_plan.cpp tells what each of them is for.
enum class CorpusKind { small, onesize, late, photos, walk };

/// What a tree is made from. Equal requests give equal plans, on every machine.
struct CorpusRequest {
    CorpusKind kind = CorpusKind::small;
    std::uint64_t seed = 1;
    double scale = 1;                            ///< times the kind's own number of files
    std::optional<std::uint64_t> files;          ///< exactly so many files, whatever the scale
    std::optional<std::uint64_t> copiesPercent;  ///< instead of the kind's own share of copies
};

/// How the names of one kind of file begin and end.
struct NamePattern {
    std::string_view stem;
    std::string_view extension;  ///< with its dot
};

/// One file to be written. Two files of a tree are equal exactly if size, body and tail are.
struct PlannedFile {
    std::uint64_t size = 0;  ///< bytes
    std::uint64_t body = 0;  ///< number of the content, from 1
    std::uint64_t tail = 0;  ///< number of the content of the last bytes; 0: the body's own
    std::uint32_t folder = 0;
    const NamePattern* name = nullptr;  ///< lives as long as the program
};

/// A whole tree: its files in the order in which they are to be written.
struct CorpusPlan {
    std::vector<PlannedFile> files;
    std::size_t folders = 0;
    std::uint64_t headBytes = 0;  ///< so many first bytes are equal in all files
    bool sparse = false;          ///< the files have sizes only, no byte of them is written
};

/// Decides on every file of a tree.
[[nodiscard]] CorpusPlan planCorpus(const CorpusRequest& request);

}  // namespace tarvin::bench
