#pragma once

#include <QWidget>
#include <cstdint>

namespace tarvin {

/// An overlay that takes mouse events and paints nothing. It counts the overlays added after it:
/// connect the signals of each to the handlers of the others. Owned by its parent. Main thread
/// only.
class ViewTransparent final : public QWidget {
    Q_OBJECT

 public:
    explicit ViewTransparent(QWidget* parent = nullptr);

    void setviewsOverlaidCount(std::int32_t viewsOverlaidCount);
    [[nodiscard]] std::int32_t viewsOverlaidCount() const { return viewsOverlaidCount_; }

    /// Emits that this overlay was added, or removed.
    void postAddedNotification() { Q_EMIT addedNote(this); }
    void postRemovedNotification() { Q_EMIT removedNote(this); }

    /// Increments or decrements the count, unless `object` is this overlay.
    void viewTransparentAddedNote(QObject* object);
    void viewTransparentRemovedNote(QObject* object);

 Q_SIGNALS:
    void addedNote(QObject* object);
    void removedNote(QObject* object);
    void viewsOverlaidCountChanged(std::int32_t viewsOverlaidCount);

 protected:
    bool event(QEvent* event) override;

 private:
    std::int32_t viewsOverlaidCount_ = 0;
};

}  // namespace tarvin
