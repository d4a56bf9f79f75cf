#pragma once

#include <QMargins>
#include <QPointer>
#include <QWidget>

namespace tarvin {

/// A decoration around another widget: a sibling, larger by some margins, that moves, resizes and
/// hides with it. Takes neither mouse nor focus. Owned by the parent of that widget; deletes itself
/// when the widget is destroyed. Main thread only.
class AttachedDrawing : public QWidget {
    Q_OBJECT

 public:
    enum class Layer { above, below };

    AttachedDrawing(QWidget& target, const QMargins& margins, Layer layer);

    bool eventFilter(QObject* watched, QEvent* event) override;

    [[nodiscard]] QWidget* target() const { return target_; }

    /// Whether it is shown whenever its widget is.
    void setWanted(bool wanted);
    [[nodiscard]] bool isWanted() const { return wanted_; }

 private:
    void follow();
    void restack();

    QPointer<QWidget> target_;
    QMargins margins_;
    Layer layer_;
    bool wanted_ = false;
};

}  // namespace tarvin
