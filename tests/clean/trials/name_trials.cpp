#include "clean/trials/trials.h"
#include "platform/file_system.h"
#include "platform/trash_move.h"
#include "support/opened_folder.h"
#include "support/quick_folder.h"
#include "support/temporary_folder.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <memory>
#include <string>

namespace tarvin {

namespace {

using SteadyClock = std::chrono::steady_clock;

/// The maximum ratio of the times per file, one name to different names.
constexpr double maxRatio = 1.5;
/// The files are moved in parts, alternately of one name and of different names, so that other load
/// slows both down. The best of the last parts counts, when the Trash is fullest.
constexpr std::size_t parts = 10;
constexpr std::size_t lastParts = 3;

/// Creates files in a folder one after the other and moves them to a Trash.
class NamedFiles final {
 public:
    NamedFiles(const std::string& place, bool areNamedAlike)
        : folder_(place),
          open_(openedFolder(folder_.makeFolder("files"))),
          mover_(
              makeTrashMover({folder_.pathOf("Trash"), static_cast<std::uint32_t>(::geteuid())})),
          areNamedAlike_(areNamedAlike) {}

    /// Returns the time of the moves alone; counts failed moves.
    SteadyClock::duration move(std::size_t files) {
        SteadyClock::duration took{};
        for (std::size_t each = 0; each < files; ++each, ++made_) {
            const std::string name = areNamedAlike_ ? "a.txt" : std::to_string(made_) + ".txt";
            folder_.writeFile("files/" + name, "");
            const auto begin = SteadyClock::now();
            const bool isMoved = mover_->move(open_, name.c_str()).ok();
            took += SteadyClock::now() - begin;
            refused_ += std::uint64_t{!isMoved};
        }
        return took;
    }

    [[nodiscard]] std::uint64_t refused() const { return refused_; }

 private:
    const TemporaryFolder folder_;
    const OpenFolder open_;
    const std::unique_ptr<TrashMover> mover_;
    const bool areNamedAlike_;
    std::size_t made_ = 0;
    std::uint64_t refused_ = 0;
};

/// In microseconds.
double timeOfEach(SteadyClock::duration time, std::size_t files) {
    return std::chrono::duration<double, std::micro>(time).count() / static_cast<double>(files);
}

}  // namespace

std::uint64_t tryNames(const TrialPlace& place, std::size_t files) {
    const std::string folder = quickFolder(place.home.path());
    NamedFiles alike(folder, true);
    NamedFiles different(folder, false);
    const std::size_t each = std::max<std::size_t>(files / parts, 1);
    SteadyClock::duration alikeTook{};
    SteadyClock::duration differentTook{};
    double best = std::numeric_limits<double>::max();
    for (std::size_t part = 0; part < parts; ++part) {
        const SteadyClock::duration one = alike.move(each);
        const SteadyClock::duration other = different.move(each);
        alikeTook += one;
        differentTook += other;
        if (part + lastParts >= parts) {
            best = std::min(best, timeOfEach(one, each) / timeOfEach(other, each));
        }
    }
    const std::uint64_t refused = alike.refused() + different.refused();
    std::printf(
        "%zu files of one name: %.1f us each, %.1f us with names of their own; at the end %.2f "
        "times as long (at maxRatio %.1f)\n  %llu were not moved\n",
        each * parts, timeOfEach(alikeTook, each * parts), timeOfEach(differentTook, each * parts),
        best, maxRatio, static_cast<unsigned long long>(refused));
    return refused + std::uint64_t{best > maxRatio};
}

}  // namespace tarvin
