// Starts the product and a bare Qt window alternately, and measures the time from the start of each
// process to its first frame; the product's must contain the whole first screen.

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

constexpr double maxMilliseconds = 150;
constexpr double maxTimesBare = 4;
constexpr int cannotStart = 127;

struct Program {
    std::string path;
    std::string widget;  ///< must be in the first frame; may be empty
};

struct StartOptions {
    Program product{TARVIN_PRODUCT, "HomePage"};
    Program bare{TARVIN_BARE_WINDOW, {}};
    std::string platform = "offscreen";
    std::string work = "/var/tmp";
    int rounds = 31;
};

/// Milliseconds from the start of the process to the first frame.
struct Starts {
    std::vector<double> wall;
    std::vector<double> cpu;  ///< of all threads
};

[[noreturn]] void become(const Program& program, int pipe) {
    qputenv(firstFramePipe, QByteArray::number(pipe));
    qputenv(firstFrameWidget, QByteArray::fromStdString(program.widget));
    ::execl(program.path.c_str(), program.path.c_str(), nullptr);
    std::perror(program.path.c_str());
    ::_exit(cannotStart);
}

/// Returns nullopt if the program fails or shows nothing.
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
    const bool reported = ::read(ends[0], &frame, sizeof frame) == sizeof frame;
    ::close(ends[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    if (!reported || status != 0) {
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
    const SteadyClock::time_point painted{std::chrono::nanoseconds(frame->steady)};
    starts.wall.push_back(milliseconds(painted - begin));
    starts.cpu.push_back(static_cast<double>(frame->cpu) / 1e6);
    return true;
}

void print(const char* name, const Starts& starts) {
    std::printf("  %-22s %7.1f (%.1f to %.1f)   %7.1f\n", name, median(starts.wall),
                least(starts.wall), most(starts.wall), median(starts.cpu));
}

/// Starts both in each round, in alternating order. The first start of each is not counted.
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
    CLI::App app("Compares the start of the product with that of a bare Qt window.");
    StartOptions options;
    app.add_option("--product", options.product.path, "the program to measure");
    app.add_option("--platform", options.platform, "Qt's platform: offscreen, xcb, wayland");
    app.add_option("--rounds", options.rounds, "number of starts of each program")
        ->check(CLI::PositiveNumber);
    app.add_option("--work", options.work, "folder for the private home");
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
        "%s, start of the process to first frame, %d starts each, ms;\n"
        "median (minimum to maximum), and median of CPU time:\n",
        options.platform.c_str(), options.rounds);
    print("bare window", bare);
    print("product, whole screen", product);
    const double time = median(product.wall);
    const double ratio = time / median(bare.wall);
    const bool reached = time <= maxMilliseconds && ratio <= maxTimesBare;
    std::printf("%.1f ms, %.2f times the bare window; at most %.0f ms and %.1f times: %s\n", time,
                ratio, maxMilliseconds, maxTimesBare, reached ? "reached" : "NOT REACHED");
    return reached ? 0 : 1;
}
