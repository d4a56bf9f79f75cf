#include "controller/kept_list.h"

#include "controls/hover_button.h"
#include "interface/list_panel.h"
#include "interface/list_table.h"
#include "interface/main_window.h"
#include "interface/result_panels.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>

namespace tarvin {

KeptList::KeptList(MainWindow& window, InformationWindow& information)
    : window_(window),
      information_(information),
      usualTitle_(window.keptWindow->header->text()),
      usualSentence_(window.keptWindow->sentence->text()),
      usualListName_(window.keptWindow->table->accessibleName()),
      usualShowName_(window.informationWindow->keptShow->accessibleName()) {
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
    files_.setFiles(files.reasons(), files.all());
    setWords(files);
}

/// The usual words do not fit files in the Trash: they are not where they were.
void KeptList::setWords(const KeptFiles& files) {
    const ListPanel& panel = *window_.keptWindow;
    const bool isUsual = files.notBack() == 0;
    panel.table->setAccessibleName(isUsual ? usualListName_ : tr("Files to check"));
    window_.informationWindow->keptShow->setAccessibleName(isUsual ? usualShowName_
                                                                   : tr("Show the files to check"));
    if (isUsual) {
        panel.header->setText(usualTitle_);
        panel.sentence->setText(usualSentence_);
    } else if (files.left() == 0) {
        panel.header->setText(tr("Could Not Be Moved Back"));
        panel.sentence->setText(
            tr("These files are in the Trash. No other copy of them may be left outside it."));
    } else {
        panel.header->setText(tr("Files to Check"));
        panel.sentence->setText(
            tr("Files in the Trash may be last copies. The others were not moved and are still "
               "marked."));
    }
}

void KeptList::show() {
    window_.keptWindow->table->scrollToTop();
    window_.showInPlaceOf(window_.informationWindow, window_.keptWindow, ListPanel::designGeometry,
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
