#pragma once

#include "window/accessible.h"

#include <functional>
#include <optional>
#include <string>

namespace tarvin {

/// The windows of one program: visible controls are found by role and accessible name, and clicked
/// with the mouse. If a control does not appear within testPatience, throws std::runtime_error with
/// the names of the visible controls.
class ProgramWindow final {
 public:
    using Names = std::function<bool(const std::string&)>;

    /// Blocks until the program shows a window.
    explicit ProgramWindow(pid_t process);

    [[nodiscard]] std::optional<Accessible> find(AtspiRole role, const Names& isWanted) const;
    [[nodiscard]] bool shows(AtspiRole role, const std::string& name) const;
    [[nodiscard]] bool showsText(const std::string& text) const;
    [[nodiscard]] bool isEnabled(const std::string& button) const;

    Accessible wait(AtspiRole role, const std::string& name) const;
    void waitForText(const std::string& text) const;
    void waitForEnd(const std::string& text) const;
    void waitForButton(const std::string& name, bool enabled) const;

    /// Blocks until the button is shown and enabled, and clicks it.
    void click(const std::string& button) const;

 private:
    [[nodiscard]] std::optional<Accessible> program() const;
    void expect(const std::string& what, const std::function<bool()>& condition) const;
    [[nodiscard]] std::string shown() const;

    pid_t process_;
};

}  // namespace tarvin
