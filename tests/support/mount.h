#pragma once

#include <sys/mount.h>

#include <cerrno>
#include <cstring>
#include <iostream>
#include <string>

namespace tarvin {

/// What is mounted on a folder for the time of a test. Where the machine does not allow that, the
/// reason is printed and the test goes on without.
class Mount final {
 public:
    Mount(const std::string& source, const std::string& folder, const char* type,
          unsigned long flags = 0, const char* options = nullptr)
        : folder_(folder),
          mounted_(::mount(source.c_str(), folder.c_str(), type, flags, options) == 0) {
        if (!mounted_) {
            std::cout << "Nothing can be mounted here: " << std::strerror(errno) << '\n';
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
