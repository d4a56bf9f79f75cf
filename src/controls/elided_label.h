#pragma once

#include <QColor>
#include <QLabel>

namespace tarvin {

/// One line of plain text that is shortened with an ellipsis where it is too wide; text() stays the
/// full one, and a tool tip shows it while it is shortened. Markup is never followed. Owned by its
/// parent; main thread.
class ElidedLabel final : public QLabel {
    Q_OBJECT

 public:
    explicit ElidedLabel(QWidget* parent = nullptr);
    explicit ElidedLabel(const QString& text, QWidget* parent = nullptr);

    void setText(const QString& text);

    /// Where the text is shortened: Qt::ElideMiddle at first, for paths, or Qt::ElideRight.
    void setElideMode(Qt::TextElideMode mode);
    [[nodiscard]] Qt::TextElideMode elideMode() const { return mode_; }

    /// Whether the text stands in a white field with a thin line round it, 12 logical pixels from
    /// its ends. First it does not.
    void setFramed(bool framed);

    void setTextColor(const QColor& color);
    [[nodiscard]] QColor textColor() const;

    /// The text as it is painted.
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
