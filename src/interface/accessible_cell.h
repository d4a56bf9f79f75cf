#pragma once

#include <QAbstractItemView>
#include <QAccessibleActionInterface>
#include <QAccessibleInterface>
#include <QAccessibleTableCellInterface>
#include <QPersistentModelIndex>
#include <QPointer>

class QHeaderView;

namespace tarvin {

class AccessibleList;

/// A part of a list view that is not a QObject and has no children. Owned by Qt. Main thread only.
class AccessiblePart : public QAccessibleInterface {
 public:
    explicit AccessiblePart(QAbstractItemView& view);

    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override;
    [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override {
        return nullptr;
    }
    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override {
        return -1;
    }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

 protected:
    /// nullptr after the object is gone.
    [[nodiscard]] QAbstractItemView* view() const { return view_; }

 private:
    QPointer<QAbstractItemView> view_;
};

/// One cell of an AccessibleList. A cell with a check box can be toggled. Invalid after its row is
/// removed. Owned by Qt. Main thread only.
class AccessibleCell final : public AccessiblePart,
                             public QAccessibleTableCellInterface,
                             public QAccessibleActionInterface {
 public:
    AccessibleCell(QAbstractItemView& view, const QModelIndex& index);

    [[nodiscard]] QModelIndex index() const { return index_; }

    void* interface_cast(QAccessible::InterfaceType type) override;
    [[nodiscard]] bool isValid() const override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override;
    [[nodiscard]] QAccessible::State state() const override;

    [[nodiscard]] bool isSelected() const override;
    [[nodiscard]] QList<QAccessibleInterface*> columnHeaderCells() const override;
    [[nodiscard]] QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    [[nodiscard]] int columnIndex() const override { return index_.column(); }
    [[nodiscard]] int rowIndex() const override;
    [[nodiscard]] int columnExtent() const override { return 1; }
    [[nodiscard]] int rowExtent() const override { return 1; }
    [[nodiscard]] QAccessibleInterface* table() const override { return parent(); }

    [[nodiscard]] QStringList actionNames() const override;
    /// Toggles a box, or focuses the row.
    void doAction(const QString& actionName) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString& /*actionName*/) const override {
        return {};
    }

 private:
    [[nodiscard]] bool isBox() const;
    [[nodiscard]] AccessibleList* owner() const;

    QPersistentModelIndex index_;
};

/// The title of a column of an AccessibleList, or the hidden header of a row. Owned by Qt. Main
/// thread only.
class AccessibleHeader final : public AccessiblePart {
 public:
    AccessibleHeader(QAbstractItemView& view, int section, Qt::Orientation orientation)
        : AccessiblePart(view), section_(section), orientation_(orientation) {}

    [[nodiscard]] int section() const { return section_; }
    [[nodiscard]] Qt::Orientation orientation() const { return orientation_; }

    [[nodiscard]] bool isValid() const override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override;
    [[nodiscard]] QAccessible::State state() const override;

 private:
    [[nodiscard]] QHeaderView* header() const;

    int section_;  ///< -1 for the corner
    Qt::Orientation orientation_;
};

}  // namespace tarvin
