#pragma once

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace tarvin {

/// The languages that have a file of translations, such as "de" and "pt_BR", in order. Needs no Qt,
/// so that the parameters of a suite can be these.
inline std::vector<std::string> translatedLanguages() {
    const std::string prefix = "tarvin_";
    std::vector<std::string> languages;
    for (const auto& file : std::filesystem::directory_iterator(TARVIN_TRANSLATIONS)) {
        if (file.path().extension() == ".ts" && file.path().stem().string().starts_with(prefix)) {
            languages.push_back(file.path().stem().string().substr(prefix.size()));
        }
    }
    std::ranges::sort(languages);
    return languages;
}

}  // namespace tarvin
