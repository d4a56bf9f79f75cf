#include "platform/confinement.h"

#include <fcntl.h>
#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/sched.h>
#include <linux/seccomp.h>
#include <pthread.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tarvin {

namespace {

// System call numbers depend on the architecture, which the filter checks first. 0 where it is
// unknown.
#if defined(__x86_64__) && !defined(__ILP32__)
constexpr std::uint32_t architecture = AUDIT_ARCH_X86_64;
#elif defined(__aarch64__) && defined(__AARCH64EL__)
constexpr std::uint32_t architecture = AUDIT_ARCH_AARCH64;
#elif defined(__riscv) && __riscv_xlen == 64
constexpr std::uint32_t architecture = AUDIT_ARCH_RISCV64;
#else
constexpr std::uint32_t architecture = 0;
#endif

/// Allowed with any arguments: none takes a path or a network address, or affects another process.
constexpr std::array allowedCalls{
    // open files, and pipes, with which the sanitizers probe memory
    SYS_read, SYS_write, SYS_readv, SYS_writev, SYS_pread64, SYS_lseek, SYS_close, SYS_fstat,
#ifdef SYS_poll
    SYS_poll, SYS_pipe,
#endif
    SYS_ppoll, SYS_pipe2,
    // memory
    SYS_brk, SYS_munmap, SYS_mprotect, SYS_mremap, SYS_madvise,
    // threads and signals
    SYS_eventfd2, SYS_futex, SYS_set_robust_list, SYS_rseq, SYS_gettid, SYS_getpid, SYS_exit,
    SYS_exit_group, SYS_sched_yield, SYS_sched_getaffinity, SYS_sigaltstack, SYS_rt_sigaction,
    SYS_rt_sigprocmask, SYS_rt_sigreturn, SYS_restart_syscall, SYS_membarrier,
    // clocks and random numbers
    SYS_clock_gettime, SYS_clock_getres, SYS_clock_nanosleep, SYS_nanosleep, SYS_gettimeofday,
    SYS_getrandom, SYS_getrusage, SYS_times, SYS_uname, SYS_sysinfo};

/// A call that is allowed if its argument has a flag.
struct AllowedWithFlag {
    long call;
    unsigned argument;  ///< counted from 0
    std::uint32_t flag;
};

constexpr std::array allowedWithFlag{
    // Memory only: RLIMIT_DATA does not count mapped files.
    AllowedWithFlag{SYS_mmap, 3, MAP_ANONYMOUS},
    // A thread, not a process.
    AllowedWithFlag{SYS_clone, 0, CLONE_THREAD},
    // Of an open file; callers that pass this flag pass an empty path.
    AllowedWithFlag{SYS_newfstatat, 3, AT_EMPTY_PATH},
    AllowedWithFlag{SYS_statx, 2, AT_EMPTY_PATH},
};

constexpr std::uint32_t lowHalfOf(unsigned argument) {
    return static_cast<std::uint32_t>(offsetof(seccomp_data, args) +
                                      argument * sizeof(std::uint64_t));
}

sock_filter load(std::uint32_t offset) {
    return BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offset);
}

sock_filter answer(std::uint32_t action) {
    return BPF_STMT(BPF_RET | BPF_K, action);
}

/// Skips the next `skipped` steps if the loaded number is not `value`.
sock_filter unlessEqualSkip(std::uint32_t value, std::uint8_t skipped) {
    return BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, value, 0, skipped);
}

/// The program that the kernel runs for each system call. All other calls fail as if the kernel did
/// not have them: libraries then fall back or fail, as on an older kernel.
std::vector<sock_filter> filterOfCalls() {
    constexpr std::uint32_t refusal = SECCOMP_RET_ERRNO | ENOSYS;
    std::vector<sock_filter> steps{
        load(offsetof(seccomp_data, arch)), unlessEqualSkip(architecture, 1),
        BPF_JUMP(BPF_JMP | BPF_JA, 1, 0, 0), answer(refusal), load(offsetof(seccomp_data, nr))};
    for (const long call : allowedCalls) {
        steps.push_back(unlessEqualSkip(static_cast<std::uint32_t>(call), 1));
        steps.push_back(answer(SECCOMP_RET_ALLOW));
    }
    for (const AllowedWithFlag& allowed : allowedWithFlag) {
        steps.push_back(unlessEqualSkip(static_cast<std::uint32_t>(allowed.call), 4));
        steps.push_back(load(lowHalfOf(allowed.argument)));
        steps.push_back(BPF_JUMP(BPF_JMP | BPF_JSET | BPF_K, allowed.flag, 0, 1));
        steps.push_back(answer(SECCOMP_RET_ALLOW));
        steps.push_back(answer(refusal));
    }
    steps.push_back(answer(refusal));
    return steps;
}

}  // namespace

void endWithParent() {
    const pid_t parent = ::getppid();
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent) {
        ::_exit(1);
    }
}

void limitThreadStacks() {
    constexpr std::size_t stackBytes = 1024 * 1024;
    pthread_attr_t attributes{};
    if (::pthread_attr_init(&attributes) != 0) {
        return;
    }
    ::pthread_attr_setstacksize(&attributes, stackBytes);
    ::pthread_setattr_default_np(&attributes);
    ::pthread_attr_destroy(&attributes);
}

bool confineToOpenFiles() {
    if constexpr (architecture == 0) {
        return false;
    }
    // Required for a filter without privileges.
    if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) {
        return false;
    }
    std::vector<sock_filter> steps = filterOfCalls();
    const sock_fprog program{static_cast<unsigned short>(steps.size()), steps.data()};
    // For all threads, or none.
    return ::syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, SECCOMP_FILTER_FLAG_TSYNC, &program) ==
           0;
}

}  // namespace tarvin
