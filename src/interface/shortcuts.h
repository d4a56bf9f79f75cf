#pragma once

#include <QKeySequence>
#include <QList>
#include <QVector>
#include <functional>

class QAction;
class QWidget;

namespace tarvin {

/// The keyboard shortcuts of one widget, which must outlive this object. A key that is held acts
/// once. Main thread only.
class Shortcuts final {
 public:
    explicit Shortcuts(QWidget& owner) : owner_(owner) {}

    /// Calls `act` when one of `keys` is pressed while the owner is shown and the shortcuts are
    /// enabled. The action belongs to the owner.
    QAction* add(const QList<QKeySequence>& keys, const std::function<void()>& act);

    void setEnabled(bool enabled);

 private:
    QWidget& owner_;
    QVector<QAction*> actions_;
};

}  // namespace tarvin
