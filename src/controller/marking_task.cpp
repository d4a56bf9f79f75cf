#include "controller/marking_task.h"

#include "controller/result_tabs.h"
#include "controller/result_texts.h"
#include "controls/button_hover_simple.h"
#include "controls/button_settings_saved.h"
#include "controls/hover_button.h"
#include "controls/pop_up_button.h"
#include "controls/tab_button.h"
#include "interface/enabled_together.h"
#include "interface/main_window.h"
#include "interface/notice_panel.h"
#include "interface/result_screen.h"
#include "interface/result_table.h"
#include "interface/result_tree_view.h"

#include <QAbstractButton>
#include <QLabel>

namespace tarvin {

namespace {

constexpr QPoint alertOrigin{275, 225};

}  // namespace

MarkingTask::MarkingTask(Session& session, Results& results, MainWindow& window,
                         InformationWindow& information)
    : session_(session), results_(results), window_(window), information_(information) {
    connectControls();
}

void MarkingTask::connectControls() const {
    const ResultScreen& screen = *window_.results;
    connect(screen.markAll, &QAbstractButton::clicked, this, &MarkingTask::markAllClicked);
    connect(screen.unMarkAll, &QAbstractButton::clicked, this, &MarkingTask::unMarkAllClicked);
    connect(screen.OView2, &ResultTreeView::checkBoxClicked, this, &MarkingTask::checkBoxClicked);
    connect(screen.resultTable, &ResultTable::tableCheckBoxClicked, this,
            &MarkingTask::tableCheckBoxClicked);
    connect(this, &MarkingTask::checkNotif, this, &MarkingTask::checkButtonClicked);
    connect(&results_, &Results::marksChanged, this, &MarkingTask::showTotalsAndButtons);
    connect(window_.allCheckOk, &QAbstractButton::clicked, this, &MarkingTask::checkALertOK);
}

void MarkingTask::collectionViewCheckButtonCLicked(int position) {
    if (results_.toggleFile(position) == ToggleResult::refused) {
        information_.setInformationWindow(allFilesOfSetInformation());
    }
}

void MarkingTask::setMarkedFilesDetails() {
    session_.totalSelected = results_.list().totalFilesSelected();
    session_.totalSize = results_.list().totalFilesSelectedSize();
    window_.results->selectedCount->setText(ResultTexts::selectedCount(session_.totalSelected));
    window_.results->selectedSize->setText(ResultTexts::selectedSize(session_.totalSize));
}

void MarkingTask::enableNecessaryButton() {
    if (results_.isMarking()) {
        return;  // marksChanged() follows
    }
    const ResultScreen& screen = *window_.results;
    screen.buttonHomePage->setAlpha(1.0);
    const ButtonStates states =
        buttonStatesFor(results_.list(), session_.exact, currentViewOf(results_.tabs()));
    setEnabledTogether({{screen.markAll, states.markAll},
                        {screen.unMarkAll, states.unMarkAll},
                        {screen.sendToRecycle, states.sendToRecycle},
                        {screen.deletePermanently, states.deletePermanently},
                        {screen.addEceptionBtn, states.addEceptionBtn},
                        {screen.sortPopupBtn, states.sortPopupBtn}});
    if (!states.currentView) {
        return;
    }
    for (const ResultView view : allViews) {
        tabButtonOf(screen, view)->setEnabled(view != *states.currentView);
    }
}

void MarkingTask::showTotalsAndButtons() {
    setMarkedFilesDetails();
    enableNecessaryButton();
}

void MarkingTask::showAllCheckAlert() {
    window_.showNotice(window_.allCheckAlertView, alertOrigin);
}

void MarkingTask::checkALertOK() const {
    window_.allCheckAlertView->hide();
}

}  // namespace tarvin
