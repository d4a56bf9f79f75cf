#include "clean/clean_up_run.h"
#include "clean/trials/trials.h"
#include "model/deletion_walk.h"
#include "platform/platform.h"
#include "store/data_file.h"

#include <sys/mount.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <variant>
#include <vector>

namespace tarvin {

namespace {

namespace fs = std::filesystem;

const std::string content = "the one content";
/// Same length as the content.
const std::string foreign = "something else!";

/// A set of two files, of which the second is marked. Mounts are removed at the end of a trial.
struct Scene {
    std::string tree;
    std::string keptFolder = tree + "/kept";
    std::string kept = keptFolder + "/photo.jpg";
    std::string copyFolder = tree + "/copies";
    std::string copy = copyFolder + "/photo.jpg";
    bool isMounted = false;
    int refusal = 0;  ///< why something could not be mounted
};

void forge(const std::string& path) {
    const auto date = fs::last_write_time(path);
    writeBytes(path, foreign);
    fs::last_write_time(path, date);
}

/// Replaces a file by another one of the same size and date.
void replace(const std::string& path) {
    const auto date = fs::last_write_time(path);
    writeBytes(path + ".new", foreign);
    fs::last_write_time(path + ".new", date);
    fs::rename(path + ".new", path);
}

void mountOnKept(Scene& scene, const std::string& source, const char* type, unsigned long flags,
                 const std::string& options) {
    // The kept file is hidden: the only copy is shown under both paths.
    fs::remove(scene.kept);
    scene.isMounted =
        ::mount(source.c_str(), scene.keptFolder.c_str(), type, flags, options.c_str()) == 0;
    scene.refusal = scene.isMounted ? 0 : errno;
}

void showSecondFileSystem(Scene& scene) {
    const std::string empty = scene.tree + "/empty";
    fs::create_directory(empty);
    mountOnKept(scene, "overlay", "overlay", MS_RDONLY,
                "lowerdir=" + scene.copyFolder + ":" + empty);
}

struct Change {
    const char* what;
    /// Whether it changes the marked file; such a change is not made once that is in the Trash.
    bool needsMarked = false;
    std::function<void(Scene&)> make{};
    /// During a move it cannot be distinguished from the move, which also changes only the change
    /// date: the file is moved to the Trash with its current bytes.
    bool mayGoAlong = false;
};

const std::array changes{
    Change{"the kept file's bytes are others, its date put back", false,
           [](Scene& scene) { forge(scene.kept); }},
    Change{"the marked file's bytes are others, its date put back", true,
           [](Scene& scene) { forge(scene.copy); }, true},
    Change{"the kept file is truncated", false,
           [](Scene& scene) { fs::resize_file(scene.kept, 0); }},
    Change{"the marked file is truncated", true,
           [](Scene& scene) { fs::resize_file(scene.copy, 3); }},
    Change{"the kept file is longer", false,
           [](Scene& scene) { writeBytes(scene.kept, foreign + "+"); }},
    Change{"the kept file is gone", false, [](Scene& scene) { fs::remove(scene.kept); }},
    Change{"the kept file is another one, size and date the same", false,
           [](Scene& scene) { replace(scene.kept); }},
    Change{"the marked file is another one, size and date the same", true,
           [](Scene& scene) { replace(scene.copy); }},
    Change{"the kept file is a hard link to the marked one", true,
           [](Scene& scene) {
               fs::remove(scene.kept);
               fs::create_hard_link(scene.copy, scene.kept);
           }},
    Change{"the kept file is a link to the marked one", false,
           [](Scene& scene) {
               fs::remove(scene.kept);
               fs::create_symlink(scene.copy, scene.kept);
           }},
    Change{"the kept folder is a link to the marked file's", false,
           [](Scene& scene) {
               fs::remove_all(scene.keptFolder);
               fs::create_directory_symlink(scene.copyFolder, scene.keptFolder);
           }},
    Change{"the kept folder was moved and its file changed", false,
           [](Scene& scene) {
               fs::rename(scene.keptFolder, scene.tree + "/away");
               forge(scene.tree + "/away/photo.jpg");
           }},
    Change{"the kept folder shows the other one (bind mount)", false,
           [](Scene& scene) { mountOnKept(scene, scene.copyFolder, nullptr, MS_BIND, ""); }},
    Change{"the same in a second file system (overlay)", false, showSecondFileSystem},
};

/// Moments of the change: before the clean-up, or before a step of its move.
constexpr std::array<std::optional<MoveStep>, 5> moments{std::nullopt, MoveStep::checkFile,
                                                         MoveStep::findSurvivor,
                                                         MoveStep::moveToTrash, MoveStep::recheck};

/// Waits until a change of a file gets a new date: some kernels count dates in ticks, so that two
/// changes within one tick have the same date.
void waitForNextTick() {
    const auto now = [] {
        timespec time{};
        ::clock_gettime(CLOCK_REALTIME_COARSE, &time);
        return std::pair(time.tv_sec, time.tv_nsec);
    };
    const auto begin = now();
    while (now() == begin) {
        // A tick is at most 10 ms.
    }
}

void cleanUpBetween(Modal& modal, std::function<void(MoveStep)> beforeStep) {
    CleanUp::Settings settings;
    settings.beforeStep = std::move(beforeStep);
    DataFile totals(systemPlatform().applicationSupportFolder());
    auto opened = CleanUpRun::open(systemPlatform(), totals, std::move(settings));
    auto* const run = std::get_if<std::unique_ptr<CleanUpRun>>(&opened);
    if (run == nullptr) {
        return;
    }
    DeletionControl control;
    DeletionWalk walk(modal, (*run)->cleanUp(), control, {});
    walk.run();
    static_cast<void>((*run)->finish(totals));
}

/// Counts the regular files with these bytes in the tree. Requires that nothing is mounted.
std::size_t living(const std::string& tree, const std::string& bytes) {
    std::size_t count = 0;
    for (const auto& entry : fs::recursive_directory_iterator(tree)) {
        count += std::size_t{!entry.is_symlink() && entry.is_regular_file() &&
                             bytesOf(entry.path()) == bytes};
    }
    return count;
}

struct SwapFigures {
    std::size_t rounds = 0;
    std::size_t made = 0;       ///< rounds in which the change was made
    std::size_t moved = 0;      ///< the marked file was moved, correctly
    std::uint64_t lost = 0;     ///< no file with the content is left outside the Trash
    std::uint64_t foreign = 0;  ///< other bytes are in the Trash
    int refusal = 0;
};

void swapOnce(const TrialPlace& place, const Change& change, std::optional<MoveStep> moment,
              SwapFigures& figures) {
    place.home.renew();
    fs::remove_all(place.tree);
    Scene scene{place.tree};
    fs::create_directories(scene.keptFolder);
    fs::create_directories(scene.copyFolder);
    writeBytes(scene.kept, content);
    writeBytes(scene.copy, content);
    const std::shared_ptr<Modal> modal = scanned({scene.keptFolder, scene.copyFolder});
    waitForNextTick();
    bool isMade = false;
    if (!moment && change.make) {
        isMade = true;
        change.make(scene);
    }
    cleanUpBetween(*modal, [&](MoveStep step) {
        if (step == moment && !isMade && change.make &&
            (!change.needsMarked || fs::exists(scene.copy))) {
            isMade = true;
            change.make(scene);
        }
    });
    if (scene.isMounted) {
        ::umount2(scene.keptFolder.c_str(), MNT_DETACH);
    }
    figures.refusal = scene.refusal;
    ++figures.rounds;
    figures.made += std::size_t{isMade};
    figures.lost += std::uint64_t{living(place.tree, content) == 0};
    const std::string trash = place.home.trash() + "/files";
    const bool isThere = fs::exists(trash);
    figures.moved += isThere ? living(trash, content) : 0;
    figures.foreign += isThere ? place.home.trashed() - living(trash, content) : 0;
}

}  // namespace

std::uint64_t trySwaps(const TrialPlace& place, std::size_t rounds) {
    SwapFigures unchanged;
    while (unchanged.rounds < rounds) {
        swapOnce(place, {"nothing"}, std::nullopt, unchanged);
    }
    std::printf(
        "changes between the question and the move and amid it, %zu rounds each\n"
        "(of as many without a change, %zu were moved)\n%62s%7s%9s%7s\n",
        rounds, unchanged.moved, "made", "lost", "foreign", "moved");
    std::uint64_t bad = rounds - unchanged.moved;
    for (const Change& change : changes) {
        SwapFigures figures;
        while (figures.rounds < rounds && figures.refusal == 0) {
            swapOnce(place, change, moments[figures.rounds % moments.size()], figures);
        }
        if (figures.refusal != 0) {
            std::printf("  %-55s not tried: %s\n", change.what, std::strerror(figures.refusal));
            continue;
        }
        std::printf("  %-55s%5zu%7llu%9llu%7zu%s\n", change.what, figures.made,
                    static_cast<unsigned long long>(figures.lost),
                    static_cast<unsigned long long>(figures.foreign), figures.moved,
                    change.mayGoAlong ? "  *" : "");
        bad += figures.lost + (change.mayGoAlong ? 0 : figures.foreign) +
               std::uint64_t{figures.made == 0};
    }
    std::printf(
        "  lost: no living copy of the content; foreign: other bytes are in the Trash\n"
        "  *: cannot be detected after the check; the file with these bytes is in the Trash\n");
    return bad;
}

}  // namespace tarvin
