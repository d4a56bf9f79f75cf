#include "window/result_rows.h"

#include "window/input.h"

#include <stdexcept>

namespace tarvin {

namespace {

enum OutlineColumn { checkColumn, labelColumn };
enum FileColumn { nameColumn, locationColumn, groupColumn, buttonColumn };

Accessible cellOf(const Accessible& list, int row, int column) {
    auto cell = list.cell(row, column);
    if (!cell) {
        throw std::runtime_error("no row " + std::to_string(row) + " in " + list.name());
    }
    return *cell;
}

}  // namespace

Mark markOf(const Accessible& box) {
    if (box.description() == "Partly marked") {
        return Mark::mixed;
    }
    return box.is(ATSPI_STATE_CHECKED) ? Mark::on : Mark::off;
}

OutlineRows::OutlineRows(const ProgramWindow& window)
    : outline_(window.wait(ATSPI_ROLE_TREE, "Extensions and sets")) {}

Accessible OutlineRows::label(int row) const {
    return cellOf(outline_, row, labelColumn);
}

Accessible OutlineRows::box(int row) const {
    return cellOf(outline_, row, checkColumn);
}

void OutlineRows::click(int row) const {
    input::click(label(row).area().middle());
}

void OutlineRows::clickCheckBox(int row) const {
    input::click(box(row).area().middle());
}

FileRows::FileRows(const ProgramWindow& window)
    : table_(window.wait(ATSPI_ROLE_TABLE, "Files of the set")) {}

std::string FileRows::path(int row) const {
    return cell(row, locationColumn).name() + "/" + name(row).name();
}

std::string FileRows::group(int row) const {
    return cell(row, groupColumn).name();
}

Accessible FileRows::name(int row) const {
    return cell(row, nameColumn);
}

Accessible FileRows::box(int row) const {
    return cell(row, buttonColumn);
}

void FileRows::click(int row) const {
    input::click(name(row).area().middle());
}

void FileRows::clickCheckBox(int row) const {
    input::click(box(row).area().middle());
}

Accessible FileRows::cell(int row, int column) const {
    return cellOf(table_, row, column);
}

}  // namespace tarvin
