#include "platform/thread_priority.h"

#include <sys/resource.h>
#include <unistd.h>

namespace tarvin {

namespace {

// Where there is not enough for all, the thread gets about a third of what the others get.
constexpr int step = 5;

}  // namespace

void standBack() {
    // The thread's own, though the names say process: niceness is kept by thread here.
    const auto self = static_cast<id_t>(::gettid());
    static_cast<void>(::setpriority(PRIO_PROCESS, self, ::getpriority(PRIO_PROCESS, self) + step));
}

}  // namespace tarvin
