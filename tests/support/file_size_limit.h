#pragma once

#include <sys/resource.h>

#include <csignal>

namespace tarvin {

/// Simulates a full disk: while it is set, writes of this process beyond a file size fail with
/// EFBIG. Lifted on destruction.
class FileSizeLimit final {
 public:
    FileSizeLimit() : usualHandler_(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &usual_);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit() {
        lift();
        static_cast<void>(std::signal(SIGXFSZ, usualHandler_));
    }

    void set(rlim_t bytes) {
        const rlimit limit{bytes, usual_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    void lift() { ::setrlimit(RLIMIT_FSIZE, &usual_); }

 private:
    void (*const usualHandler_)(int);
    rlimit usual_{};
};

}  // namespace tarvin
