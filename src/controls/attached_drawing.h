#pragma once

#include <QMargins>
#include <QPointer>
#include <QWidget>

namespace tarvin {

/// A drawing round another widget: lies beside it in the same parent, larger by some margins, and
/// goes where it goes. Never takes the mouse or the keyboard. Belongs to the parent of the widget
/// it follows; deletes itself when that widget is destroyed. Main thread.
class AttachedDrawing : public QWidget {
    Q_OBJECT

 public:
    enum class Layer { above, below };

    AttachedDrawing(QWidget& target, const QMargins& margins, Layer layer);

    bool eventFilter(QObject* watched, QEvent* event) override;

    [[nodiscard]] QWidget* target() const { return target_; }

    /// Whether the drawing is to be seen whenever its widget is.
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
