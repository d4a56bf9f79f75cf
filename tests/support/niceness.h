#pragma once

#include <linux/ioprio.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace tarvin {

/// The nice value of the calling thread: from -20 to 19, the lowest priority.
inline int nicenessOfThisThread() {
    return ::getpriority(PRIO_PROCESS, static_cast<id_t>(::gettid()));
}

inline constexpr int maxNiceness = 19;

/// The class in which the requests of the calling thread wait for a disk.
inline int diskClassOfThisThread() {
    const long priority = ::syscall(SYS_ioprio_get, IOPRIO_WHO_PROCESS, 0);
    return IOPRIO_PRIO_CLASS(static_cast<int>(priority));
}

inline constexpr int idleDiskClass = IOPRIO_CLASS_IDLE;

}  // namespace tarvin
