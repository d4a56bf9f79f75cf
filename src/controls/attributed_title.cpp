#include "controls/attributed_title.h"

namespace tarvin {

AttributedTitle setAttributes(const QColor& color, const QString& text, int fontSize) {
    return {text, color, fontSize, std::nullopt, false};
}

AttributedTitle setCenterAttributes(const QColor& color, const QString& text, int fontSize) {
    return setCenterAttributes(color, text, false, Qt::AlignHCenter, fontSize);
}

AttributedTitle setCenterAttributes(const QColor& color, const QString& text, bool underline,
                                    Qt::Alignment alignment, int fontSize) {
    return {text, color, fontSize, alignment, underline};
}

}  // namespace tarvin
