#include "platform/threads.h"

#include <mach/mach.h>
#include <pthread.h>
#include <sys/resource.h>

namespace tarvin {

namespace {

enum Priority { unset, interactive, low, idle };

// The system does not hand it on to the threads that a thread starts.
thread_local int priorityOfThisThread = unset;

void setPriority(int priority) {
    priorityOfThisThread = priority;
    switch (priority) {
        case interactive:
            static_cast<void>(::pthread_set_qos_class_self_np(QOS_CLASS_USER_INTERACTIVE, 0));
            break;
        case low:
            static_cast<void>(::pthread_set_qos_class_self_np(QOS_CLASS_UTILITY, 0));
            break;
        case idle:
            static_cast<void>(::pthread_set_qos_class_self_np(QOS_CLASS_BACKGROUND, 0));
            // Its reads of a disk wait for those of others.
            static_cast<void>(
                ::setiopolicy_np(IOPOL_TYPE_DISK, IOPOL_SCOPE_THREAD, IOPOL_THROTTLE));
            break;
        default:
            break;
    }
}

std::chrono::nanoseconds timeOf(const time_value_t& time) {
    return std::chrono::seconds(time.seconds) + std::chrono::microseconds(time.microseconds);
}

}  // namespace

void makeThreadInteractive() {
    setPriority(interactive);
}

void lowerThreadPriority() {
    setPriority(low);
}

void makeThreadIdle() {
    setPriority(idle);
}

int priorityToHandOn() {
    return priorityOfThisThread;
}

void takePriority(int priority) {
    setPriority(priority);
}

/// The system counts neither the blocks nor the waits of a thread. So that its time without a CPU
/// counts, there is another wait for each call.
ThreadUse useOfThisThread() {
    thread_basic_info_data_t info{};
    mach_msg_type_number_t count = THREAD_BASIC_INFO_COUNT;
    const mach_port_t self = ::pthread_mach_thread_np(::pthread_self());
    void* const answer = &info;
    if (::thread_info(self, THREAD_BASIC_INFO, static_cast<thread_info_t>(answer), &count) !=
        KERN_SUCCESS) {
        return {};
    }
    thread_local std::uint64_t waits = 0;
    return {.waits = ++waits, .ran = timeOf(info.user_time) + timeOf(info.system_time)};
}

std::chrono::nanoseconds timeInQueueOfThisThread() {
    return {};
}

}  // namespace tarvin
