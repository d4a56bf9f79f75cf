#pragma once

#include "support/temporary_folder.h"

#include <sys/mount.h>
#include <unistd.h>

#include <cstdlib>
#include <iostream>
#include <string>

namespace tarvin {

/// A folder shown a second time by a program in user space (bindfs), for the time of a test: files
/// have another device there, and the system may answer from what it was told of them before, as
/// with volumes on a network. Where the machine does not allow that, the reason is printed and the
/// test goes on without.
class FuseView final {
 public:
    /// `options` are those of the mount: "attr_timeout=60,entry_timeout=60" lets the system believe
    /// for a minute what it was told; empty for the default, a second.
    explicit FuseView(const std::string& folder, const std::string& options = {}) {
        if (::access("/dev/fuse", R_OK | W_OK) != 0) {
            std::cout << "Not tried: there is no FUSE here (/dev/fuse)\n";
            return;
        }
        std::string command = "bindfs ";
        command += options.empty() ? "" : "-o " + options + ' ';
        command += '\'' + folder + "' '" + shown_.path() + '\'';
        // It returns once the view is there.
        mounted_ = run(command);
        if (!mounted_) {
            std::cout << "Not tried: bindfs cannot show a folder here (its reason is above)\n";
        }
    }
    FuseView(const FuseView&) = delete;
    FuseView& operator=(const FuseView&) = delete;
    ~FuseView() { release(); }

    explicit operator bool() const { return mounted_; }
    [[nodiscard]] std::string pathOf(const std::string& name) const { return shown_.pathOf(name); }

    /// Its program ends once nobody has anything open there.
    void release() {
        if (mounted_) {
            if (::umount2(shown_.path().c_str(), MNT_DETACH) != 0) {
                // Who is not the administrator has a program for that.
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
