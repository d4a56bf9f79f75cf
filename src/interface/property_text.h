#pragma once

#include <QTextEdit>

namespace tarvin {

/// Some lines of plain text in columns made of blanks: a font with the metrics of Helvetica, 12
/// pixels on lines 19 apart, in a white field with a thin line. A person can read, select and copy
/// it, not change it. Lines too long for the field are broken. Main thread.
class PropertyText final : public QTextEdit {
    Q_OBJECT

 public:
    explicit PropertyText(QWidget* parent = nullptr);

    /// The text letter for letter; markup is shown as it is.
    void setText(const QString& text);
    [[nodiscard]] const QString& text() const { return text_; }

 private:
    QString text_;
};

}  // namespace tarvin
