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
#include <memory>
#include <utility>

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
    row_.reset();
    window_.exceptionWindow->exceptionTextField->setText(
        ResultTexts::exceptionQuestion(session_.exact));
    window_.showOver(window_.exceptionWindow, panelOrigin);
}

void ExceptionsTask::addException(int row) {
    const std::shared_ptr<File> file = results_.files().fileAt(row);
    if (file == nullptr) {
        return;
    }
    row_ = row;
    window_.exceptionWindow->exceptionTextField->setText(
        ResultTexts::exceptionQuestionFor(file->fileName()));
    window_.showOver(window_.exceptionWindow, panelOrigin);
}

void ExceptionsTask::addExceptionsOKClicked() {
    removeExceptionWindow();
    if (const std::optional<int> row = std::exchange(row_, std::nullopt)) {
        if (const std::optional<std::string> path = results_.takeOutFile(*row)) {
            add({*path});
        }
    } else if (results_.list().totalFilesSelected() != 0) {
        add(results_.takeOutMarkedFiles());
    }
}

void ExceptionsTask::add(const std::vector<std::string>& files) {
    if (!files.empty()) {
        session_.addExceptions(files);
        window_.results->removeExceptionBtn->setEnabled(true);
        information_.setInformationWindow(
            exceptionsAddedInformation(static_cast<std::int64_t>(files.size())));
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
