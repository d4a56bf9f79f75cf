#include "cli/color_option.h"

#include "cli/choice.h"
#include "cli/terminal.h"

#include <CLI/CLI.hpp>

#include <array>

namespace tarvin {

namespace {

constexpr std::array times{Choice<ColorWhen>{"auto", ColorWhen::automatic},
                           Choice<ColorWhen>{"always", ColorWhen::always},
                           Choice<ColorWhen>{"never", ColorWhen::never}};

}  // namespace

void addColorOption(CLI::App& command) {
    addChoice(command, "--color", times, useColor,
              "When to use colour [default: auto, on a terminal\nthat supports it]")
        ->trigger_on_parse();
}

}  // namespace tarvin
