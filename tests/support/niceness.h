#pragma once

#include <sys/resource.h>
#include <unistd.h>

namespace tarvin {

/// The nice value of the calling thread: from -20 to 19, the lowest priority.
inline int nicenessOfThisThread() {
    return ::getpriority(PRIO_PROCESS, static_cast<id_t>(::gettid()));
}

inline constexpr int maxNiceness = 19;

}  // namespace tarvin
