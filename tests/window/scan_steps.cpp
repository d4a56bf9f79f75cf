#include "window/scan_steps.h"

#include "support/waiting.h"

#include <chrono>
#include <filesystem>
#include <stdexcept>

namespace tarvin {

namespace {

constexpr std::uintmax_t endlessBytes = std::uintmax_t{1} << 40U;
constexpr std::chrono::milliseconds stillTime{2200};

/// Polls `condition` for that time. Returns whether it always held.
template <typename Condition>
bool staysTrue(std::chrono::milliseconds time, const Condition& condition) {
    const auto end = std::chrono::steady_clock::now() + time;
    bool held = true;
    const bool isOver = waitUntil([&] {
        held = condition();
        return !held || std::chrono::steady_clock::now() >= end;
    });
    return held && isOver;
}

}  // namespace

std::string makeEndlessFolder(const Home& home, const std::string& name) {
    for (const char* file : {"/one.bin", "/two.bin"}) {
        std::filesystem::resize_file(home.folder().writeFile(name + file, ""), endlessBytes);
    }
    return home.folder().pathOf(name);
}

std::string makeSmallFolder(const Home& home, const std::string& name) {
    for (const char* file : {"/one.txt", "/two.txt"}) {
        home.folder().writeFile(name + file, "equal");
    }
    return home.folder().pathOf(name);
}

void scanAndReview(const ProgramWindow& window) {
    window.click("Scan");
    window.waitForText("Duplicates Found");
    window.click("Review");
    window.waitForEnd("Duplicates Found");
}

std::string elapsedTime(const ProgramWindow& window) {
    const auto label = window.find(ATSPI_ROLE_LABEL, [](const std::string& name) {
        return name.starts_with("Elapsed Time: ");
    });
    return label ? label->name() : std::string();
}

void waitForProgress(const ProgramWindow& window) {
    const std::string before = elapsedTime(window);
    if (!waitUntil([&] { return !before.empty() && elapsedTime(window) != before; })) {
        throw std::runtime_error("the elapsed time stays at " + before);
    }
}

bool timeStandsStill(const ProgramWindow& window) {
    return waitUntil([&] {
        const std::string before = elapsedTime(window);
        return !before.empty() &&
               staysTrue(stillTime, [&] { return elapsedTime(window) == before; });
    });
}

}  // namespace tarvin
