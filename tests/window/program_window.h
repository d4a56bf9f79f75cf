#pragma once

#include "window/accessible.h"

#include <functional>
#include <optional>
#include <string>

namespace tarvin {

/// The windows of one program as a person has them before their eyes: what is shown is found by its
/// role and its accessible name, and acted on with the mouse. What does not come in time ends the
/// test by an exception, which tells what is shown instead.
class ProgramWindow final {
 public:
    using Names = std::function<bool(const std::string&)>;

    /// Returns when the program shows a window.
    explicit ProgramWindow(pid_t process);

    [[nodiscard]] std::optional<Accessible> find(AtspiRole role, const Names& isWanted) const;
    [[nodiscard]] bool shows(AtspiRole role, const std::string& name) const;
    [[nodiscard]] bool showsText(const std::string& text) const;
    [[nodiscard]] bool isEnabled(const std::string& button) const;

    Accessible wait(AtspiRole role, const std::string& name) const;
    void waitForText(const std::string& text) const;
    void waitForEnd(const std::string& text) const;
    void waitForButton(const std::string& name, bool enabled) const;

    /// Clicks the button as soon as it is shown and enabled.
    void click(const std::string& button) const;

 private:
    [[nodiscard]] std::optional<Accessible> program() const;
    void expect(const std::string& what, const std::function<bool()>& condition) const;
    [[nodiscard]] std::string shown() const;

    pid_t process_;
};

}  // namespace tarvin
