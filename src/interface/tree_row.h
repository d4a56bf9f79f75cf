#pragma once

#include <QFont>
#include <QRect>

namespace tarvin {

/// Where the parts of one row of the tree of results lie, `row` being the whole row.
class TreeRow final {
 public:
    TreeRow(const QRect& row, bool isSet) : row_(row), isSet_(isSet) {}

    /// The chevron that expands an extension; empty for a set.
    [[nodiscard]] QRect branch() const;
    /// Where a click means the chevron; empty for a set.
    [[nodiscard]] QRect branchReach() const;
    [[nodiscard]] QRect box() const;
    /// Where a click means the check box.
    [[nodiscard]] QRect boxReach() const;
    [[nodiscard]] QRect name() const;
    [[nodiscard]] QFont nameFont() const;

 private:
    [[nodiscard]] int boxLeft() const;

    QRect row_;
    bool isSet_;
};

}  // namespace tarvin
