#include "controller/exceptions_task.h"

#include "controller/result_texts.h"
#include "controls/hover_button.h"
#include "interface/main_window.h"
#include "interface/result_panels.h"
#include "interface/result_screen.h"
#include "interface/text_block.h"
#include "interface/window_covers.h"
#include "model/marking.h"

#include <QAbstractButton>

namespace tarvin {

namespace {

constexpr QPoint panelOrigin{300, 200};
constexpr int yesButton = 0;

}  // namespace

ExceptionsTask::ExceptionsTask(Session& session, Results& results, MainWindow& window,
                               Alerts& alerts, InformationWindow& information)
    : session_(session),
      results_(results),
      window_(window),
      alerts_(alerts),
      information_(information) {
    connect(window_.results->addEceptionBtn, &QAbstractButton::clicked, this,
            &ExceptionsTask::addExceptions);
    connect(window_.results->removeExceptionBtn, &QAbstractButton::clicked, this,
            &ExceptionsTask::removeExceptions);
    connect(window_.exceptionWindow->excOKBtn, &QAbstractButton::clicked, this,
            &ExceptionsTask::addExceptionsOKClicked);
    connect(window_.exceptionWindow->excCancelBtn, &QAbstractButton::clicked, this,
            &ExceptionsTask::addExceptionsCancelClicked);
}

void ExceptionsTask::loaded() {
    window_.results->removeExceptionBtn->setEnabled(
        mayRemoveExceptions(session_.exceptionArrayData()));
}

void ExceptionsTask::addExceptions() {
    if (!mayAddExceptions(results_.list())) {
        window_.results->addEceptionBtn->setEnabled(false);
        return;
    }
    window_.exceptionWindow->exceptionTextField->setText(
        ResultTexts::exceptionQuestion(session_.exact));
    window_.showOver(window_.exceptionWindow, panelOrigin);
}

void ExceptionsTask::addExceptionsOKClicked() {
    removeExceptionWindow();
    if (results_.list().totalFilesSelected() == 0) {
        return;
    }
    const std::vector<std::string> batch = results_.takeOutMarkedFiles();
    if (!batch.empty()) {
        session_.addExceptions(batch);
        window_.results->removeExceptionBtn->setEnabled(true);
        information_.setInformationWindow(
            exceptionsAddedInformation(static_cast<std::int64_t>(batch.size())));
    }
}

void ExceptionsTask::removeExceptionWindow() {
    window_.covers().removeAll();
    window_.exceptionWindow->hide();
}

void ExceptionsTask::removeExceptions() {
    alerts_.show(removeExceptionsAlert(), [this](int button) {
        if (button == yesButton) {
            removeAll();
        }
    });
}

void ExceptionsTask::removeAll() {
    session_.removeExceptions();
    window_.results->removeExceptionBtn->setEnabled(false);
    information_.setInformationWindow(exceptionsRemovedInformation());
}

}  // namespace tarvin
