#pragma once

#include "window/program_window.h"

#include <optional>
#include <string>

namespace tarvin {

/// The rows of the location list, while it is shown. A row is identified by its title, the last
/// component of its path.
class LocationRows final {
 public:
    /// Returns when the list is shown.
    explicit LocationRows(const ProgramWindow& window);

    [[nodiscard]] int count() const { return table_.rows(); }
    [[nodiscard]] bool has(const std::string& title) const { return rowOf(title).has_value(); }
    [[nodiscard]] bool isChecked(const std::string& title) const;
    /// Requires that the row is in view.
    void clickCheckBox(const std::string& title) const;

    /// A position for drops: the first row.
    [[nodiscard]] Spot dropSpot() const;

 private:
    [[nodiscard]] std::optional<int> rowOf(const std::string& title) const;
    [[nodiscard]] Accessible checkBox(const std::string& title) const;

    Accessible table_;
};

}  // namespace tarvin
