#pragma once

#include "support/skip.h"
#include "support/temporary_folder.h"

#include <sys/mount.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

namespace tarvin {

/// A second view of a folder through FUSE (bindfs), unmounted on destruction: files have another
/// device number there, and the kernel may serve attributes and names from its cache, as for
/// network volumes. Where there is no FUSE, the object is false, and the test is reported as
/// skipped.
class FuseView final {
 public:
    /// `options` are mount options: "attr_timeout=60,entry_timeout=60" lets the kernel cache
    /// attributes and names for a minute; the default is a second.
    explicit FuseView(const std::string& folder, const std::string& options = {}) {
        if (::access("/dev/fuse", R_OK | W_OK) != 0) {
            skipTest("there is no FUSE (/dev/fuse)");
            return;
        }
        std::string command = "bindfs ";
        command += options.empty() ? "" : "-o " + options + ' ';
        command += '\'' + folder + "' '" + shown_.path() + '\'';
        // bindfs returns when the view is mounted.
        mounted_ = run(command);
        if (!mounted_) {
            skipTest("bindfs failed (its message is above)");
        }
    }
    FuseView(const FuseView&) = delete;
    FuseView& operator=(const FuseView&) = delete;
    ~FuseView() { release(); }

    explicit operator bool() const { return mounted_; }
    [[nodiscard]] std::string pathOf(const std::string& name) const { return shown_.pathOf(name); }

    /// Unmounts the view; bindfs exits when the last file in it is closed.
    void release() {
        if (mounted_) {
            if (::umount2(shown_.path().c_str(), MNT_DETACH) != 0) {
                // umount2() needs root; fusermount is set-user-ID.
                run("fusermount -uz '" + shown_.path() + '\'');
            }
            mounted_ = false;
        }
    }

 private:
    static bool run(const std::string& command) {
        return std::system(command.c_str()) == 0;  // NOLINT(concurrency-mt-unsafe)
    }

    const TemporaryFolder shown_;
    bool mounted_ = false;
};

}  // namespace tarvin
