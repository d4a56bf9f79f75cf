#include "interface/about_panel.h"

#include "controls/look.h"
#include "controls/painting.h"
#include "controls/panel_shadow.h"
#include "interface/making.h"
#include "interface/picture_view.h"
#include "interface/placement.h"
#include "interface/product_title.h"
#include "interface/text_block.h"

#include <QPainter>
#include <algorithm>

namespace tarvin {

namespace {

constexpr int outline = 1;
constexpr int titleHeight = 28;
constexpr int footerHeight = 44;
constexpr int textMargin = 33;
constexpr QRect sentenceGeometry{textMargin, 181, 354, 40};
constexpr int airUnderSentence = AboutPanel::designSize.height() - sentenceGeometry.bottom() - 1;
constexpr QColor bandTitle{51, 69, 79};

}  // namespace

CloseButton::CloseButton(QWidget* parent) : PaintedButton(parent) {
    setFocusRing(FocusRing::Position::inside, look::focusRing);
    setAccessibleName(tr("Close"));
}

void CloseButton::draw(QPainter& painter) {
    if (hovering()) {
        painter.fillRect(rect(), isDown() ? look::line : look::frame);
    }
    constexpr double arm = 4.5;
    const QPointF middle = QRectF(rect()).center();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(look::ink, 1.5, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(middle - QPointF(arm, arm), middle + QPointF(arm, arm));
    painter.drawLine(middle - QPointF(arm, -arm), middle + QPointF(arm, -arm));
}

AboutPanel::AboutPanel(QWidget* parent)
    : Panel(parent),
      aboutVersion(named(makeLabel({}, look::font(14), look::muted), "aboutVersion")),
      closeButton(named(new CloseButton, "aboutCloseButton")),
      sentence_(named(new TextBlock(look::font(13), 20, look::muted), "aboutSentence")) {
    setObjectName(QStringLiteral("windowAboutPanel"));
    resize(designSize);
    new PanelShadow(*this);
    sentence_->setText(
        tr("Finds files with identical content, groups them into sets and moves "
           "the copies you choose to the Trash."));
    connect(closeButton, &QAbstractButton::clicked, this, &QWidget::hide);
    keyboard().setAnswers({closeButton}, closeButton, closeButton);
    placeControls();
}

void AboutPanel::placeControls() {
    auto* icon = named(new PictureView, "aboutIcon");
    icon->setPictureName(QStringLiteral("app_icon"));
    auto* name = named(new TextBlock(look::font(20, QFont::DemiBold), 26, look::ink), "aboutName");
    name->setText(productTitle());
    auto* placement = new Placement(this, designSize);
    const auto place = [placement](QWidget* control, QRect design, Growth down = atStart,
                                   Fit fit = Fit::drawn) {
        placement->place(control, {design, atStart, down, fit});
    };
    place(makeLabel(tr("About"), look::font(12, QFont::DemiBold), bandTitle, Qt::AlignHCenter),
          {outline, outline, 418, titleHeight - outline});
    place(closeButton, {391, outline, 28, titleHeight - outline});
    place(icon, {textMargin, 61, 96, 96});
    place(name, {153, 61, 244, 52});
    place(aboutVersion, {153, 121, 244, 20});
    place(sentence_, sentenceGeometry, atStart, Fit::taller);
    place(makeLabel(tr("© Tarvin Software. All rights reserved."), look::font(12), look::muted),
          {textMargin, 244, 354, 43}, atEnd);
}

int AboutPanel::heightForWidth(int) const {
    const int needed = sentence_->heightForWidth(sentenceGeometry.width());
    return std::max(designSize.height(), sentenceGeometry.top() + needed + airUnderSentence);
}

void AboutPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRect inside = rect().adjusted(outline, outline, -outline, -outline);
    painter.fillRect(inside, look::surface);
    QRect band = inside;
    band.setHeight(titleHeight);
    painter.fillRect(band, look::header);
    painter.fillRect(QRect(outline, titleHeight, inside.width(), outline), look::frame);
    QRect foot = inside;
    foot.setTop(height() - outline - footerHeight);
    painter.fillRect(foot, look::page);
    painter.fillRect(QRect(outline, foot.top(), inside.width(), outline), look::line);
    paintFrame(painter, rect(), outline, look::noticeFrame);
}

}  // namespace tarvin
