#pragma once

#include "controls/painted_button.h"

#include <QRect>
#include <QString>

namespace tarvin {

/// A button of the blue bars that tells something: an image, a message and an underlined word for
/// what a click does. As wide as its texts, up to `maxWidth`; a longer message is elided at its
/// end, and the tool tip shows the whole. text() is the message; the accessible name has both
/// texts. Owned by its parent. Main thread only.
class NoticeStrip final : public PaintedButton {
    Q_OBJECT

 public:
    static constexpr int fixedHeight = 29;
    static constexpr int maxWidth = 640;

    /// `pictureName` is the name of an image, `action` the underlined word.
    NoticeStrip(QString pictureName, QString action, QWidget* parent = nullptr);

    /// Without a message, as at first, its width is 0.
    void setMessage(const QString& message);

    /// Whether the message is shortened.
    [[nodiscard]] bool isElided() const;

    [[nodiscard]] QSize sizeHint() const override;

 protected:
    void draw(QPainter& painter) override;
    void mouseEntered() override;
    void mouseExited() override;
    bool event(QEvent* event) override;

 private:
    [[nodiscard]] QRect messageArea() const;
    [[nodiscard]] int actionWidth() const;
    [[nodiscard]] int messageWidth() const;

    const QString pictureName_;
    const QString action_;
};

}  // namespace tarvin
