// Starts the product and a bare window in turns, and measures how long each takes from the start of
// its process to its first painted frame.

#include "figures.h"
#include "first_frame.h"
#include "private_home.h"

#include <CLI/CLI.hpp>
#include <sys/wait.h>
#include <unistd.h>

#include <QByteArray>
#include <QtGlobal>
#include <array>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

namespace {

using namespace tarvin::bench;

constexpr double startGoal = 1.2;
constexpr int cannotStart = 127;

struct Program {
    std::string path;
    std::string widget;  ///< without which its window is not whole; may be empty
};

struct StartOptions {
    Program product{TARVIN_PRODUCT, "HomePage"};
    Program bare{TARVIN_BARE_WINDOW, {}};
    std::string platform = "offscreen";
    std::string work = "/var/tmp";
    int rounds = 31;
};

/// Milliseconds of each start, from the beginning of the process.
struct Starts {
    std::vector<double> shown;
    std::vector<double> shownProcessor;  ///< of all threads
    std::vector<double> whole;
    std::vector<double> wholeProcessor;
};

[[noreturn]] void become(const Program& program, int pipe) {
    qputenv(firstFramePipe, QByteArray::number(pipe));
    qputenv(firstFrameWidget, QByteArray::fromStdString(program.widget));
    ::execl(program.path.c_str(), program.path.c_str(), nullptr);
    std::perror(program.path.c_str());
    ::_exit(cannotStart);
}

/// One start; none if the program shows nothing.
std::optional<FirstFrame> start(const Program& program) {
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) {
        return std::nullopt;
    }
    const pid_t child = ::fork();
    if (child == 0) {
        ::close(ends[0]);
        become(program, ends[1]);
    }
    ::close(ends[1]);
    FirstFrame frame;
    const bool told = ::read(ends[0], &frame, sizeof frame) == sizeof frame;
    ::close(ends[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    if (!told || status != 0) {
        return std::nullopt;
    }
    return frame;
}

bool measure(const Program& program, Starts& starts) {
    const SteadyClock::time_point begin = SteadyClock::now();
    const std::optional<FirstFrame> frame = start(program);
    if (!frame) {
        std::fprintf(stderr, "%s showed no window.\n", program.path.c_str());
        return false;
    }
    const auto add = [begin](const Moment& moment, std::vector<double>& wall,
                             std::vector<double>& processor) {
        const SteadyClock::time_point at{std::chrono::nanoseconds(moment.steady)};
        wall.push_back(milliseconds(at - begin));
        processor.push_back(static_cast<double>(moment.processor) / 1e6);
    };
    add(frame->shown, starts.shown, starts.shownProcessor);
    add(frame->whole, starts.whole, starts.wholeProcessor);
    return true;
}

void print(const char* what, const std::vector<double>& wall,
           const std::vector<double>& processor) {
    std::printf("  %-38s %7.1f (%.1f to %.1f)   %7.1f\n", what, median(wall), least(wall),
                most(wall), median(processor));
}

/// Both, in turns, each round beginning with the other one.
bool takeTurns(const StartOptions& options, Starts& bare, Starts& product) {
    Starts untimed;
    if (!measure(options.bare, untimed) || !measure(options.product, untimed)) {
        return false;
    }
    for (int round = 0; round < options.rounds; ++round) {
        const bool bareFirst = round % 2 == 0;
        for (const bool isBare : {bareFirst, !bareFirst}) {
            if (!measure(isBare ? options.bare : options.product, isBare ? bare : product)) {
                return false;
            }
        }
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App app("Measures the product's start beside that of a bare window.");
    StartOptions options;
    app.add_option("--product", options.product.path, "the program to measure");
    app.add_option("--platform", options.platform, "Qt's platform: offscreen, xcb, wayland");
    app.add_option("--rounds", options.rounds, "so many starts of each")
        ->check(CLI::PositiveNumber);
    app.add_option("--work", options.work, "where the private home goes");
    CLI11_PARSE(app, argc, argv);

    const PrivateHome home(options.work);
    qputenv("QT_QPA_PLATFORM", QByteArray::fromStdString(options.platform));
    qputenv("QT_QPA_GENERIC_PLUGINS", "firstframe");
    qputenv("QT_PLUGIN_PATH", TARVIN_BENCH_PLUGINS);
    Starts bare;
    Starts product;
    if (!takeTurns(options, bare, product)) {
        return 1;
    }
    std::printf(
        "%s, from the start of the process, %d times each, ms;\n"
        "median (least to most), and median of processor time:\n",
        options.platform.c_str(), options.rounds);
    print("bare window", bare.shown, bare.shownProcessor);
    print("product, the window", product.shown, product.shownProcessor);
    print("product, the window with all it shows", product.whole, product.wholeProcessor);
    const double ratio = median(product.shown) / median(bare.shown);
    const bool reached = ratio <= startGoal;
    std::printf("shown after %.2f times as long (whole after %.2f times); at most %.1f: %s\n",
                ratio, median(product.whole) / median(bare.shown), startGoal,
                reached ? "reached" : "NOT REACHED");
    return reached ? 0 : 1;
}
