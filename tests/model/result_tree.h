#pragma once

#include "model/file_store.h"
#include "model/modal.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace tarvin {

inline constexpr auto off = CheckState::off;
inline constexpr auto on = CheckState::on;
inline constexpr auto mixed = CheckState::mixed;
/// An invalid state of a check box.
inline constexpr auto unexpected = static_cast<CheckState>(7);
/// The number of copies in a set without files: 0 - 1 in 64 bits.
inline constexpr std::uint64_t wrapped = std::numeric_limits<std::uint64_t>::max();

inline void PrintTo(CheckState state, std::ostream* out) {
    *out << "CheckState " << static_cast<int>(state);
}

inline void PrintTo(const RemovalResult& result, std::ostream* out) {
    *out << result.deletedFilesCount << " files (" << result.deletedFilesSize << " bytes)";
}

/// The state and the four counters of each level, to be compared in one assertion.
struct Level {
    CheckState state = CheckState::off;
    std::uint64_t total = 0;
    std::uint64_t totalSize = 0;
    std::uint64_t marked = 0;
    std::uint64_t markedSize = 0;

    bool operator==(const Level&) const = default;
};

inline void PrintTo(const Level& level, std::ostream* out) {
    *out << "{state " << static_cast<int>(level.state) << ", total " << level.total << " ("
         << level.totalSize << " bytes), marked " << level.marked << " (" << level.markedSize
         << " bytes)}";
}

inline Level levelOf(const Set& set) {
    return {set.setsState(), set.totalFilesInSet(), set.totalFilesInSetSize(),
            set.totalFilesSelectedInSet(), set.totalFilesSelectedInSetSize()};
}

inline Level levelOf(const Extensions& extension) {
    return {extension.extensionState(), extension.totalFilesInExtension(),
            extension.totalFilesInExtensionSize(), extension.totalFilesSelectedInExtension(),
            extension.totalFilesSelectedInExtensionSize()};
}

/// A list has no check box: its state is always off here.
inline Level levelOf(const Modal& modal) {
    return {CheckState::off, modal.totalFiles(), modal.totalFilesSize(), modal.totalFilesSelected(),
            modal.totalFilesSelectedSize()};
}

inline std::vector<std::string> pathsOf(const Set& set) {
    std::vector<std::string> paths;
    for (const std::shared_ptr<File>& file : set.files()) {
        paths.push_back(file->filePath());
    }
    return paths;
}

inline std::vector<CheckState> marksOf(const Set& set) {
    std::vector<CheckState> marks;
    for (const std::shared_ptr<File>& file : set.files()) {
        marks.push_back(file->state());
    }
    return marks;
}

inline std::string numbered(std::string prefix, std::uint64_t number) {
    prefix += std::to_string(number);
    return prefix;
}

/// A set as a scan builds it: files "/<name>0", "/<name>1" and so on, of the given sizes.
inline std::shared_ptr<Set> makeSet(const std::string& name,
                                    std::initializer_list<std::uint64_t> sizes) {
    auto set = std::make_shared<Set>();
    std::uint64_t bytes = 0;
    for (const std::uint64_t size : sizes) {
        const std::size_t position = set->files().size();
        auto file = FileStore::standalone(numbered("/" + name, position), size);
        file->setIndex(static_cast<std::int64_t>(position));
        set->addFiles(file);
        bytes += position == 0 ? 0 : size;
    }
    set->setTotalFilesInSet(sizes.size() - 1);
    set->setTotalFilesInSetSize(bytes);
    return set;
}

/// An extension as a scan builds it; its totals are the sums over its sets.
inline std::shared_ptr<Extensions> makeExtension(const std::string& name,
                                                 std::initializer_list<std::shared_ptr<Set>> sets) {
    auto extension = std::make_shared<Extensions>(name);
    for (const std::shared_ptr<Set>& set : sets) {
        extension->addSet(set);
        extension->setTotalFilesInExtension(extension->totalFilesInExtension() +
                                            set->totalFilesInSet());
        extension->setTotalFilesInExtensionSize(extension->totalFilesInExtensionSize() +
                                                set->totalFilesInSetSize());
    }
    return extension;
}

/// Adds the extensions to a list as a scan does, and updates the list's totals.
inline void fill(Modal& modal, std::initializer_list<std::shared_ptr<Extensions>> extensions) {
    for (const std::shared_ptr<Extensions>& extension : extensions) {
        modal.addExtension(extension);
    }
    modal.calculateTotalFilesAndSize();
}

}  // namespace tarvin
