// Measures the delay of stopping a scan in the middle of large files that are read from the disk:
// from "Stop" and from "Yes" to the painted result.

#include "controls/button_hover_simple.h"
#include "controls/button_settings_saved.h"
#include "controls/hover_button.h"
#include "figures.h"
#include "interface/home_screen.h"
#include "interface/location_screen.h"
#include "interface/main_window.h"
#include "interface/notice_panel.h"
#include "interface/progress_screen.h"
#include "interface/result_screen.h"
#include "paint_watch.h"
#include "private_home.h"
#include "product.h"
#include "work_folder.h"

#include <CLI/CLI.hpp>
#include <fcntl.h>
#include <unistd.h>

#include <QApplication>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace tarvin::bench;

constexpr double stopGoal = 300;  // milliseconds
constexpr std::uint64_t gibibyte = 1ULL << 30U;
constexpr std::size_t blockBytes = 1U << 20U;

struct StopOptions {
    std::string work = "/var/tmp";
    std::uint64_t gibibytes = 10;
    int rounds = 10;
};

/// Milliseconds of each round.
struct Delays {
    std::vector<double> question;  ///< from "Stop" to the painted question
    std::vector<double> answer;    ///< from "Yes" to the painted result
    std::vector<double> both;      ///< from "Stop" to the painted result, "Yes" at once
};

/// Two equal files, which a scan has to read to their ends.
class Films final {
 public:
    /// In a new folder `folder`.
    Films(std::string folder, std::uint64_t bytes) : folder_(std::move(folder)), bytes_(bytes) {
        std::filesystem::create_directory(folder_);
    }

    [[nodiscard]] const std::string& folder() const { return folder_; }
    [[nodiscard]] std::uint64_t bytes() const { return 2 * bytes_; }

    /// Returns false if there is not enough space.
    [[nodiscard]] bool write() const {
        return std::filesystem::space(folder_).available > bytes() + gibibyte && write(first()) &&
               write(second());
    }

    /// Drops them from the page cache.
    void forget() const {
        for (const std::string& path : {first(), second()}) {
            const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
            static_cast<void>(::posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED));
            ::close(file);
        }
    }

 private:
    [[nodiscard]] std::string first() const { return folder_ + "/film 1.mp4"; }
    [[nodiscard]] std::string second() const { return folder_ + "/film 2.mp4"; }

    [[nodiscard]] bool write(const std::string& path) const {
        std::mt19937_64 random;  // the same blocks for both
        std::vector<std::uint64_t> block(blockBytes / sizeof(std::uint64_t));
        const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
        bool isWritten = file >= 0;
        for (auto& word : block) {
            word = random();
        }
        for (std::uint64_t done = 0; isWritten && done < bytes_; done += blockBytes) {
            block.front() = done;
            isWritten = ::write(file, block.data(), blockBytes) == ssize_t{blockBytes};
        }
        isWritten = isWritten && ::fdatasync(file) == 0;
        ::close(file);
        return isWritten;
    }

    const std::string folder_;
    const std::uint64_t bytes_;  // of one
};

/// Repeats scans and stops.
class StopRounds final {
 public:
    explicit StopRounds(const Films& films) : films_(films) {}

    /// Each round stops later, the last after half of all bytes.
    bool run(int rounds) {
        for (int round = 1; round <= rounds; ++round) {
            const auto part = static_cast<std::uint64_t>(round);
            films_.forget();
            if (!scanUpTo(films_.bytes() / 2 / static_cast<std::uint64_t>(rounds) * part) ||
                !stop() || !goHome()) {
                return false;
            }
        }
        return true;
    }

    [[nodiscard]] const Delays& delays() const { return delays_; }

 private:
    bool scanUpTo(std::uint64_t bytes) {
        product_.act([this] {
            product_.delegate().locations().openWith({films_.folder()});
            window().locations->findDuplicateExact->click();
        });
        return Product::until([&] {
            tarvin::ScanRun& run = product_.delegate().scan().run();
            return run.scanning() && run.bytesRead() >= bytes;
        });
    }

    bool stop() {
        question_.forget();
        result_.forget();
        SteadyClock::time_point pressed;
        SteadyClock::time_point answered;
        product_.act([&] {
            pressed = SteadyClock::now();
            window().progress->stopButton->click();
        });
        if (!Product::until([this] { return question_.isPainted(); })) {
            return false;
        }
        delays_.question.push_back(milliseconds(SteadyClock::now() - pressed));
        product_.act([&] {
            answered = SteadyClock::now();
            window().cancelYes->click();
        });
        const QString results = window().results->identifier();
        if (!Product::until([&] { return product_.isOn(results) && result_.isPainted(); })) {
            return false;
        }
        const SteadyClock::time_point shown = SteadyClock::now();
        delays_.answer.push_back(milliseconds(shown - answered));
        delays_.both.push_back(milliseconds(shown - pressed));
        // Otherwise the scan had ended before.
        return product_.delegate().scan().run().wasStopped() &&
               product_.delegate().scan().run().bytesRead() < films_.bytes();
    }

    bool goHome() {
        product_.click(window().results->buttonHomePage);
        return Product::until([this] { return product_.isOn(window().home->identifier()); });
    }

    tarvin::MainWindow& window() { return product_.window(); }

    const Films& films_;
    Product product_;
    PaintWatch question_{product_.window().confirmationView};
    PaintWatch result_{product_.window().results};
    Delays delays_;
};

void print(const char* what, const std::vector<double>& figures) {
    std::printf("  %-28s %7.1f %7.1f\n", what, median(figures), most(figures));
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App app("Measures how long a stopped scan takes to show its result.");
    StopOptions options;
    app.add_option("--gibibytes", options.gibibytes, "size of each of the two files")
        ->check(CLI::PositiveNumber);
    app.add_option("--rounds", options.rounds, "number of stops, each later in the files")
        ->check(CLI::PositiveNumber);
    app.add_option("--work", options.work, "folder for the files and the private home");
    CLI11_PARSE(app, argc, argv);

    const PrivateHome home(options.work);
    const WorkFolder work(options.work);
    const Films films(work.pathOf("films"), options.gibibytes * gibibyte);
    if (!films.write()) {
        std::fputs("The files could not be written.\n", stderr);
        return 1;
    }
    usePlatformOfMeasurement();
    nameTheProduct();
    const QApplication application(argc, argv);
    StopRounds rounds(films);
    if (!rounds.run(options.rounds)) {
        std::fputs("The product did not respond, or finished before it was stopped.\n", stderr);
        return 1;
    }
    const Delays& delays = rounds.delays();
    std::printf("Two files of %llu GiB, stopped %d times in the middle; ms, median and maximum:\n",
                static_cast<unsigned long long>(options.gibibytes), options.rounds);
    print("Stop to the question", delays.question);
    print("Yes to the result", delays.answer);
    print("both, without a pause", delays.both);
    const bool reached = most(delays.both) <= stopGoal;
    std::printf("goal: at most %.0f ms: %s\n", stopGoal, reached ? "reached" : "NOT REACHED");
    return reached ? 0 : 1;
}
