#include "window/program_window.h"

#include "support/waiting.h"
#include "window/input.h"

#include <stdexcept>

namespace tarvin {

namespace {

/// Whether the control is a list, which may have very many rows.
bool isList(const Accessible& control) {
    const AtspiRole role = control.role();
    return role == ATSPI_ROLE_TABLE || role == ATSPI_ROLE_TREE || role == ATSPI_ROLE_TREE_TABLE;
}

/// The first visible control, depth first, for which `isWanted` holds. Skips the cells of lists.
template <typename Wanted>
std::optional<Accessible> firstShown(const Accessible& in, const Wanted& isWanted) {
    for (const Accessible& child : in.children()) {
        if (!child.is(ATSPI_STATE_SHOWING)) {
            continue;
        }
        if (isWanted(child)) {
            return child;
        }
        if (!isList(child)) {
            if (auto found = firstShown(child, isWanted)) {
                return found;
            }
        }
    }
    return std::nullopt;
}

ProgramWindow::Names exactly(const std::string& name) {
    return [name](const std::string& found) { return found == name; };
}

}  // namespace

ProgramWindow::ProgramWindow(pid_t process) : process_(process) {
    expect("a window", [this] {
        const auto found = program();
        return found && firstShown(*found, [](const Accessible& window) {
                   return window.is(ATSPI_STATE_ACTIVE);
               });
    });
}

std::optional<Accessible> ProgramWindow::program() const {
    for (const Accessible& program : Accessible::desktop().children()) {
        if (program.process() == process_) {
            return program;
        }
    }
    return std::nullopt;
}

std::optional<Accessible> ProgramWindow::find(AtspiRole role, const Names& isWanted) const {
    const auto found = program();
    return found ? firstShown(*found,
                              [&](const Accessible& control) {
                                  return control.role() == role && isWanted(control.name());
                              })
                 : std::nullopt;
}

bool ProgramWindow::shows(AtspiRole role, const std::string& name) const {
    return find(role, exactly(name)).has_value();
}

bool ProgramWindow::showsText(const std::string& text) const {
    return shows(ATSPI_ROLE_LABEL, text);
}

bool ProgramWindow::isEnabled(const std::string& button) const {
    const auto found = find(ATSPI_ROLE_PUSH_BUTTON, exactly(button));
    return found && found->is(ATSPI_STATE_ENABLED);
}

Accessible ProgramWindow::wait(AtspiRole role, const std::string& name) const {
    std::optional<Accessible> found;
    expect(name, [&] {
        found = find(role, exactly(name));
        return found.has_value();
    });
    return *found;
}

void ProgramWindow::waitForText(const std::string& text) const {
    static_cast<void>(wait(ATSPI_ROLE_LABEL, text));
}

void ProgramWindow::waitForEnd(const std::string& text) const {
    expect("the end of " + text, [&] { return !showsText(text); });
}

void ProgramWindow::waitForButton(const std::string& name, bool enabled) const {
    const Accessible button = wait(ATSPI_ROLE_PUSH_BUTTON, name);
    expect(name + (enabled ? " enabled" : " disabled"),
           [&] { return button.is(ATSPI_STATE_ENABLED) == enabled; });
}

void ProgramWindow::click(const std::string& button) const {
    waitForButton(button, true);
    input::click(wait(ATSPI_ROLE_PUSH_BUTTON, button).area().middle());
}

void ProgramWindow::expect(const std::string& what, const std::function<bool()>& condition) const {
    if (!waitUntil(condition)) {
        throw std::runtime_error("not visible: " + what + "; visible are:" + shown());
    }
}

std::string ProgramWindow::shown() const {
    std::string names;
    const auto found = program();
    if (found) {
        firstShown(*found, [&](const Accessible& control) {
            if (const std::string name = control.name(); !name.empty()) {
                names += "\n  " + name + (control.is(ATSPI_STATE_ENABLED) ? "" : " (disabled)");
            }
            return false;
        });
    }
    return names;
}

}  // namespace tarvin
