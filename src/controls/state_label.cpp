#include "controls/state_label.h"

#include "controls/accessible_factory.h"
#include "controls/look.h"
#include "controls/painting.h"

#include <QAccessibleWidget>
#include <QFontMetrics>

namespace tarvin {

namespace {

constexpr int statePadding = 12;

/// Screen readers present an alert that appears, but no other label.
class AccessibleState final : public QAccessibleWidget {
 public:
    explicit AccessibleState(StateLabel& label)
        : QAccessibleWidget(&label, QAccessible::AlertMessage) {}
};

}  // namespace

StateLabel::StateLabel(QWidget* parent) : QLabel(parent) {
    installAccessible<StateLabel, AccessibleState>();
    setTextFormat(Qt::PlainText);
    setFont(look::font(13, QFont::DemiBold));
    hide();
}

void StateLabel::setState(const QString& text) {
    if (text == this->text()) {
        return;
    }
    setText(text);
    setAccessibleName(text);
    setVisible(!text.isEmpty());
    if (!text.isEmpty()) {
        announce();
    }
}

/// By one event only: a screen reader that knows both would speak twice.
void StateLabel::announce() {
    if (!QAccessible::isActive()) {
        return;
    }
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    QAccessibleAnnouncementEvent announcement(this, text());
    QAccessible::updateAccessibility(&announcement);
#else
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
#endif
}

QSize StateLabel::sizeHint() const {
    return {fontMetrics().horizontalAdvance(text()) + 2 * statePadding, designHeight};
}

void StateLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), look::surface);
    paintFrame(painter, rect(), look::frameLine, look::deepTeal);
    paintLine(painter, rect(), text(), font(), look::activeTab, Qt::AlignHCenter);
}

}  // namespace tarvin
