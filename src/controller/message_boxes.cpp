#include "controller/message_boxes.h"

#include "controls/images.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <QPushButton>
#include <utility>

namespace tarvin {

namespace {

constexpr int iconSize = 64;

}  // namespace

Alerts::Number MessageBoxes::show(const Alert& alert, std::function<void(int button)> answered) {
    auto* box = new QMessageBox(window_);
    const Number thisAlert = ++last_;
    open_.emplace(thisAlert, box);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setIconPixmap(picture(QStringLiteral("app_icon"), {iconSize, iconSize},
                               window_ ? window_->devicePixelRatioF() : 1.0));
    box->setTextFormat(Qt::PlainText);
    box->setText(alert.messageText);
    box->setInformativeText(alert.informativeText);
    QList<QAbstractButton*> buttons;  // QMessageBox::buttons() has another order
    for (int number = 0; number < alert.buttons.size(); ++number) {
        QPushButton* button = box->addButton(alert.buttons[number], number == alert.escapeButton
                                                                        ? QMessageBox::RejectRole
                                                                        : QMessageBox::AcceptRole);
        buttons << button;
        if (number == alert.escapeButton) {
            box->setEscapeButton(button);
            box->setDefaultButton(button);
        }
    }
    // Closing by the window frame counts as an answer too; withdrawing does not.
    QObject::connect(box, &QDialog::finished, &context_,
                     [this, thisAlert, box, buttons, answered = std::move(answered),
                      escape = alert.escapeButton] {
                         const auto pressed = buttons.indexOf(box->clickedButton());
                         if (open_.erase(thisAlert) > 0 && answered) {
                             answered(pressed < 0 ? escape : static_cast<int>(pressed));
                         }
                     });
    box->open();
    return thisAlert;
}

void MessageBoxes::withdraw(Number alert) {
    const auto found = open_.find(alert);
    if (found == open_.end()) {
        return;
    }
    const QPointer<QMessageBox> box = found->second;
    open_.erase(found);
    if (box) {
        box->reject();
    }
}

}  // namespace tarvin
