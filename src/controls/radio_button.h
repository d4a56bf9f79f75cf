#pragma once

#include <QRadioButton>

namespace tarvin {

/// One of several choices: a circle of 18 and its label. The choices are the radio buttons of one
/// parent; arrow keys change the choice. The circle is 4 logical pixels from the left edge, which
/// leaves room for the focus ring around circle and label. Main thread only.
class RadioButton final : public QRadioButton {
    Q_OBJECT

 public:
    static constexpr int ringRoom = 4;

    explicit RadioButton(const QString& text, QWidget* parent = nullptr);

    [[nodiscard]] bool showsFocusRing() const { return showsFocusRing_; }
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
    [[nodiscard]] bool hitButton(const QPoint& position) const override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

 private:
    void showRing(bool shown);

    bool showsFocusRing_ = false;
};

}  // namespace tarvin
