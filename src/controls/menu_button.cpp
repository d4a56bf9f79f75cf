#include "controls/menu_button.h"

#include "controls/accessible_factory.h"
#include "controls/images.h"
#include "controls/painting.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QPainter>
#include <utility>

namespace tarvin {

namespace {

constexpr QColor openBackground{255, 255, 255, 46};  // white at 18 %

/// A button with a menu, which can be pressed. Owned by Qt.
class AccessibleMenuButton final : public QAccessibleWidget {
 public:
    explicit AccessibleMenuButton(MenuButton& button)
        : QAccessibleWidget(&button, QAccessible::ButtonMenu), button_(button) {}

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.hasPopup = true;
        state.expandable = true;
        state.expanded = button_.isOpen();
        state.collapsed = !state.expanded;
        return state;
    }

    [[nodiscard]] QStringList actionNames() const override {
        return {pressAction(), setFocusAction()};
    }

    void doAction(const QString& actionName) override {
        if (actionName == pressAction()) {
            button_.click();
        } else {
            QAccessibleWidget::doAction(actionName);
        }
    }

 private:
    MenuButton& button_;
};

}  // namespace

MenuButton::MenuButton(QString pictureName, QMenu* menu, QWidget* parent)
    : HoverButton(Kind::outline, {}, parent), pictureName_(std::move(pictureName)) {
    installAccessible<MenuButton, AccessibleMenuButton>();
    connect(menu, &QMenu::aboutToShow, this, [this] { setOpen(true); });
    connect(menu, &QMenu::aboutToHide, this, [this] { setOpen(false); });
}

void MenuButton::setOpen(bool open) {
    isOpen_ = open;
    update();
}

void MenuButton::draw(QPainter& painter) {
    constexpr int side = 17;
    if (isOpen_) {
        painter.fillRect(rect(), openBackground);
    }
    drawBackground(painter);
    const QRect area((width() - side) / 2, (height() - side) / 2, side, side);
    painter.drawPixmap(area, picture(pictureName_, area.size(), devicePixelRatioOf(painter)));
}

void MenuButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Down && !event->isAutoRepeat()) {
        click();
        return;
    }
    HoverButton::keyPressEvent(event);
}

}  // namespace tarvin
