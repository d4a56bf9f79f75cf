#include "controller/not_read_list.h"

#include "controller/information_window.h"
#include "controls/hover_button.h"
#include "controls/notice_strip.h"
#include "interface/list_panel.h"
#include "interface/list_table.h"
#include "interface/main_window.h"
#include "interface/result_panels.h"
#include "interface/result_screen.h"
#include "interface/window_covers.h"

#include <QClipboard>
#include <QGuiApplication>
#include <utility>

namespace tarvin {

NotReadList::NotReadList(MainWindow& window, InformationWindow& information)
    : window_(window), information_(information) {
    const ListPanel& panel = *window_.notReadWindow;
    panel.table->setModel(&files_);
    connect(window_.results->notReadNotice, &QAbstractButton::clicked, this, &NotReadList::show);
    connect(window_.informationWindow->notReadShow, &QAbstractButton::clicked, this,
            &NotReadList::showInPlaceOfSummary);
    connect(panel.copyButton, &QAbstractButton::clicked, this, &NotReadList::copy);
    connect(panel.closeButton, &QAbstractButton::clicked, this, &NotReadList::close);
}

NotReadList::~NotReadList() {
    window_.notReadWindow->table->setModel(nullptr);
}

void NotReadList::setFiles(const NotReadFiles& files) {
    files_.setFiles(files.reasons(), files.all());
    window_.results->setNotRead(files.notice());
}

void NotReadList::show() {
    hidesSummary_ = false;
    window_.notReadWindow->table->scrollToTop();
    window_.showOver(window_.notReadWindow, ListPanel::designGeometry, halfOfGain, halfOfGain);
}

void NotReadList::showInPlaceOfSummary() {
    hidesSummary_ = true;
    window_.notReadWindow->table->scrollToTop();
    window_.showInPlaceOf(window_.informationWindow, window_.notReadWindow,
                          ListPanel::designGeometry, halfOfGain, halfOfGain);
}

void NotReadList::close() {
    if (std::exchange(hidesSummary_, false)) {
        information_.showInPlaceOf(*window_.notReadWindow);
        window_.informationWindow->notReadShow->setFocus(Qt::PopupFocusReason);
        return;
    }
    window_.covers().removeFirst();
    window_.notReadWindow->hide();
    Q_EMIT closed();
}

void NotReadList::copy() const {
    QGuiApplication::clipboard()->setText(files_.text());
}

}  // namespace tarvin
