#include "controller/information_window.h"

#include "controls/button_style.h"
#include "controls/hover_button.h"
#include "interface/information_panel.h"
#include "interface/main_window.h"
#include "interface/picture_view.h"
#include "interface/text_block.h"

#include <QLabel>

namespace tarvin {

namespace {

constexpr QPoint windowPlace{250, 200};
constexpr QColor background{21, 138, 162};

}  // namespace

InformationWindow::InformationWindow(MainWindow& window) : window_(window) {
    connect(window_.informationWindow->scanInforOKBtn, &QAbstractButton::clicked, this,
            &InformationWindow::okInformationWindow);
}

void InformationWindow::setInformationWindow(const Information& information) {
    setInformationWindowWithInformationHeader(
        information.informationHeader, information.duplicatesCount, information.duplicatesSize,
        information.otherInfomration, information.informationImage, information.actionButtonTitle);
}

void InformationWindow::setInformationWindowWithInformationHeader(
    const QString& informationHeader, const QString& duplicatesCount, const QString& duplicatesSize,
    const QString& otherInfomration, const QString& informationImage,
    const QString& actionButtonTitle) {
    const InformationPanel& panel = *window_.informationWindow;
    panel.informationHeader->setText(informationHeader);
    panel.scanInfoCount->setText(duplicatesCount);
    panel.scanInfoSize->setText(duplicatesSize);
    panel.scanOtherInfo->setText(otherInfomration);
    panel.scanInfoImage->setPictureName(informationImage);
    setButtonAtrribute(*panel.scanInforOKBtn, 0, background,
                       {.title = actionButtonTitle, .titleColor = Qt::white});
    panel.scanInforOKBtn->setAccessibleName(actionButtonTitle);
    showInformationWindow();
}

void InformationWindow::showInformationWindow() {
    window_.showOver(window_.informationWindow, windowPlace);
}

void InformationWindow::okInformationWindow() {
    window_.removeFirstCover();
    window_.informationWindow->hide();
    Q_EMIT closed();
}

}  // namespace tarvin
