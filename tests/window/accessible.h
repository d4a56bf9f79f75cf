#pragma once

#include <atspi/atspi.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarvin {

/// A place on the screen, in its pixels.
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

/// What a program tells a screen reader of one of its controls, asked anew by each call. A control
/// that is gone by now has no name, no state and no place.
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
    /// The names of what can be done with it, and doing it; false if it has no such action.
    [[nodiscard]] std::vector<std::string> actions() const;
    [[nodiscard]] bool act(const std::string& name) const;

    /// Of a table.
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
