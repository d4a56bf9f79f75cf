#pragma once

#include "support/file_content.h"
#include "support/skip.h"
#include "support/temporary_folder.h"
#include "support/waiting.h"

#include <sys/mount.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace tarvin {

/// A folder as a network volume serves it: each call takes `milliseconds`, and nothing is cached.
/// Unmounted on destruction. Where there is no FUSE, the object is false, and the test is reported
/// as skipped.
class SlowNetwork final {
 public:
    struct Statistics {
        std::uint64_t calls = 0;
        std::uint64_t mostAtOnce = 0;
    };

    SlowNetwork(const std::string& folder, int milliseconds, const std::string& options = {}) {
        if (::access("/dev/fuse", R_OK | W_OK) != 0) {
            skipTest("there is no FUSE (/dev/fuse)");
            return;
        }
        const std::string command = std::string(TARVIN_SIMULATED_NETWORK) + " '" + folder + "' '" +
                                    shown_.path() + "' --delay " + std::to_string(milliseconds) +
                                    " --statistics '" + figures() + "' " + options;
        mounted_ = std::system(command.c_str()) == 0;  // NOLINT(concurrency-mt-unsafe)
        if (!mounted_) {
            skipTest("the network could not be simulated (the message is above)");
        }
    }
    SlowNetwork(const SlowNetwork&) = delete;
    SlowNetwork& operator=(const SlowNetwork&) = delete;
    ~SlowNetwork() { end(); }

    explicit operator bool() const { return mounted_; }
    [[nodiscard]] const std::string& path() const { return shown_.path(); }

    /// Unmounts the folder. Returns what was counted.
    Statistics end() {
        Statistics statistics;
        if (mounted_) {
            mounted_ = false;
            ::umount2(shown_.path().c_str(), MNT_DETACH);
            waitUntil([this] { return std::filesystem::exists(figures()); });
            std::ifstream(figures()) >> statistics.calls >> statistics.mostAtOnce;
        }
        return statistics;
    }

 private:
    [[nodiscard]] std::string figures() const { return place_.path() + "/figures"; }

    const TemporaryFolder place_;
    const TemporaryFolder shown_;
    bool mounted_ = false;
};

}  // namespace tarvin
