// Operates the product's window through all screens and through scans of a large tree, and measures
// the longest stall of its main thread and the rate of visible progress.

#include "controls/button_hover_complex.h"
#include "controls/button_hover_simple.h"
#include "controls/button_settings_saved.h"
#include "controls/hover_button.h"
#include "corpus_plan.h"
#include "corpus_writer.h"
#include "heartbeat.h"
#include "interface/home_screen.h"
#include "interface/location_screen.h"
#include "interface/main_window.h"
#include "interface/progress_screen.h"
#include "interface/result_panels.h"
#include "interface/result_screen.h"
#include "product.h"
#include "progress_watch.h"
#include "scenario.h"
#include "work_folder.h"

#include <CLI/CLI.hpp>

#include <cstdint>
#include <cstdio>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace {

using namespace tarvin::bench;

constexpr double stallGoal = 50;    // milliseconds
constexpr double changesGoal = 10;  // a second
constexpr std::chrono::milliseconds aMoment{100};
constexpr std::chrono::milliseconds shortPause{400};
// Long enough for a result to be freed.
constexpr std::chrono::milliseconds longPause{2000};

struct PulseOptions {
    std::string work = "/var/tmp";
    std::string tree;
    std::uint64_t files = 20'000;
    int rounds = 3;
};

/// The measurements of one step in all rounds.
struct StepFigures {
    std::vector<double> longest;
    Stall worst;
};

/// The measurements of one phase of the scan in all rounds.
struct PhaseFigures {
    std::vector<double> seconds;
    std::vector<double> changes;  ///< in each whole second of each round
    std::vector<double> paints;
    double longestGap = 0;  ///< between two changes, milliseconds

    void add(const ProgressWatch::Phase& phase) {
        seconds.push_back(milliseconds(phase.to - phase.from) / 1000);
        const auto append = [&phase](std::vector<double>& to, const auto& moments) {
            const std::vector<double> more = inEachSecond(phase, moments);
            to.insert(to.end(), more.begin(), more.end());
        };
        append(changes, phase.changes);
        append(paints, phase.paints);
        for (std::size_t at = 1; at < phase.changes.size(); ++at) {
            longestGap =
                std::max(longestGap, milliseconds(phase.changes[at] - phase.changes[at - 1]));
        }
    }
};

/// Repeats the way through the window.
class ScanScenario final {
 public:
    ScanScenario(Heartbeat& heartbeat, std::string tree)
        : heartbeat_(heartbeat), tree_(std::move(tree)) {}

    bool run(int rounds) {
        // The start of the program is measured by window_start.
        heartbeat_.startAnew();
        heartbeat_.enter("the window is shown");
        if (!product_.comes()) {
            return false;
        }
        Product::rest(shortPause);
        record();
        for (int round = 0; round < rounds; ++round) {
            if (!openLocations() || !scan() || !stopScan()) {
                return false;
            }
            record();
        }
        return true;
    }

    [[nodiscard]] bool report() const {
        bool reached = true;
        std::printf(
            "Longest stall of the main thread (work between two waits of its event loop) per "
            "step,\n"
            "ms: median and maximum of all rounds; of the maximum, the CPU time, the wait for a "
            "CPU\n"
            "and the longest handler:\n");
        for (const std::string& name : order_) {
            const StepFigures& step = steps_.at(name);
            std::printf("  %-22s %6.1f %6.1f   ran %5.1f, waited %5.1f; %5.1f in %s\n",
                        name.c_str(), median(step.longest), most(step.longest),
                        step.worst.processor, step.worst.queued, step.worst.handler,
                        step.worst.what.c_str());
            reached = reached && most(step.longest) <= stallGoal;
        }
        std::printf("goal: at most %.0f ms: %s\n", stallGoal, reached ? "reached" : "NOT REACHED");
        std::printf("Files compared: %llu, sets of duplicates: %zu\n",
                    static_cast<unsigned long long>(files_), sets_);
        const bool collecting = reportPhase("collecting", collecting_);
        const bool comparing = reportPhase("comparing", comparing_);
        return reached && collecting && comparing;
    }

 private:
    tarvin::MainWindow& window() { return product_.window(); }

    bool go(const char* step, QAbstractButton* button, const QString& screen) {
        heartbeat_.enter(step);
        product_.click(button);
        const bool came = Product::until([&] { return product_.isOn(screen); });
        Product::rest(shortPause);
        return came;
    }

    bool openLocations() {
        tarvin::MainWindow& shown = window();
        const QString home = shown.home->identifier();
        const QString locations = shown.locations->identifier();
        return go("to the drives", shown.home->mainScanButton, locations) &&
               go("home from the drives", shown.locations->buttonHomeExactPage, home) &&
               go("to the folders", shown.home->mainScanButtonFolder, locations) &&
               go("home from the folders", shown.locations->buttonHomeExactPage, home);
    }

    void giveFolder() {
        heartbeat_.enter("a folder is given");
        product_.act([this] { product_.delegate().locations().openWith({tree_}); });
        Product::rest(shortPause);
    }

    void beginScan(const char* step) {
        heartbeat_.enter(step);
        product_.act([this] {
            watch_.begin();
            window().locations->findDuplicateExact->click();
        });
    }

    bool goHome(const char* step) {
        heartbeat_.enter(step);
        // The summary covers the screen, which takes no click.
        product_.click(window().informationWindow->scanInforOKBtn);
        if (!Product::until([this] { return !window().informationWindow->isVisible(); })) {
            return false;
        }
        product_.click(window().results->buttonHomePage);
        const bool came =
            Product::until([this] { return product_.isOn(window().home->identifier()); });
        Product::rest(longPause);
        return came;
    }

    bool scan() {
        giveFolder();
        beginScan("the scan");
        const QString results = window().results->identifier();
        const bool came = Product::until([&] {
            watch_.poll();
            return product_.isOn(results);
        });
        watch_.end();
        if (!came) {
            return false;
        }
        heartbeat_.enter("the result is shown");
        Product::rest(shortPause);
        countResult();
        return goHome("home from the result");
    }

    /// Paused and resumed, then stopped when about a third of the files have been compared.
    bool stopScan() {
        giveFolder();
        beginScan("a scan is stopped");
        tarvin::ScanRun& run = product_.delegate().scan().run();
        const QString results = window().results->identifier();
        const auto isOver = [&] { return product_.isOn(results); };
        if (!Product::until([&] { return run.processed() > files_ / 3 || isOver(); })) {
            return false;
        }
        for (QAbstractButton* button :
             {static_cast<QAbstractButton*>(window().progress->pauseResume),
              static_cast<QAbstractButton*>(window().progress->pauseResume),
              static_cast<QAbstractButton*>(window().progress->stopButton),
              static_cast<QAbstractButton*>(window().cancelYes)}) {
            // The scan of a small tree may have ended before.
            if (!isOver()) {
                product_.click(button);
                Product::rest(aMoment);
            }
        }
        return Product::until(isOver) && goHome("home from what was found");
    }

    void countResult() {
        tarvin::ScanRun& run = product_.delegate().scan().run();
        files_ = run.processed();
        sets_ = 0;
        for (const auto& extension : run.result().modal->extensions()) {
            sets_ += extension->nummberOfSets();
        }
        collecting_.add(watch_.collecting());
        comparing_.add(watch_.comparing());
    }

    void record() {
        for (const Heartbeat::Step& step : heartbeat_.steps()) {
            if (step.name.empty()) {
                continue;
            }
            if (steps_.count(step.name) == 0) {
                order_.push_back(step.name);
            }
            StepFigures& figures = steps_[step.name];
            figures.longest.push_back(step.longest.wall);
            if (step.longest.wall >= figures.worst.wall) {
                figures.worst = step.longest;
            }
        }
        heartbeat_.clear();
    }

    static bool reportPhase(const char* name, const PhaseFigures& phase) {
        std::printf("%s: %.1f s (median); ", name, median(phase.seconds));
        if (phase.changes.empty()) {
            std::printf("too short for a whole second\n");
            return true;
        }
        const bool reached = least(phase.changes) >= changesGoal;
        std::printf(
            "changes in each of %zu whole seconds: minimum %.0f, median %.1f (paints: minimum "
            "%.0f); longest gap %.0f ms\n",
            phase.changes.size(), least(phase.changes), median(phase.changes), least(phase.paints),
            phase.longestGap);
        std::printf("goal: at least %.0f changes per second: %s\n", changesGoal,
                    reached ? "reached" : "NOT REACHED");
        return reached;
    }

    Heartbeat& heartbeat_;
    const std::string tree_;
    Product product_;
    ProgressWatch watch_{*product_.window().progress};
    std::vector<std::string> order_;
    std::map<std::string, StepFigures> steps_;
    PhaseFigures collecting_;
    PhaseFigures comparing_;
    std::uint64_t files_ = 0;
    std::size_t sets_ = 0;
};

bool makeTree(const std::string& path, std::uint64_t files) {
    const CorpusRequest request{.files = files, .copiesPercent = 50};
    const CorpusPlan plan = planCorpus(request);
    return CorpusWriter(plan, request.seed).write(path);
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App app("Measures the longest stalls of the window's main thread during scans.");
    PulseOptions options;
    app.add_option("--files", options.files, "number of files of the created tree");
    app.add_option("--tree", options.tree, "scan this tree instead; it is only read");
    app.add_option("--rounds", options.rounds, "number of scans")->check(CLI::PositiveNumber);
    app.add_option("--work", options.work, "folder for the tree and the private home");
    CLI11_PARSE(app, argc, argv);

    std::optional<WorkFolder> work;
    if (options.tree.empty()) {
        work.emplace(options.work);
        options.tree = work->pathOf("tree");
        if (!makeTree(options.tree, options.files)) {
            return 1;
        }
    }
    return runScenario<ScanScenario>(argc, argv, options.work, options.tree, options.rounds);
}
