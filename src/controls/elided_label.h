#pragma once

#include <QColor>
#include <QLabel>

namespace tarvin {

/// One line of plain text, elided where it is too wide. text() is the full text, and the tool tip
/// shows it while it is elided. Markup is not interpreted. Owned by its parent. Main thread only.
class ElidedLabel final : public QLabel {
    Q_OBJECT

 public:
    explicit ElidedLabel(QWidget* parent = nullptr);
    explicit ElidedLabel(const QString& text, QWidget* parent = nullptr);

    void setText(const QString& text);

    /// Where the text is elided: Qt::ElideMiddle, the default, for paths, or Qt::ElideRight.
    void setElideMode(Qt::TextElideMode mode);

    /// Whether the text is in a white field with an outline, 12 logical pixels from its ends. False
    /// by default.
    void setFramed(bool framed);

    void setTextColor(const QColor& color);
    [[nodiscard]] QColor textColor() const;

    /// The text as painted.
    [[nodiscard]] QString shownText() const;
    [[nodiscard]] bool isElided() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

 private:
    Qt::TextElideMode mode_ = Qt::ElideMiddle;
    bool framed_ = false;
};

}  // namespace tarvin
