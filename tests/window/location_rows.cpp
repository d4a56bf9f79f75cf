#include "window/location_rows.h"

#include "window/input.h"

#include <stdexcept>

namespace tarvin {

namespace {

constexpr int firstColumn = 0;
constexpr int checkBoxColumn = 1;

}  // namespace

LocationRows::LocationRows(const ProgramWindow& window)
    : table_(window.wait(ATSPI_ROLE_TABLE, "Locations")) {}

std::optional<int> LocationRows::rowOf(const std::string& title) const {
    const int rows = count();
    for (int row = 0; row < rows; ++row) {
        const auto cell = table_.cell(row, firstColumn);
        if (cell && cell->name() == title) {
            return row;
        }
    }
    return std::nullopt;
}

Accessible LocationRows::checkBox(const std::string& title) const {
    const auto row = rowOf(title);
    auto box = row ? table_.cell(*row, checkBoxColumn) : std::nullopt;
    if (!box) {
        throw std::runtime_error("no row '" + title + "' in the location list");
    }
    return *box;
}

bool LocationRows::isChecked(const std::string& title) const {
    return checkBox(title).is(ATSPI_STATE_CHECKED);
}

void LocationRows::clickCheckBox(const std::string& title) const {
    input::click(checkBox(title).area().middle());
}

Spot LocationRows::dropSpot() const {
    const auto first = table_.cell(0, firstColumn);
    return (first ? *first : table_).area().middle();
}

}  // namespace tarvin
