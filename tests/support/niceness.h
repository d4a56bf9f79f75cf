#pragma once

#include <sys/resource.h>
#include <unistd.h>

namespace tarvin {

/// How far the calling thread stands back: from -20, not at all, to 19.
inline int nicenessOfThisThread() {
    return ::getpriority(PRIO_PROCESS, static_cast<id_t>(::gettid()));
}

inline constexpr int mostNiceness = 19;

}  // namespace tarvin
