#include "controller/kept_list.h"

#include "controls/hover_button.h"
#include "interface/information_panel.h"
#include "interface/list_panel.h"
#include "interface/list_table.h"
#include "interface/main_window.h"

#include <QClipboard>
#include <QGuiApplication>

namespace tarvin {

KeptList::KeptList(MainWindow& window, InformationWindow& information)
    : window_(window), information_(information) {
    const ListPanel& panel = *window_.keptWindow;
    panel.table->setModel(&files_);
    connect(window_.informationWindow->keptShow, &QAbstractButton::clicked, this, &KeptList::show);
    connect(panel.copyButton, &QAbstractButton::clicked, this, &KeptList::copy);
    connect(panel.closeButton, &QAbstractButton::clicked, this, &KeptList::close);
}

KeptList::~KeptList() {
    window_.keptWindow->table->setModel(nullptr);
}

void KeptList::setFiles(const KeptFiles& files) {
    files_.setFiles(files.reasons(), files.count());
}

void KeptList::show() {
    window_.keptWindow->table->scrollToTop();
    window_.showInPlaceOf(window_.informationWindow, window_.keptWindow, ListPanel::designPlace,
                          halfOfGain, halfOfGain);
}

void KeptList::close() {
    information_.showInPlaceOf(*window_.keptWindow);
    window_.informationWindow->keptShow->setFocus(Qt::PopupFocusReason);
}

void KeptList::copy() const {
    QGuiApplication::clipboard()->setText(files_.text());
}

}  // namespace tarvin
