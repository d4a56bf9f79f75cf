#pragma once

#include <QFont>
#include <QPainter>
#include <QRect>
#include <QString>

namespace tarvin {

/// The geometry of the parts of one row in the tree of results, and their painting. `row` is the
/// whole row.
class TreeRow final {
 public:
    struct Content {
        QString name;
        QString size;  ///< at the right of the row; empty for none
        bool isBesideScrollBar = false;
        Qt::CheckState mark = Qt::Unchecked;
        bool hasBranch = false;
        bool isExpanded = false;
    };

    TreeRow(const QRect& row, bool isSet) : row_(row), isSet_(isSet) {}

    /// The chevron that expands an extension; empty for a set.
    [[nodiscard]] QRect branch() const;
    /// The reach of the chevron; empty for a set.
    [[nodiscard]] QRect branchReach() const;
    [[nodiscard]] QRect box() const;
    /// The reach of the check box.
    [[nodiscard]] QRect boxReach() const;
    [[nodiscard]] QRect name() const;
    [[nodiscard]] QFont nameFont() const;
    /// The place of the size; empty if there is none, or no room for it beside the name.
    [[nodiscard]] QRect size(const Content& content) const;

    /// Paints everything but the background.
    void paint(QPainter& painter, const Content& content) const;

 private:
    [[nodiscard]] int boxLeft() const;

    QRect row_;
    bool isSet_;
};

}  // namespace tarvin
