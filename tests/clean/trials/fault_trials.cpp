#include "clean/clean_up.h"
#include "clean/trials/trials.h"
#include "model/deletion_walk.h"
#include "platform/linux/trash_mover.h"
#include "platform/platform.h"
#include "store/clean_up_journal.h"
#include "store/clean_up_totals.h"
#include "store/data_file.h"
#include "support/faulty_trash_calls.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <utility>
#include <variant>

namespace tarvin {

namespace {

namespace fs = std::filesystem;

constexpr std::array codes{EIO,    ENOSPC, EACCES, EPERM,  EROFS,
                           EDQUOT, ENOMEM, ESTALE, EINVAL, EXDEV};

/// Two sets of three files; two of each are marked.
Originals writeTwoSets(const std::string& tree) {
    Originals originals;
    for (const char* folder : {"/a", "/b", "/c"}) {
        fs::create_directories(tree + folder);
        for (const char* name : {"/one.jpg", "/two.jpg"}) {
            const std::string path = tree + folder + name;
            originals[path] = std::string("content of ") + name;
            writeBytes(path, originals[path]);
        }
    }
    return originals;
}

/// Cleans up as CleanUpRun does, with these calls.
bool cleanUpWith(Modal& modal, TrashCalls& calls) {
    Platform& platform = systemPlatform();
    const std::string support = platform.applicationSupportFolder().value_or("");
    auto opened = CleanUpJournal::open(support);
    auto* const journal = std::get_if<CleanUpJournal>(&opened);
    if (journal == nullptr) {
        return false;
    }
    TrashSurroundings around = systemTrashSurroundings();
    const std::unique_ptr<TrashMover> trash =
        makeTrashMover(processTrashUser(), {calls, around.clock, around.mountTable});
    const LockFile turns(support + "/clean-up.turn");
    CleanUp run(platform.fileSystem(), *trash, *journal, turns, platform.clock(), {});
    DeletionControl control;
    DeletionWalk walk(modal, run, control, {});
    walk.run();
    DataFile totals(support);
    return !run.finish().has_value() && !settleTotals(totals, *journal).has_value();
}

}  // namespace

std::uint64_t tryFaults(const TrialPlace& place) {
    std::size_t trials = 0;
    std::size_t most = 0;
    std::uint64_t unrecorded = 0;
    std::uint64_t open = 0;
    Losses losses;
    for (const int code : codes) {
        bool hasFailed = true;
        for (std::size_t number = 0; hasFailed; ++number) {
            place.home.renew();
            fs::remove_all(place.tree);
            const Originals originals = writeTwoSets(place.tree);
            const std::shared_ptr<Modal> modal = scanned({place.tree});
            FaultyTrashCalls calls;
            calls.failOnce(number, code);
            unrecorded += std::uint64_t{!cleanUpWith(*modal, calls)};
            losses += lossesOf(place.home, originals);
            open += calls.filesOpen();
            hasFailed = calls.hasFailed();
            trials += std::size_t{hasFailed};
            most = std::max(most, calls.made());
        }
    }
    std::printf(
        "each of up to %zu calls of a clean-up's moves failing once, %zu reasons: %zu trials\n"
        "  %s, %llu not recorded, %llu files left open\n",
        most, codes.size(), trials, described(losses).c_str(),
        static_cast<unsigned long long>(unrecorded), static_cast<unsigned long long>(open));
    return losses.sum() + unrecorded + open;
}

}  // namespace tarvin
