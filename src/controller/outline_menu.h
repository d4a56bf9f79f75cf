#pragma once

#include <QObject>
#include <QString>

namespace tarvin {

class ResultScreen;

/// The context menu of the outline. Nothing listens to its signals, so the menu has no effect.
/// Owned by ResultViews. Main thread only.
class OutlineMenu final : public QObject {
    Q_OBJECT

 public:
    /// `screen` must outlive this object.
    explicit OutlineMenu(const ResultScreen& screen);

    /// Emits the signal of the item with this tag; none for an unknown tag.
    void righClickMenuItemClicked(int tag, const QString& title);

 Q_SIGNALS:
    void markUnmarkSelectedOutlineImage(bool mark);
    void openSelectedImageOfOutlineView(bool inFolder);
    void moveSelectedItemToTrash(bool selected);
    void markAllSelectedSet();
    void unMarkAllSelectedSet();
    void getInfo();
};

}  // namespace tarvin
