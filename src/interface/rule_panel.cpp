#include "interface/rule_panel.h"

#include "controls/control_group.h"
#include "controls/elided_label.h"
#include "controls/glyph_button.h"
#include "controls/hover_button.h"
#include "controls/look.h"
#include "controls/radio_button.h"
#include "interface/folder_list.h"
#include "interface/frames.h"
#include "interface/making.h"
#include "interface/placement.h"

#include <QKeyEvent>

namespace tarvin {

namespace {

constexpr int ruleWidth = 414;
constexpr int rulePitch = 24;

QWidget* makeDivider() {
    auto* divider = named(new QWidget, "ruleDivider");
    QPalette colors = divider->palette();
    colors.setColor(QPalette::Window, look::line);
    divider->setPalette(colors);
    divider->setAutoFillBackground(true);
    return divider;
}

}  // namespace

RulePanel::RulePanel(QWidget* parent)
    : DialogPanel(designGeometry.size(), "markByRuleHeader", parent),
      ruleGroup(named(new ControlGroup, "ruleGroup")),
      ruleFirst(named(new RadioButton(tr("The first found"), ruleGroup), "ruleFirst")),
      ruleNewest(named(new RadioButton(tr("The newest"), ruleGroup), "ruleNewest")),
      ruleOldest(named(new RadioButton(tr("The oldest"), ruleGroup), "ruleOldest")),
      ruleShortest(named(new RadioButton(tr("The shortest path"), ruleGroup), "ruleShortest")),
      ruleLongest(named(new RadioButton(tr("The longest path"), ruleGroup), "ruleLongest")),
      ruleFolder(
          named(new RadioButton(tr("The copy in a preferred folder"), ruleGroup), "ruleFolder")),
      preferredList(named(new FolderList(true), "preferredList")),
      preferredAdd(makeQuietButton("preferredAdd", tr("Add…"))),
      preferredRemove(makeQuietButton("preferredRemove", tr("Remove"))),
      preferredUp(named(new GlyphButton(QStringLiteral("ui/move_up")), "preferredUp")),
      preferredDown(named(new GlyphButton(QStringLiteral("ui/move_down")), "preferredDown")),
      protectedList(named(new FolderList(false), "protectedList")),
      protectedAdd(makeQuietButton("protectedAdd", tr("Add…"))),
      protectedRemove(makeQuietButton("protectedRemove", tr("Remove"))),
      ruleOutcome(named(makeLabel({}, look::font(13, QFont::DemiBold), look::ink), "ruleOutcome")),
      ruleBlocked(named(new ElidedLabel, "ruleBlocked")),
      ruleCancel(makeQuietButton("ruleCancel", tr("Cancel"))),
      ruleMark(makeFilledButton("ruleMark", tr("Mark"), look::deepTeal)) {
    setObjectName(QStringLiteral("markByRuleWindow"));
    header->setText(tr("Mark by Rule"));
    setFootHeight(64);
    placeRules();
    placeLists();
    placeFoot();
    nameControls();
    ruleFirst->setChecked(true);
    orderKeys();
    for (const RadioButton* rule : rules()) {
        connect(rule, &QAbstractButton::toggled, this, &RulePanel::orderKeys);
    }
}

QVector<RadioButton*> RulePanel::rules() const {
    return {ruleFirst, ruleNewest, ruleOldest, ruleShortest, ruleLongest, ruleFolder};
}

void RulePanel::placeRules() {
    const QFont heading = look::font(13, QFont::DemiBold);
    placement().place(named(makeLabel(tr("Keep in each set:"), heading, look::ink), "ruleHeading"),
                      {{24, 56, 410, 18}});
    const QVector<RadioButton*> all = rules();
    const int height = rulePitch * static_cast<int>(all.size());
    placement().place(ruleGroup, {{24 - RadioButton::ringRoom, 76, ruleWidth, height}});
    auto* inside = named(new Placement(ruleGroup, {ruleWidth, height}), "rulePlacement");
    int top = 0;
    for (RadioButton* rule : all) {
        inside->place(rule, {{0, top, ruleWidth, rulePitch}});
        top += rulePitch;
    }
}

void RulePanel::placeLists() {
    placement().place(named(new PaneFrame(preferredList), "preferredListFrame"),
                      {{50, 226, 262, 106}});
    placement().place(preferredAdd, {{320, 226, 120, 32}});
    placement().place(preferredRemove, {{320, 263, 120, 32}});
    placement().place(preferredUp, {{320, 300, 56, 32}});
    placement().place(preferredDown, {{384, 300, 56, 32}});
    placement().place(makeDivider(), {{464, 58, 1, 274}});
    placement().place(
        named(makeLabel(tr("Never mark files in:"), look::font(13, QFont::DemiBold), look::ink),
              "protectedHeading"),
        {{488, 56, 280, 18}});
    placement().place(named(new PaneFrame(protectedList), "protectedListFrame"),
                      {{488, 82, 280, 210}});
    placement().place(protectedAdd, {{488, 300, 92, 32}});
    placement().place(protectedRemove, {{588, 300, 92, 32}});
    placement().row({protectedAdd, protectedRemove});
    preferredList->setEmptyText(tr("Add the folders whose copies stay."));
    protectedList->setEmptyText(tr("No folders"));
}

void RulePanel::placeFoot() {
    ruleBlocked->setElideMode(Qt::ElideRight);
    ruleBlocked->setFont(look::font(13));
    ruleBlocked->setTextColor(look::muted);
    placement().place(ruleOutcome, {{24, 362, 490, 19}});
    placement().place(ruleBlocked, {{24, 381, 490, 19}});
    placement().place(ruleCancel, {{552, 364, 104, 34}, atEnd, atEnd});
    placement().place(ruleMark, {{664, 364, 104, 34}, atEnd, atEnd});
    placement().row({ruleCancel, ruleMark});
}

void RulePanel::nameControls() {
    ruleGroup->setAccessibleName(tr("Keep in each set"));
    preferredList->setAccessibleName(tr("Preferred folders"));
    protectedList->setAccessibleName(tr("Never mark files in"));
    preferredAdd->setAccessibleName(tr("Add preferred folder"));
    preferredRemove->setAccessibleName(tr("Remove preferred folder"));
    protectedAdd->setAccessibleName(tr("Add protected folder"));
    protectedRemove->setAccessibleName(tr("Remove protected folder"));
    preferredUp->setAccessibleName(tr("Move Up"));
    preferredDown->setAccessibleName(tr("Move Down"));
    preferredUp->setToolTip(preferredUp->accessibleName());
    preferredDown->setToolTip(preferredDown->accessibleName());
    // The next key must not do something else than the button that it pressed before.
    preferredRemove->setFocusAfterDisabling({preferredAdd});
    protectedRemove->setFocusAfterDisabling({protectedAdd});
    preferredUp->setFocusAfterDisabling({preferredDown, preferredList});
    preferredDown->setFocusAfterDisabling({preferredUp, preferredList});
}

void RulePanel::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && !event->isAutoRepeat()) {
        ruleMark->click();
        return;
    }
    DialogPanel::keyPressEvent(event);
}

/// Tab reaches only the chosen rule; arrow keys choose another.
void RulePanel::orderKeys() {
    QWidget* chosen = ruleFirst;
    for (RadioButton* rule : rules()) {
        if (rule->isChecked()) {
            chosen = rule;
        }
    }
    keyboard().setAnswers(
        {chosen, preferredList, preferredAdd, preferredRemove, preferredUp, preferredDown,
         protectedList, protectedAdd, protectedRemove, ruleCancel, ruleMark},
        chosen, ruleCancel);
    // Not Cancel: Return and Space would close the panel.
    ruleMark->setFocusAfterDisabling({chosen});
}

}  // namespace tarvin
