#include "interface/search_field.h"

#include "controls/images.h"
#include "controls/look.h"
#include "controls/painted_button.h"
#include "controls/painting.h"
#include "interface/appearance.h"
#include "interface/making.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QPainter>

namespace tarvin {

namespace {

constexpr int iconSide = 18;
constexpr int iconLeft = 8;
constexpr int clearSide = 24;
constexpr int clearMargin = 4;
constexpr double disabledOpacityOfIcon = 0.45;
// Qt adds two pixels of its own.
constexpr QMargins aroundText{31, 0, clearSide + 2 * clearMargin - 2, 0};

class ClearButton final : public PaintedButton {
 public:
    explicit ClearButton(QWidget* parent) : PaintedButton(parent) {
        setFocusPolicy(Qt::NoFocus);
        showCursor(Qt::PointingHandCursor);
    }

    [[nodiscard]] QSize sizeHint() const override { return {clearSide, clearSide}; }

 protected:
    void draw(QPainter& painter) override {
        const QPoint corner((width() - iconSide) / 2, (height() - iconSide) / 2);
        painter.drawPixmap(corner, picture(QStringLiteral("ui/clear"), {iconSide, iconSide},
                                           devicePixelRatioOf(painter)));
    }
    [[nodiscard]] double shownOpacity() const override {
        return hovering() ? look::hoverAlpha : alpha();
    }
};

}  // namespace

SearchField::SearchField(QWidget* parent)
    : QLineEdit(parent), clear_(named(new ClearButton(this), "clearSearch")) {
    useNeutralStyle(this);
    setFrame(false);
    setFont(look::font(13));
    setTextMargins(aroundText);
    QPalette colors = lightPalette();
    colors.setColor(QPalette::Text, look::ink);
    colors.setColor(QPalette::Base, look::surface);
    colors.setColor(QPalette::PlaceholderText, look::muted);
    colors.setColor(QPalette::Disabled, QPalette::Base, look::page);
    colors.setColor(QPalette::Disabled, QPalette::PlaceholderText, look::disabledText);
    setPalette(colors);
    clear_->setAccessibleName(tr("Clear search"));
    clear_->setToolTip(tr("Clear search"));
    clear_->hide();
    connect(clear_, &QAbstractButton::clicked, this, &QLineEdit::clear);
    connect(this, &QLineEdit::textChanged, this,
            [this](const QString& text) { clear_->setVisible(!text.isEmpty()); });
}

void SearchField::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);
    QPainter painter(this);
    paintFrame(painter, rect(), look::frameLine, isEnabled() ? look::controlLine : look::frame);
    painter.setOpacity(isEnabled() ? 1.0 : disabledOpacityOfIcon);
    painter.drawPixmap(
        iconLeft, (height() - iconSide) / 2,
        picture(QStringLiteral("ui/search"), {iconSide, iconSide}, devicePixelRatioOf(painter)));
}

void SearchField::resizeEvent(QResizeEvent* event) {
    QLineEdit::resizeEvent(event);
    clear_->setGeometry(width() - clearMargin - clearSide, (height() - clearSide) / 2, clearSide,
                        clearSide);
}

/// A field for text always shows that it takes the keys.
void SearchField::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (ring_ == nullptr && parentWidget() != nullptr) {
        ring_ = new FocusRing(*this, FocusRing::Position::outside, look::focusRing);
    }
    if (ring_ != nullptr) {
        ring_->setWanted(true);
    }
}

void SearchField::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (ring_ != nullptr && event->reason() != Qt::PopupFocusReason) {
        ring_->setWanted(false);
    }
}

void SearchField::contextMenuEvent(QContextMenuEvent* event) {
    QMenu* menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    styleMenu(menu);
    menu->popup(event->globalPos());
}

}  // namespace tarvin
