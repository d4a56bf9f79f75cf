#include "controls/pop_up_button.h"

#include "controls/accessible_factory.h"
#include "controls/images.h"
#include "controls/look.h"
#include "controls/painting.h"
#include "controls/popup_watch.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QApplication>
#include <QCursor>
#include <QFontMetrics>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QWheelEvent>
#include <algorithm>

namespace tarvin {

namespace {

constexpr int padding = 10;
constexpr int chevronSide = 16;
constexpr int chevronMargin = 8;
constexpr int chevronGap = 4;  ///< to the title
constexpr double disabledAlpha = 0.45;

QFont titleFont() {
    return look::font(13, QFont::Medium);
}

/// A list below the button, in the colours of the menus, independent of the style.
QString listStyle() {
    return QStringLiteral(
               "QComboBox { combobox-popup: 0; }"
               "QComboBox QAbstractItemView { background: %1; border: 1px solid %2; outline: 0; }"
               "QComboBox QAbstractItemView::item { min-height: 30px; padding-left: 9px; "
               "color: %3; background: %1; border: 0; }"
               "QComboBox QAbstractItemView::item:selected { background: %4; }")
        .arg(look::surface.name(), look::noticeFrame.name(), look::ink.name(),
             look::rowSelected.name());
}

/// A combo box with the button's name, whose value is the current item. Qt's own would use the item
/// as the name. Owned by Qt.
class AccessiblePopUp final : public QAccessibleWidget {
 public:
    explicit AccessiblePopUp(PopUpButton& button)
        : QAccessibleWidget(&button, QAccessible::ComboBox), button_(button) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? button_.currentText() : QAccessibleWidget::text(kind);
    }

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.expanded = button_.view()->isVisible();
        state.collapsed = !state.expanded;
        return state;
    }

    [[nodiscard]] QStringList actionNames() const override {
        return {showMenuAction(), setFocusAction()};
    }

    void doAction(const QString& actionName) override {
        if (actionName != showMenuAction()) {
            QAccessibleWidget::doAction(actionName);
        } else if (button_.isEnabled()) {
            button_.view()->isVisible() ? button_.hidePopup() : button_.showPopup();
        }
    }

 private:
    PopUpButton& button_;
};

}  // namespace

PopUpButton::PopUpButton(QWidget* parent) : QComboBox(parent) {
    installAccessible<PopUpButton, AccessiblePopUp>();
    setFont(titleFont());
    setStyleSheet(listStyle());
    // The default delegate of combo boxes ignores the margins of the style sheet.
    setItemDelegate(new QStyledItemDelegate(this));
    setCursor(Qt::PointingHandCursor);
    connect(&PopupWatch::instance(), &PopupWatch::closed, this, &PopUpButton::updateTrackingAreas);
}

void PopUpButton::addTagged(const QString& title, int tag) {
    addItem(title, tag);
    updateGeometry();
}

void PopUpButton::selectItemWithTag(int tag) {
    const int index = findData(tag);
    if (index >= 0) {
        setCurrentIndex(index);
    }
}

QSize PopUpButton::sizeHint() const {
    constexpr int buttonHeight = 32;
    const QFontMetrics metrics(titleFont());
    int widest = 0;
    for (int index = 0; index < count(); ++index) {
        widest = std::max(widest, metrics.horizontalAdvance(itemText(index)));
    }
    return {padding + widest + chevronGap + chevronSide + chevronMargin, buttonHeight};
}

bool PopUpButton::showsFocusRing() const {
    return ring_ != nullptr && ring_->isWanted();
}

void PopUpButton::updateTrackingAreas() {
    setHovering(isVisible() && QApplication::widgetAt(QCursor::pos()) == this);
}

void PopUpButton::setHovering(bool hovering) {
    hovering_ = hovering;
    update();
}

void PopUpButton::showPopup() {
    if (!signalsBlocked()) {
        QComboBox::showPopup();
    }
}

void PopUpButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintFaded(painter, rect(), hovering_ && isEnabled() ? look::hoverAlpha : 1.0,
               [this](QPainter& inside) { draw(inside); });
}

void PopUpButton::draw(QPainter& painter) const {
    painter.fillRect(rect(), isEnabled() ? look::surface : look::page);
    paintFrame(painter, rect(), 1, isEnabled() ? look::controlLine : look::frame);
    const QRect chevron(width() - chevronMargin - chevronSide - 1, (height() - chevronSide) / 2,
                        chevronSide, chevronSide);
    const int left = padding + 1;
    paintLine(painter, {left, 0, chevron.left() - left, height()}, currentText(), titleFont(),
              isEnabled() ? look::ink : look::disabledText);
    painter.setOpacity(isEnabled() ? 1.0 : disabledAlpha);
    painter.drawPixmap(chevron.topLeft(), picture(QStringLiteral("ui/chevron_down"), chevron.size(),
                                                  devicePixelRatioOf(painter)));
}

bool PopUpButton::event(QEvent* event) {
    const bool handled = QComboBox::event(event);
    switch (event->type()) {
        case QEvent::EnabledChange:
        case QEvent::Show:
        case QEvent::Hide:
            updateTrackingAreas();
            break;
        case QEvent::Enter:
            setHovering(true);
            break;
        case QEvent::Leave:
            setHovering(false);
            break;
        default:
            break;
    }
    return handled;
}

void PopUpButton::focusInEvent(QFocusEvent* event) {
    QComboBox::focusInEvent(event);
    showRing(focusIsShown(*this, event->reason()));
}

void PopUpButton::focusOutEvent(QFocusEvent* event) {
    QComboBox::focusOutEvent(event);
    showRing(false);
}

void PopUpButton::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

void PopUpButton::showRing(bool shown) {
    if (shown && ring_ == nullptr && parentWidget() != nullptr) {
        ring_ = new FocusRing(*this, FocusRing::Position::outside, look::focusRing);
    }
    if (ring_ != nullptr) {
        ring_->setWanted(shown);
    }
}

}  // namespace tarvin
