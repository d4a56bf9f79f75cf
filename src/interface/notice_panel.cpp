#include "interface/notice_panel.h"

#include "controls/button_settings_saved.h"
#include "controls/look.h"
#include "controls/panel_shadow.h"
#include "interface/making.h"
#include "interface/placement.h"
#include "interface/product_title.h"
#include "interface/text_block.h"

#include <QFontMetrics>
#include <algorithm>

namespace tarvin {

namespace {

constexpr int noticeLine = 1;
constexpr int bandHeight = 25;
constexpr int footHeight = 45;
constexpr int noticeMargin = noticeLine + 16;  ///< of the title and of the text
constexpr int textTop = noticeLine + bandHeight;
constexpr int minPadding = 8;  ///< above and below the text
constexpr QSize buttonSize{84, 27};
constexpr int buttonPadding = 10;  ///< on each side of a title
constexpr int buttonGap = 10;

}  // namespace

NoticePanel::NoticePanel(int width, const char* textName, QWidget* parent)
    : Panel(parent),
      text(named(new TextBlock(look::font(14), 20, look::ink), textName)),
      width_(width),
      buttonsFrom_(width - noticeLine - 15),
      placement_(new Placement(this, {width, designHeight})) {
    resize(width, designHeight);
    new PanelShadow(*this);
    text->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    QLabel* title = makeLabel(productTitle(), look::font(12, QFont::DemiBold), look::ink);
    const int inside = width - 2 * noticeMargin;
    placement_->place(title, {{noticeMargin, noticeLine, inside, bandHeight}, stretching, atStart});
    const int textHeight = designHeight - textTop - noticeLine - footHeight;
    placement_->place(text, {{noticeMargin, textTop, inside, textHeight}, stretching, stretching});
}

ButtonSettingsSaved* NoticePanel::addButton(const char* objectName, const QString& title) {
    auto* button = named(new ButtonSettingsSaved, objectName);
    button->setTitle(title);
    const int needed = QFontMetrics(look::font(13)).horizontalAdvance(title) + 2 * buttonPadding;
    const int width = std::max(buttonSize.width(), needed);
    const int top = designHeight - noticeLine - footHeight + 9;
    placement_->place(button,
                      {{buttonsFrom_ - width, top, width, buttonSize.height()}, atEnd, atEnd});
    buttonsFrom_ -= width + buttonGap;
    return button;
}

int NoticePanel::heightForWidth(int width) const {
    const int needed = text->heightForWidth(width - 2 * noticeMargin) + 2 * minPadding;
    return std::max(designHeight, textTop + needed + footHeight + noticeLine);
}

QSize NoticePanel::sizeHint() const {
    return {width_, heightForWidth(width_)};
}

}  // namespace tarvin
