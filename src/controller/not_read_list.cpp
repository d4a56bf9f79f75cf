#include "controller/not_read_list.h"

#include "controls/hover_button.h"
#include "controls/notice_strip.h"
#include "interface/list_panel.h"
#include "interface/list_table.h"
#include "interface/main_window.h"
#include "interface/result_screen.h"
#include "interface/window_covers.h"

#include <QClipboard>
#include <QGuiApplication>

namespace tarvin {

NotReadList::NotReadList(MainWindow& window) : window_(window) {
    const ListPanel& panel = *window_.notReadWindow;
    panel.table->setModel(&files_);
    connect(window_.results->notReadNotice, &QAbstractButton::clicked, this, &NotReadList::show);
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

void NotReadList::show() const {
    window_.notReadWindow->table->scrollToTop();
    window_.showOver(window_.notReadWindow, ListPanel::designGeometry, halfOfGain, halfOfGain);
}

void NotReadList::close() const {
    window_.covers().removeFirst();
    window_.notReadWindow->hide();
}

void NotReadList::copy() const {
    QGuiApplication::clipboard()->setText(files_.text());
}

}  // namespace tarvin
