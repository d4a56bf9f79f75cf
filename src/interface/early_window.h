#pragma once

#include <QWidget>

namespace tarvin {

/// A window that can be on the screen before what it shows is made: fonts, pictures and controls
/// take longer than all the rest of a start, and a person sees meanwhile that the program comes.
/// Until then it shows the bar at the top and the ground below. Main thread.
class EarlyWindow : public QWidget {
    Q_OBJECT

 public:
    enum class Appearance {
        whenShown,  ///< as any widget
        atOnce      ///< in the constructor of this class, before that of the derived one
    };

 protected:
    /// `size` is that of the content, also the least. A window that appears at once has been
    /// painted when the constructor returns, unless the desktop takes too long to give it a place.
    /// It cannot be closed before the derived class says how.
    EarlyWindow(QWidget* parent, Appearance appearance, const QSize& size);

    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

 private:
    void appear();

    bool isEarly_ = false;  // waits for its first frame
};

}  // namespace tarvin
