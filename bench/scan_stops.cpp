// Measures stopped scans: scans one class of 500 pairs of files of 2,000,000 bytes in the given
// folder (default: /var/tmp) and prints the progress against the bytes read, the number of sets
// that a stop at 25, 50, 75 and 95 % of the bytes keeps, and, if mounting is allowed, the time that
// a stop takes while a file system does not respond.

#include "platform/platform.h"
#include "scan/scan_run.h"
#include "support/dead_mount.h"
#include "work_folder.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace tarvin;
using namespace std::chrono_literals;
using SteadyClock = std::chrono::steady_clock;
using tarvin::bench::WorkFolder;

constexpr std::size_t pairs = 500;
constexpr std::size_t fileBytes = 2'000'000;
constexpr std::uint64_t allBytes = std::uint64_t{2} * pairs * fileBytes;

/// Bytes that differ between pairs from the first byte on.
std::string contentOf(std::size_t pair) {
    std::string bytes(fileBytes, '\0');
    std::uint64_t state = pair * 0x9E3779B97F4A7C15U + 1;
    for (char& byte : bytes) {
        state = state * 6364136223846793005U + 1442695040888963407U;
        byte = static_cast<char>(state >> 56U);
    }
    return bytes;
}

void writePairs(const std::string& folder) {
    for (std::size_t pair = 0; pair < pairs; ++pair) {
        const std::string content = contentOf(pair);
        for (const char* copy : {"a", "b"}) {
            std::ofstream(folder + "/" + std::to_string(pair) + copy + ".dat", std::ios::binary)
                << content;
        }
    }
}

double secondsSince(SteadyClock::time_point begin) {
    return std::chrono::duration<double>(SteadyClock::now() - begin).count();
}

void begin(ScanRun& run, const std::string& folder) {
    run.start({{folder, "", "", true, true}}, {});
}

void showProgress(const std::string& folder) {
    ScanObserver observer;
    ScanRun run(systemPlatform(), observer);
    begin(run, folder);
    std::printf("bytes read   files counted of %zu\n", pairs * 2);
    for (unsigned tenth = 1; tenth < 10; ++tenth) {
        while (run.scanning() && run.bytesRead() < allBytes * tenth / 10) {
            std::this_thread::yield();
        }
        std::printf("%8u0 %%   %llu\n", tenth, static_cast<unsigned long long>(run.processed()));
    }
    run.wait();
    std::printf("      end     %llu, %llu sets\n", static_cast<unsigned long long>(run.processed()),
                static_cast<unsigned long long>(run.result().modal->totalFiles()));
}

void stopAt(const std::string& folder, std::uint64_t percent) {
    ScanObserver observer;
    ScanRun run(systemPlatform(), observer);
    begin(run, folder);
    while (run.scanning() && run.bytesRead() < allBytes * percent / 100) {
        std::this_thread::yield();
    }
    const SteadyClock::time_point stopped = SteadyClock::now();
    run.requestStop();
    run.wait();
    std::printf("stop at %2llu %% of the bytes: %llu of %zu sets, after %.3f s\n",
                static_cast<unsigned long long>(percent),
                static_cast<unsigned long long>(run.result().modal->totalFiles()), pairs,
                secondsSince(stopped));
}

void stopWhileAFolderHangs(const std::string& folder) {
    std::filesystem::create_directory(folder + "/dead");
    DeadMount dead(folder + "/dead");
    if (!dead.isMounted()) {
        std::printf("a folder that hangs: not measured, mounting is refused\n");
        return;
    }
    for (int round = 1; round <= 3; ++round) {
        ScanObserver observer;
        ScanRun run(systemPlatform(), observer);
        begin(run, folder);
        std::this_thread::sleep_for(1s);
        const SteadyClock::time_point stopped = SteadyClock::now();
        run.requestStop();
        run.wait();
        std::printf("stop while a folder hangs: %.3f s\n", secondsSince(stopped));
    }
}

}  // namespace

int main(int argc, char** argv) {
    const WorkFolder folder(argc > 1 ? argv[1] : "/var/tmp");
    const std::string data = folder.path() + "/pairs";
    std::filesystem::create_directory(data);
    writePairs(data);
    showProgress(data);
    for (const std::uint64_t percent : {25U, 50U, 75U, 95U}) {
        stopAt(data, percent);
    }
    const std::string small = folder.path() + "/small";
    std::filesystem::create_directory(small);
    stopWhileAFolderHangs(small);
    return 0;
}
