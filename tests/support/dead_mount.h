#pragma once

#include <fcntl.h>
#include <sys/mount.h>
#include <unistd.h>

#include <string>
#include <utility>

namespace tarvin {

/// A FUSE mount whose server never replies, like a network volume whose server is gone: every call
/// on it hangs until release(). Requires the right to mount.
class DeadMount final {
 public:
    explicit DeadMount(std::string folder)
        : folder_(std::move(folder)), server_(::open("/dev/fuse", O_RDWR | O_CLOEXEC)) {
        const std::string options =
            "fd=" + std::to_string(server_) + ",rootmode=40000,user_id=0,group_id=0";
        isMounted_ = server_ >= 0 && ::mount("dead", folder_.c_str(), "fuse", MS_NOSUID | MS_NODEV,
                                             options.c_str()) == 0;
    }
    DeadMount(const DeadMount&) = delete;
    DeadMount& operator=(const DeadMount&) = delete;
    ~DeadMount() { release(); }

    /// False if mounting was refused.
    [[nodiscard]] bool isMounted() const { return isMounted_; }

    /// Makes all pending calls fail, and unmounts.
    void release() {
        if (server_ >= 0) {
            ::close(std::exchange(server_, -1));
        }
        if (std::exchange(isMounted_, false)) {
            ::umount2(folder_.c_str(), MNT_DETACH);
        }
    }

 private:
    const std::string folder_;
    int server_;
    bool isMounted_ = false;
};

}  // namespace tarvin
