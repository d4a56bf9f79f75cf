#pragma once

#include <atspi/atspi.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarvin {

/// A position on the screen, in pixels.
struct Spot {
    int x = 0;
    int y = 0;
};

struct Area {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    [[nodiscard]] Spot middle() const { return {x + width / 2, y + height / 2}; }
};

/// A control as a program exposes it to screen readers (AT-SPI). Each call queries the program
/// again. A control that no longer exists has an empty name, no states and an empty area.
class Accessible final {
 public:
    /// All programs of the desktop.
    static Accessible desktop();

    [[nodiscard]] std::string name() const;
    [[nodiscard]] std::string description() const;
    [[nodiscard]] AtspiRole role() const;
    [[nodiscard]] bool is(AtspiStateType state) const;
    [[nodiscard]] Area area() const;
    [[nodiscard]] double value() const;
    [[nodiscard]] pid_t process() const;
    [[nodiscard]] std::vector<Accessible> children() const;
    /// The names of its actions.
    [[nodiscard]] std::vector<std::string> actions() const;
    /// Performs an action. Returns false if the control does not have it.
    [[nodiscard]] bool act(const std::string& name) const;

    /// Tables only.
    [[nodiscard]] int rows() const;
    [[nodiscard]] std::optional<Accessible> cell(int row, int column) const;

 private:
    struct Unreference {
        void operator()(gpointer object) const { g_object_unref(object); }
    };

    explicit Accessible(AtspiAccessible* owned);

    std::shared_ptr<AtspiAccessible> object_;
};

}  // namespace tarvin
