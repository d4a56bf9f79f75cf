#pragma once

#include <QWidget>
#include <cstdint>

namespace tarvin {

/// The overlay that keeps the mouse away from what lies beneath it. It paints nothing. Counts the
/// overlays that came after it, if it is told of them: connect the notes of one to the handlers of
/// the other. Owned by its parent; main thread.
class ViewTransparent final : public QWidget {
    Q_OBJECT

 public:
    explicit ViewTransparent(QWidget* parent = nullptr);

    void setviewsOverlaidCount(std::int32_t viewsOverlaidCount);
    [[nodiscard]] std::int32_t viewsOverlaidCount() const { return viewsOverlaidCount_; }

    /// Tells the others that this overlay was put up, or taken away.
    void postAddedNotification();
    void postRemovedNotification();

    /// Counts up, or down, unless `object` is this overlay itself.
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
