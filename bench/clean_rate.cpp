// Measures how fast a clean-up moves files to the Trash. Contenders, in turn, each on a new copy of
// one tree: the whole clean-up of the programs, with its checks, its lock and its journal; the
// desktop's library; and only .trashinfo files and renames, without any check. Then many files of
// one name compared with different names, the memory of a clean-up, and the time of the walk alone
// by number of sets. Uses only a private folder in the place given.

#include "clean/clean_up_run.h"
#include "cleaned_tree.h"
#include "model/deletion_walk.h"
#include "model/file_mover.h"
#include "model/file_store.h"
#include "platform/platform.h"
#include "scan/duplicate_finder.h"
#include "store/data_file.h"
#include "work_folder.h"

#include <CLI/CLI.hpp>
#include <fcntl.h>
#include <gio/gio.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace {

using namespace tarvin;
using namespace tarvin::bench;

struct Options {
    std::size_t files = 10'000;
    std::size_t namedAlike = 20'000;
    std::size_t rounds = 5;
    bool memoryOnly = false;
    std::string work = "/var/tmp";
};

/// Minimum ratio of the rate to that of the library; maximum ratio of the time to that of bare
/// moves.
constexpr double libraryGoal = 1.5;
constexpr double bareGoal = 1.8;
/// Maximum ratio of the times per file, one name to different names: equal runs differ by as much.
constexpr double oneNameGoal = 1.1;

[[noreturn]] void fail(const std::string& what) {
    std::cerr << what << '\n';
    std::exit(1);  // NOLINT(concurrency-mt-unsafe)
}

template <typename Work>
double secondsFor(const Work& work) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

double medianOf(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

/// CPU time of all threads, in user and kernel mode.
double cpuSeconds() {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// Returns a value of `/proc/self/status` in MiB.
double mebibytes(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        if (word == name + ':') {
            double kibibytes = 0;
            status >> kibibytes;
            return kibibytes / 1024;
        }
    }
    return 0;
}

/// Resets the peak of resident memory.
void forgetPeak() {
    std::ofstream("/proc/self/clear_refs") << "5";
}

/// A private home folder; a clean-up writes only here.
class PrivateUser final {
 public:
    /// To be created before the location of the Trash is first determined.
    explicit PrivateUser(const WorkFolder& work) : home_(work.pathOf("home")) {
        // NOLINTBEGIN(concurrency-mt-unsafe)
        ::setenv("HOME", home_.c_str(), 1);
        ::setenv("XDG_DATA_HOME", data().c_str(), 1);
        ::setenv("GIO_USE_VFS", "local", 1);
        // NOLINTEND(concurrency-mt-unsafe)
        renew();
    }

    /// Deletes everything and creates an empty Trash.
    void renew() const {
        std::filesystem::remove_all(home_);
        std::filesystem::create_directories(trash() + "/files");
        std::filesystem::create_directories(trash() + "/info");
        for (const char* part : {"", "/files", "/info"}) {
            std::filesystem::permissions(trash() + part, std::filesystem::perms::owner_all);
        }
    }

    [[nodiscard]] std::string data() const { return home_ + "/data"; }
    [[nodiscard]] std::string trash() const { return data() + "/Trash"; }

    void expectTrashed(std::size_t files) const {
        const std::size_t moved = entriesIn(trash() + "/files");
        const std::size_t infos = entriesIn(trash() + "/info");
        if (moved != files || infos < files) {
            fail("Only " + std::to_string(moved) + " files and " + std::to_string(infos) +
                 " .trashinfo files of " + std::to_string(files) + " are in the Trash");
        }
    }

 private:
    const std::string home_;
};

/// Runs the same clean-up as the programs after the confirmation.
void cleanUp(Modal& modal) {
    DataFile totals(systemPlatform().applicationSupportFolder());
    auto opened = CleanUpRun::open(systemPlatform(), totals, {});
    if (const auto* error = std::get_if<StoreError>(&opened)) {
        fail(error->path + ": " + error->text);
    }
    CleanUpRun& run = *std::get<std::unique_ptr<CleanUpRun>>(opened);
    DeletionControl control;
    DeletionWalk walk(modal, run.cleanUp(), control, {});
    walk.run();
    if (const auto failure = run.finish(totals)) {
        fail(failure->path + ": " + failure->text);
    }
}

void moveByLibrary(const std::vector<std::string>& paths) {
    for (const std::string& path : paths) {
        GFile* const file = g_file_new_for_path(path.c_str());
        GError* error = nullptr;
        if (g_file_trash(file, nullptr, &error) == 0) {
            fail(error->message);
        }
        g_object_unref(file);
    }
}

/// The indispensable part of a move: the .trashinfo file and the rename.
void moveBarely(const std::vector<std::string>& paths, const std::string& trash) {
    const int files = ::open((trash + "/files").c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const int infoFolder = ::open((trash + "/info").c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (files < 0 || infoFolder < 0) {
        fail("There is no Trash at " + trash);
    }
    for (const std::string& path : paths) {
        const std::string name = path.substr(path.rfind('/') + 1);
        const std::string info =
            "[Trash Info]\nPath=" + path + "\nDeletionDate=2026-01-31T12:00:00\n";
        const std::string infoName = name + ".trashinfo";
        const int file =
            ::openat(infoFolder, infoName.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
        if (file < 0 || ::write(file, info.data(), info.size()) < 0 || ::close(file) != 0 ||
            ::renameat(AT_FDCWD, path.c_str(), files, name.c_str()) != 0) {
            fail("A bare move failed at " + path);
        }
    }
    ::close(files);
    ::close(infoFolder);
}

/// The result of one trial.
struct Figures {
    double rate = 0;  ///< files a second
    double cpu = 0;   ///< microseconds a file
};

/// The results of one contender.
struct Contender {
    const char* name = "";
    std::vector<double> rates;
    std::vector<double> cpu;

    void add(const Figures& figures) {
        rates.push_back(figures.rate);
        cpu.push_back(figures.cpu);
    }
    void print() const {
        const auto [least, most] = std::minmax_element(rates.begin(), rates.end());
        std::printf("  %-40s %8.0f  (%.0f to %.0f)  %6.1f\n", name, medianOf(rates), *least, *most,
                    medianOf(cpu));
    }
};

/// A tree for one trial, deleted afterwards.
class Trial final {
 public:
    Trial(const WorkFolder& work, const PrivateUser& user, const CleanedTree& tree)
        : folder_(work.pathOf("tree")), user_(user), files_(tree.files) {
        user_.renew();
        writeTree(folder_, tree);
        modal_ = scanTree(folder_, tree.files);
    }
    Trial(const Trial&) = delete;
    Trial& operator=(const Trial&) = delete;
    ~Trial() {
        modal_.reset();
        std::filesystem::remove_all(folder_);
    }

    [[nodiscard]] Modal& modal() { return *modal_; }

    [[nodiscard]] std::vector<std::string> paths() const {
        std::vector<std::string> paths;
        for (const MarkedFile& file : markedFiles(*modal_)) {
            paths.push_back(file.folder + '/' + file.name);
        }
        return paths;
    }

    template <typename Work>
    [[nodiscard]] Figures run(const Work& work) {
        ::sync();  // so that writing the tree does not count
        const double before = cpuSeconds();
        const double seconds = secondsFor(work);
        const double cpu = cpuSeconds() - before;
        user_.expectTrashed(files_);
        const auto files = static_cast<double>(files_);
        return {files / seconds, cpu * 1e6 / files};
    }

 private:
    const std::string folder_;
    const PrivateUser& user_;
    const std::size_t files_;
    std::shared_ptr<Modal> modal_;
};

Figures runCleanUp(Trial& trial) {
    return trial.run([&] { cleanUp(trial.modal()); });
}

/// `who` is the index of a contender of compare().
Figures runContender(std::size_t who, Trial& trial, const PrivateUser& user) {
    if (who == 0) {
        return runCleanUp(trial);
    }
    const std::vector<std::string> paths = trial.paths();
    return who == 1 ? trial.run([&] { moveByLibrary(paths); })
                    : trial.run([&] { moveBarely(paths, user.trash()); });
}

/// Prints whether a figure reached its goal.
bool judge(const char* what, double value, const char* goal, bool isReached) {
    std::printf("%-52s %6.2f  %s%s\n", what, value, goal, isReached ? "" : "  NOT REACHED");
    return isReached;
}

bool compare(const WorkFolder& work, const PrivateUser& user, const Options& options) {
    const CleanedTree tree{options.files};
    std::array<Contender, 3> contenders{{{"the whole clean-up", {}, {}},
                                         {"g_file_trash() of GIO, nothing else", {}, {}},
                                         {"only .trashinfo files and renames", {}, {}}}};
    std::vector<double> toLibrary;
    std::vector<double> toBare;
    for (std::size_t round = 0; round < options.rounds; ++round) {
        std::array<double, 3> now{};
        for (std::size_t turn = 0; turn < now.size(); ++turn) {
            const std::size_t who = (round + turn) % now.size();
            Trial trial(work, user, tree);
            const Figures figures = runContender(who, trial, user);
            contenders[who].add(figures);
            now[who] = figures.rate;
        }
        toLibrary.push_back(now[0] / now[1]);
        toBare.push_back(now[2] / now[0]);
    }
    std::printf(
        "%zu files in folders of %zu, %zu rounds in turn: files a second, median (least to most),\n"
        "and microseconds of CPU time a file\n",
        tree.files, tree.perFolder, options.rounds);
    for (const Contender& contender : contenders) {
        contender.print();
    }
    const double library = medianOf(toLibrary);
    const double bare = medianOf(toBare);
    const bool first = judge("rate of the clean-up over that of the library", library,
                             "at least 1.5", library >= libraryGoal);
    return judge("time of the clean-up over that of bare renames", bare, "at most 1.8",
                 bare <= bareGoal) &&
           first;
}

bool compareNames(const WorkFolder& work, const PrivateUser& user, const Options& options) {
    std::array<Contender, 2> contenders{
        {{"all of one name", {}, {}}, {"all of different names", {}, {}}}};
    std::vector<double> ratios;
    for (std::size_t round = 0; round < options.rounds; ++round) {
        std::array<double, 2> now{};
        for (std::size_t turn = 0; turn < now.size(); ++turn) {
            const std::size_t who = (round + turn) % now.size();
            Trial trial(work, user, {options.namedAlike, 1, who == 0});
            const Figures figures = runCleanUp(trial);
            contenders[who].add(figures);
            now[who] = figures.rate;
        }
        ratios.push_back(now[1] / now[0]);
    }
    std::printf("\n%zu files, each in a folder of its own\n", options.namedAlike);
    for (const Contender& contender : contenders) {
        contender.print();
    }
    const double ratio = medianOf(ratios);
    return judge("time of one name over that of different ones", ratio, "at most 1.1",
                 ratio <= oneNameGoal);
}

void showMemory(const WorkFolder& work, const PrivateUser& user, std::size_t files) {
    Trial trial(work, user, {files});
    const double before = mebibytes("VmRSS");
    forgetPeak();
    const double rate = runCleanUp(trial).rate;
    const double peak = mebibytes("VmHWM");
    std::printf(
        "\nmemory, %zu files: %.1f MiB with the result of the scan, at most %.1f MiB while\n"
        "they were moved: %.1f MiB more; %.0f files a second\n",
        files, before, peak, peak - before, rate);
}

/// Moves nothing and reports success.
class FreeMover final : public FileMover {
 public:
    bool prepare(std::span<const std::shared_ptr<Set>> /*sets*/) override { return true; }
    std::unique_ptr<SetMover> begin(const Set& /*set*/) override {
        return std::make_unique<FreeMoves>();
    }

 private:
    class FreeMoves final : public SetMover {
     public:
        bool move(const File& /*file*/) override { return true; }
    };
};

/// Times the walk over sets of two files, which do not exist.
void showWalk(std::size_t sets) {
    const std::shared_ptr<FileStore> store = FileStore::create();
    const Directory* const folder = store->addRoot("/nowhere");
    Modal modal;
    for (std::size_t number = 0; number < sets; ++number) {
        std::vector<std::shared_ptr<File>> set;
        for (const char* half : {"a", "b"}) {
            const std::string name = half + std::to_string(number) + ".jpg";
            set.push_back(
                store->share(store->addFile(folder, name, 1, std::nullopt, std::nullopt)));
        }
        fileSetUnderExtension(modal, set);
    }
    modal.markAllExtension();
    FreeMover mover;
    DeletionControl control;
    const double seconds = secondsFor([&] {
        DeletionWalk walk(modal, mover, control, {});
        walk.run();
    });
    std::printf("walk of %zu sets, nothing moved: %.3f s, %.2f us a set\n", sets, seconds,
                seconds * 1e6 / static_cast<double>(sets));
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App app("Measures how quickly a clean-up moves files to the Trash.");
    Options options;
    app.add_option("--files", options.files, "so many files for each contender")
        ->check(CLI::Range(std::size_t{1}, std::size_t{1'000'000}));
    app.add_option("--one-name", options.namedAlike, "so many files of one name; 0: none")
        ->check(CLI::Range(std::size_t{0}, std::size_t{1'000'000}));
    app.add_option("--rounds", options.rounds, "so many times each")->check(CLI::PositiveNumber);
    app.add_flag("--memory-only", options.memoryOnly,
                 "only one clean-up, and what memory it takes");
    app.add_option("--work", options.work, "where the files and the private home go");
    CLI11_PARSE(app, argc, argv);

    const WorkFolder work(options.work);
    const PrivateUser user(work);
    if (options.memoryOnly) {
        showMemory(work, user, options.files);
        return 0;
    }
    bool reached = compare(work, user, options);
    if (options.namedAlike > 0) {
        reached = compareNames(work, user, options) && reached;
    }
    showMemory(work, user, options.files);
    for (const std::size_t sets : {20'000U, 200'000U}) {
        showWalk(sets);
    }
    return reached ? 0 : 1;
}
