#include "rules/text_rules.h"

#include <array>

namespace tarvin {

namespace {

// Split in two, so that this file does not break its own rule.
constexpr std::array<const char*, 7> sleeps{
    "sleep_"
    "for(",
    "sleep_"
    "until(",
    "usl"
    "eep(",
    "nanosl"
    "eep(",
    "msl"
    "eep(",
    "qSl"
    "eep(",
    "qWa"
    "it("};

/// The poll interval of waitUntil().
constexpr std::string_view pollingHeader = "tests/support/waiting.h";

bool holds(std::string_view text, std::string_view wanted) {
    return text.find(wanted) != std::string_view::npos;
}

bool isGuarded(std::string_view header) {
    constexpr std::string_view guard = "\n#pragma once\n";
    return header.starts_with(guard.substr(1)) || holds(header, guard);
}

}  // namespace

std::vector<std::string> textBreaches(std::string_view path, std::string_view text) {
    const std::string name(path);
    std::vector<std::string> breaches;
    if (holds(text, "\t")) {
        breaches.push_back(name + ": a tab");
    }
    if (path.ends_with(".h") && !isGuarded(text)) {
        breaches.push_back(name + ": a header without #pragma once");
    }
    if (path.starts_with("tests/") && path != pollingHeader) {
        for (const char* sleep : sleeps) {
            if (holds(text, sleep)) {
                breaches.push_back(name + ": a fixed wait, " + sleep + ")");
            }
        }
    }
    return breaches;
}

}  // namespace tarvin
