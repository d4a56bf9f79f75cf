#pragma once

#include "window/program_window.h"

#include <string>

namespace tarvin {

enum class Mark { off, mixed, on };

/// The state of a check box as screen readers see it.
[[nodiscard]] Mark markOf(const Accessible& box);

/// The rows of the outline (extensions and their sets), while the results are shown. Only rows in
/// view can be clicked.
class OutlineRows final {
 public:
    /// Blocks until the outline is shown.
    explicit OutlineRows(const ProgramWindow& window);

    [[nodiscard]] int count() const { return outline_.rows(); }
    [[nodiscard]] std::string name(int row) const { return label(row).name(); }
    [[nodiscard]] Mark mark(int row) const { return markOf(box(row)); }
    void click(int row) const;
    void clickCheckBox(int row) const;

    [[nodiscard]] Accessible label(int row) const;
    [[nodiscard]] Accessible box(int row) const;

 private:
    Accessible outline_;
};

/// The files of the set selected in the outline.
class FileRows final {
 public:
    explicit FileRows(const ProgramWindow& window);

    [[nodiscard]] int count() const { return table_.rows(); }
    [[nodiscard]] std::string path(int row) const;
    /// The number of the set.
    [[nodiscard]] std::string group(int row) const;
    [[nodiscard]] Mark mark(int row) const { return markOf(box(row)); }
    void click(int row) const;
    void clickCheckBox(int row) const;

    [[nodiscard]] Accessible name(int row) const;
    [[nodiscard]] Accessible box(int row) const;

 private:
    [[nodiscard]] Accessible cell(int row, int column) const;

    Accessible table_;
};

}  // namespace tarvin
