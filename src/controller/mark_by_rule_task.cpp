#include "controller/mark_by_rule_task.h"

#include "controller/rule_texts.h"
#include "controls/elided_label.h"
#include "controls/glyph_button.h"
#include "controls/hover_button.h"
#include "controls/radio_button.h"
#include "interface/folder_list.h"
#include "interface/main_window.h"
#include "interface/rule_panel.h"
#include "interface/window_covers.h"

#include <QAccessible>
#include <QAction>
#include <QLabel>
#include <QMenu>
#include <utility>

namespace tarvin {

namespace {

constexpr int tickMilliseconds = 20;
constexpr std::chrono::milliseconds minTimeBetweenCounts{100};
/// A shorter count shows no text of its own, which would only flash.
constexpr std::chrono::milliseconds countingTime{300};

}  // namespace

MarkByRuleTask::MarkByRuleTask(Results& results, MainWindow& window, FilePanels& panels,
                               QSettings& settings, Platform& platform)
    : results_(results),
      window_(window),
      panel_(*window.markByRuleWindow),
      panels_(panels),
      settings_(settings),
      clock_(platform.clock()),
      count_(platform.fileSystem()) {
    panel_.preferredList->setModel(&preferred_);
    panel_.protectedList->setModel(&protected_);
    ticks_.setInterval(tickMilliseconds);
    connect(&ticks_, &QTimer::timeout, this, &MarkByRuleTask::tick);
    connectPanel();
}

MarkByRuleTask::~MarkByRuleTask() {
    panel_.preferredList->setModel(nullptr);
    panel_.protectedList->setModel(nullptr);
}

void MarkByRuleTask::connectPanel() {
    connect(window_.markByRuleItem, &QAction::triggered, this, &MarkByRuleTask::open);
    connect(window_.moreMenu, &QMenu::aboutToShow, this,
            [this] { window_.markByRuleItem->setEnabled(!results_.isEmpty()); });
    connect(panel_.ruleCancel, &QAbstractButton::clicked, this, &MarkByRuleTask::cancel);
    connect(panel_.ruleMark, &QAbstractButton::clicked, this, &MarkByRuleTask::mark);
    connect(&results_, &Results::marksChanged, this, [this] {
        if (closesWhenMarked_) {
            close();
        }
    });
    for (const RadioButton* rule : panel_.rules()) {
        connect(rule, &QAbstractButton::toggled, this, [this](bool chosen) {
            if (chosen) {
                choiceChanged();
            }
        });
    }
    connect(panel_.preferredAdd, &QAbstractButton::clicked, this,
            [this] { addFolders(*panel_.preferredList, preferred_); });
    connect(panel_.preferredRemove, &QAbstractButton::clicked, this,
            [this] { removeFolder(*panel_.preferredList, preferred_); });
    connect(panel_.preferredUp, &QAbstractButton::clicked, this, [this] { moveFolder(-1); });
    connect(panel_.preferredDown, &QAbstractButton::clicked, this, [this] { moveFolder(1); });
    connect(panel_.preferredList, &FolderList::movePressed, this, &MarkByRuleTask::moveFolder);
    connect(panel_.protectedAdd, &QAbstractButton::clicked, this,
            [this] { addFolders(*panel_.protectedList, protected_); });
    connect(panel_.protectedRemove, &QAbstractButton::clicked, this,
            [this] { removeFolder(*panel_.protectedList, protected_); });
    connectList(*panel_.preferredList, preferred_);
    connectList(*panel_.protectedList, protected_);
}

void MarkByRuleTask::connectList(FolderList& list, RuleFolders& folders) {
    connect(&list, &FolderList::removePressed, this,
            [this, &list, &folders] { removeFolder(list, folders); });
    connect(list.selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &MarkByRuleTask::showStates);
    connect(&folders, &QAbstractItemModel::rowsInserted, this, &MarkByRuleTask::choiceChanged);
    connect(&folders, &QAbstractItemModel::rowsRemoved, this, &MarkByRuleTask::choiceChanged);
    connect(&folders, &QAbstractItemModel::rowsMoved, this, &MarkByRuleTask::choiceChanged);
}

void MarkByRuleTask::open() {
    if (panel_.isVisible() || results_.isEmpty()) {
        return;
    }
    replacesMarks_ = results_.list().totalFilesSelected() > 0;
    marksWhenCounted_ = false;
    showChoice(storedRuleChoice(settings_));
    choiceChanged();
    window_.showOver(&panel_, RulePanel::designGeometry);
}

void MarkByRuleTask::showChoice(const RuleChoice& choice) {
    preferred_.setPaths(choice.preferred);
    protected_.setPaths(choice.protectedFolders);
    panel_.rules()[static_cast<qsizetype>(choice.keep)]->setChecked(true);
    // No count of an earlier time is on the screen meanwhile.
    counted_.reset();
    showOutcome({}, {}, false);
}

RuleChoice MarkByRuleTask::choice() const {
    RuleChoice choice;
    const QVector<RadioButton*> rules = panel_.rules();
    for (qsizetype at = 0; at < rules.size(); ++at) {
        if (rules[at]->isChecked()) {
            choice.keep = static_cast<KeepRule>(at);
        }
    }
    choice.preferred = preferred_.paths();
    choice.protectedFolders = protected_.paths();
    return choice;
}

void MarkByRuleTask::choiceChanged() {
    showStates();
    store();
    marksWhenCounted_ = false;
    counted_.reset();
    if (!choice().isComplete()) {
        showOutcome(RuleTexts::noFolder(), RuleTexts::blocked(0, replacesMarks_), false);
    }
    isWanted_ = true;
    changed_ = clock_.steadyNow();
    ticks_.start();
}

void MarkByRuleTask::tick() {
    const bool isComplete = choice().isComplete();
    if (isWanted_ && (!started_ || isOver(*started_, minTimeBetweenCounts))) {
        isWanted_ = false;
        started_ = clock_.steadyNow();
        count_.start(isComplete ? results_.sharedList() : nullptr, choice());
    }
    const std::optional<CountedRule> counted = count_.take();
    showFolders();
    if (!isWanted_ && !count_.isRunning()) {
        ticks_.stop();
    }
    if (counted && !isWanted_ && isComplete) {
        showCount(*counted);
    } else if (isComplete && !counted_ && isOver(changed_, countingTime) &&
               panel_.ruleOutcome->text() != RuleTexts::counting()) {
        showOutcome(RuleTexts::counting(), {}, false);
    }
}

bool MarkByRuleTask::isOver(SteadyTime since, std::chrono::milliseconds span) const {
    return clock_.steadyNow() - since >= span;
}

/// Which folders are gone.
void MarkByRuleTask::showFolders() {
    for (const LookedUpFolder& folder : count_.takeLookedUp()) {
        preferred_.setGone(folder.path, folder.isGone);
        protected_.setGone(folder.path, folder.isGone);
    }
}

void MarkByRuleTask::showCount(const CountedRule& counted) {
    counted_ = counted;
    const QString outcome = RuleTexts::outcome(counted.outcome);
    const QString blocked = RuleTexts::blocked(counted.outcome.blocked, replacesMarks_);
    const bool wasShown =
        outcome == panel_.ruleOutcome->text() && blocked == panel_.ruleBlocked->text();
    showOutcome(outcome, blocked, counted.outcome.files > 0);
    QAccessibleEvent settled(panel_.ruleOutcome, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&settled);
    if (std::exchange(marksWhenCounted_, false) && wasShown) {
        mark();
    }
}

/// Disabling Mark must not take the focus from it for longer than that.
void MarkByRuleTask::showOutcome(const QString& outcome, const QString& blocked, bool canMark) {
    panel_.ruleOutcome->setText(outcome);
    panel_.ruleBlocked->setText(blocked);
    const bool hadFocus = window_.focusWidget() == panel_.ruleMark;
    panel_.ruleMark->setEnabled(canMark);
    if (!canMark && hadFocus) {
        focusedForMark_ = window_.focusWidget();
    } else if (canMark) {
        if (focusedForMark_ != nullptr && focusedForMark_ == window_.focusWidget()) {
            panel_.ruleMark->setFocus(Qt::OtherFocusReason);
        }
        focusedForMark_ = nullptr;
    }
}

void MarkByRuleTask::store() {
    if (const RuleChoice chosen = choice(); chosen != storedRuleChoice(settings_)) {
        storeRuleChoice(settings_, chosen);
    }
}

/// Which buttons of the lists can do something.
void MarkByRuleTask::showStates() {
    const bool prefers = panel_.ruleFolder->isChecked();
    const QModelIndexList chosen = panel_.preferredList->selectionModel()->selectedIndexes();
    const int row = chosen.isEmpty() ? -1 : chosen.front().row();
    panel_.preferredList->setEnabled(prefers);
    panel_.preferredAdd->setEnabled(prefers);
    panel_.preferredRemove->setEnabled(prefers && row >= 0);
    panel_.preferredUp->setEnabled(prefers && row > 0);
    panel_.preferredDown->setEnabled(prefers && row >= 0 && row + 1 < preferred_.rowCount());
    panel_.protectedRemove->setEnabled(panel_.protectedList->selectionModel()->hasSelection());
}

void MarkByRuleTask::addFolders(FolderList& list, RuleFolders& folders) {
    OpenPanel choose;
    choose.canChooseDirectories = true;
    choose.mayBeDropped = false;
    panels_.open(choose, [this, &list, &folders](const std::vector<std::string>& paths) {
        for (const std::string& path : paths) {
            list.setCurrentIndex(folders.index(folders.add(path)));
        }
        showStates();
    });
}

void MarkByRuleTask::removeFolder(FolderList& list, RuleFolders& folders) {
    if (list.selectionModel()->hasSelection()) {
        folders.remove(list.currentIndex().row());
        showStates();
    }
}

void MarkByRuleTask::moveFolder(int by) {
    FolderList& list = *panel_.preferredList;
    if (list.selectionModel()->hasSelection()) {
        list.setCurrentIndex(preferred_.index(preferred_.move(list.currentIndex().row(), by)));
        showStates();
    }
}

void MarkByRuleTask::mark() {
    if (!panel_.isVisible() || !choice().isComplete() || closesWhenMarked_) {
        return;
    }
    if (!counted_) {
        // The choice changed a moment ago; what is on the screen belongs to the one before.
        marksWhenCounted_ = panel_.ruleMark->isEnabled();
        return;
    }
    if (counted_->outcome.files > 0) {
        results_.markByRule(counted_->rule);
        if (results_.isMarking()) {
            endCounting();
            closesWhenMarked_ = true;
        } else {
            close();
        }
    }
}

void MarkByRuleTask::cancel() {
    if (panel_.isVisible()) {
        close();
    }
}

void MarkByRuleTask::endCounting() {
    count_.abandon();
    ticks_.stop();
    isWanted_ = false;
    marksWhenCounted_ = false;
}

void MarkByRuleTask::close() {
    endCounting();
    counted_.reset();
    closesWhenMarked_ = false;
    focusedForMark_ = nullptr;
    panel_.hide();
    window_.covers().removeFirst();
}

}  // namespace tarvin
