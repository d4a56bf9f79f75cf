#pragma once

#include <QTextEdit>

namespace tarvin {

/// Lines of plain text in columns aligned with spaces: a font with the metrics of Helvetica, 12
/// pixels, line height 19, in a white field with an outline. The user can select and copy the text.
/// Long lines are wrapped. Main thread only.
class PropertyText final : public QTextEdit {
    Q_OBJECT

 public:
    explicit PropertyText(QWidget* parent = nullptr);

    /// Plain text; markup is not interpreted.
    void setText(const QString& text);
    [[nodiscard]] const QString& text() const { return text_; }

 private:
    QString text_;
};

}  // namespace tarvin
