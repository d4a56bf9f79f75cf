#pragma once

#include "support/skip.h"

#include <sys/mount.h>

#include <cerrno>
#include <cstring>
#include <string>

namespace tarvin {

/// A mount, unmounted on destruction. Where mounting is refused, the object is false, and the test
/// is reported as skipped.
class Mount final {
 public:
    Mount(const std::string& source, const std::string& folder, const char* type,
          unsigned long flags = 0, const char* options = nullptr)
        : folder_(folder),
          mounted_(::mount(source.c_str(), folder.c_str(), type, flags, options) == 0) {
        if (!mounted_) {
            skipTest(std::string("mounting is refused: ") + std::strerror(errno));
        }
    }
    Mount(const Mount&) = delete;
    Mount& operator=(const Mount&) = delete;
    ~Mount() { release(); }

    explicit operator bool() const { return mounted_; }

    void release() {
        if (mounted_) {
            ::umount2(folder_.c_str(), MNT_DETACH);
            mounted_ = false;
        }
    }

 private:
    const std::string folder_;
    bool mounted_;
};

}  // namespace tarvin
