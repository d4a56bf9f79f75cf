#include "platform/thread_usage.h"

#include <sys/resource.h>

namespace tarvin {

std::uint64_t deviceReadsOfThisThread() {
    rusage usage{};
    if (::getrusage(RUSAGE_THREAD, &usage) != 0) {
        return 0;
    }
    return static_cast<std::uint64_t>(usage.ru_inblock);
}

}  // namespace tarvin
