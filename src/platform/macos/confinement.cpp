#include "platform/confinement.h"

#include "platform/threads.h"

#include <sys/event.h>
#include <unistd.h>

#include <cstdint>
#include <thread>

// <sandbox.h> marks it as deprecated, without a replacement for programs that are no app bundles.
extern "C" int sandbox_init(const char* profile, std::uint64_t flags, char** message);
extern "C" void sandbox_free_error(char* message);
extern "C" const char kSBXProfilePureComputation[];

namespace tarvin {

void endWithParent() {
    const pid_t parent = ::getppid();
    const int queue = ::kqueue();
    struct kevent end{};
    EV_SET(&end, static_cast<std::uintptr_t>(parent), EVFILT_PROC, EV_ADD, NOTE_EXIT, 0, nullptr);
    const bool isWatched = queue >= 0 && ::kevent(queue, &end, 1, nullptr, 0, nullptr) == 0;
    if (parent == 1 || ::getppid() != parent) {
        ::_exit(1);
    }
    if (!isWatched) {
        return;
    }
    std::thread watch = startThread([queue] {
        struct kevent event{};
        if (::kevent(queue, nullptr, 0, &event, 1, nullptr) == 1) {
            ::_exit(1);
        }
    });
    if (watch.joinable()) {
        watch.detach();
    }
}

void limitThreadStacks() {
    // Threads have stacks of 512 KiB here, whatever the user's limit is.
}

bool confineToOpenFiles() {
    constexpr std::uint64_t namedProfile = 1;
    char* message = nullptr;
    const bool isConfined = ::sandbox_init(kSBXProfilePureComputation, namedProfile, &message) == 0;
    if (message != nullptr) {
        ::sandbox_free_error(message);
    }
    return isConfined;
}

}  // namespace tarvin
