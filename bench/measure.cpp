// Runs one program and records its time and peak memory. A separate program, because the peak of a
// process includes the memory of the process that forked it: the Python interpreter with the
// results of a large run would hide the peak of a small program.

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>

namespace {

constexpr int cannotStart = 127;

double seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

/// Returns the status as the shell does: the exit status, or 128 plus the signal number.
int exitNumber(int status) {
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

[[noreturn]] void become(char** command) {
    ::execvp(command[0], command);
    std::perror(command[0]);
    ::_exit(cannotStart);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fputs(
            "usage: measure RESULT PROGRAM [ARGUMENT...]\n"
            "Writes to the file RESULT: wall seconds, user seconds, system seconds, peak resident\n"
            "KiB, exit status. Children that the program waits for are counted in.\n",
            stderr);
        return 2;
    }
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = ::fork();
    if (child == 0) {
        become(argv + 2);
    }
    int status = 0;
    rusage usage{};
    if (child < 0 || ::wait4(child, &status, 0, &usage) != child) {
        std::perror("measure");
        return 1;
    }
    const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - start;
    std::FILE* result = std::fopen(argv[1], "we");
    if (result == nullptr) {
        std::perror(argv[1]);
        return 1;
    }
    std::fprintf(result, "%.6f %.6f %.6f %ld %d\n", wall.count(), seconds(usage.ru_utime),
                 seconds(usage.ru_stime), usage.ru_maxrss, exitNumber(status));
    return std::fclose(result) == 0 ? 0 : 1;
}
