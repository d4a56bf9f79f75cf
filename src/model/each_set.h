#pragma once

#include "model/set.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <vector>

namespace tarvin {

/// Asks the processor to load an object of at most two cache lines; the program does not wait for
/// it. Any address is allowed.
template <typename Object>
void requestMemory(const Object* object) {
    __builtin_prefetch(object);
    __builtin_prefetch(reinterpret_cast<const std::byte*>(object) + sizeof(Object) - 1);
}

/// Calls `visit(set)` with each set, in order; neither the list nor the files of the sets may
/// change meanwhile. In a result of millions of sets, each set, its list of files and each file are
/// somewhere else in memory. They are requested some sets ahead, which takes half to a third of the
/// time of waiting for each. `visit` may return false, which ends the walk and is returned.
template <typename Visit>
bool forEachSet(const std::vector<std::shared_ptr<Set>>& sets, Visit visit) {
    // Each step reads what the step before requested some sets earlier.
    constexpr std::size_t setsAhead = 24;
    constexpr std::size_t listsAhead = 16;
    constexpr std::size_t filesAhead = 8;
    constexpr std::size_t mostFiles = 4;  // of one set; more would push out each other
    const std::size_t count = sets.size();
    for (std::size_t number = 0; number < count; ++number) {
        if (number + setsAhead < count) {
            requestMemory(sets[number + setsAhead].get());
        }
        if (number + listsAhead < count) {
            requestMemory(sets[number + listsAhead]->files().data());
        }
        if (number + filesAhead < count) {
            const std::vector<std::shared_ptr<File>>& files = sets[number + filesAhead]->files();
            const std::size_t end = std::min(files.size(), mostFiles);
            for (std::size_t position = 0; position < end; ++position) {
                requestMemory(files[position].get());
            }
        }
        if (!visit(*sets[number])) {
            return false;
        }
    }
    return true;
}

}  // namespace tarvin
