#include "controller/information_window.h"

#include "controls/button_style.h"
#include "controls/hover_button.h"
#include "interface/main_window.h"
#include "interface/picture_view.h"
#include "interface/result_panels.h"
#include "interface/text_block.h"
#include "interface/window_covers.h"

#include <QLabel>

namespace tarvin {

namespace {

constexpr QPoint windowOrigin{250, 200};
constexpr QColor background{21, 138, 162};

}  // namespace

InformationWindow::InformationWindow(MainWindow& window) : window_(window) {
    connect(window_.informationWindow->scanInforOKBtn, &QAbstractButton::clicked, this,
            &InformationWindow::okInformationWindow);
}

void InformationWindow::setInformationWindow(const Information& information) {
    fill(information);
    showInformationWindow();
}

void InformationWindow::setInformationWindowInPlaceOf(DialogPanel& panel,
                                                      const Information& information) {
    fill(information);
    showInPlaceOf(panel);
}

void InformationWindow::fill(const Information& information) const {
    const InformationPanel& panel = *window_.informationWindow;
    panel.informationHeader->setText(information.informationHeader);
    panel.scanInfoCount->setText(information.duplicatesCount);
    panel.scanInfoSize->setText(information.duplicatesSize);
    panel.scanOtherInfo->setText(information.otherInfomration);
    panel.scanInfoImage->setPictureName(information.informationImage);
    window_.informationWindow->setKeptLine(information.keptLine);
    window_.informationWindow->setNotRead(information.notRead);
    setButtonAtrribute(*panel.scanInforOKBtn, 0, background,
                       {.title = information.actionButtonTitle, .titleColor = Qt::white});
    panel.scanInforOKBtn->setAccessibleName(information.actionButtonTitle);
}

void InformationWindow::setInformationWindowWithInformationHeader(
    const QString& informationHeader, const QString& duplicatesCount, const QString& duplicatesSize,
    const QString& otherInfomration, const QString& informationImage,
    const QString& actionButtonTitle) {
    setInformationWindow({.informationHeader = informationHeader,
                          .duplicatesCount = duplicatesCount,
                          .duplicatesSize = duplicatesSize,
                          .otherInfomration = otherInfomration,
                          .informationImage = informationImage,
                          .actionButtonTitle = actionButtonTitle});
}

void InformationWindow::showInformationWindow() {
    window_.showOver(window_.informationWindow, windowOrigin);
}

void InformationWindow::showInPlaceOf(DialogPanel& panel) {
    const QSize size = window_.informationWindow->sizeHint();
    const int top = MainWindow::designSize.height() - windowOrigin.y() - size.height();
    window_.showInPlaceOf(&panel, window_.informationWindow, {{windowOrigin.x(), top}, size});
}

void InformationWindow::okInformationWindow() {
    window_.covers().removeFirst();
    window_.informationWindow->hide();
    Q_EMIT closed();
}

}  // namespace tarvin
