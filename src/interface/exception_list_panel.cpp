#include "interface/exception_list_panel.h"

#include "controls/elided_label.h"
#include "controls/hover_button.h"
#include "controls/look.h"
#include "interface/frames.h"
#include "interface/list_table.h"
#include "interface/making.h"
#include "interface/placement.h"
#include "interface/search_field.h"

#include <QHeaderView>
#include <QKeyEvent>

namespace tarvin {

ExceptionListPanel::ExceptionListPanel(QWidget* parent)
    : DialogPanel(designGeometry.size(), "exceptionListHeader", parent),
      exceptionSearch(named(new SearchField, "exceptionSearch")),
      exceptionCount(
          named(makeLabel({}, look::font(13), look::muted, Qt::AlignRight), "exceptionCount")),
      exceptionTable(named(new ListTable({{ListTable::Text::name, 184}, {ListTable::Text::path, 0}},
                                         ListTable::heightOfLine),
                           "exceptionTable")),
      exceptionEmpty(named(makeLabel(tr("No exceptions"), look::font(15, QFont::DemiBold),
                                     look::ink, Qt::AlignHCenter),
                           "exceptionEmpty")),
      exceptionNone(named(new ElidedLabel, "exceptionNone")),
      exceptionRemove(makeQuietButton("exceptionRemove", tr("Remove"))),
      exceptionRemoveMissing(makeQuietButton("exceptionRemoveMissing", tr("Remove All Missing"))),
      exceptionClose(makeFilledButton("exceptionClose", tr("Close"), look::deepTeal)),
      emptyHint_(named(
          makeLabel(tr("Files that you add to the exceptions are skipped by every later scan."),
                    look::font(13), look::muted, Qt::AlignHCenter),
          "exceptionEmptyHint")) {
    setObjectName(QStringLiteral("exceptionListWindow"));
    header->setText(tr("Exceptions"));
    exceptionSearch->setPlaceholderText(tr("Search names and folders"));
    exceptionSearch->setAccessibleName(tr("Search exceptions"));
    exceptionTable->setAccessibleName(tr("Exceptions"));
    exceptionTable->setSelectionMode(QAbstractItemView::ExtendedSelection);
    exceptionTable->horizontalHeader()->setSectionsClickable(true);
    exceptionTable->installEventFilter(this);
    exceptionNone->setFont(look::font(13));
    exceptionNone->setTextColor(look::muted);
    exceptionNone->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    exceptionNone->setElideMode(Qt::ElideRight);
    setFootHeight(64);
    placeControls();
    exceptionRemove->setFocusAfterDisabling({exceptionTable, exceptionClose});
    exceptionRemoveMissing->setFocusAfterDisabling({exceptionTable, exceptionClose});
    connect(exceptionSearch, &QLineEdit::returnPressed, exceptionClose, &QAbstractButton::click);
    setEmpty(false);
    setNoneText({});
}

void ExceptionListPanel::placeControls() {
    auto* frame =
        named(new PaneFrame(exceptionTable, ListTable::heightOfHeader), "exceptionTableFrame");
    placement().place(exceptionSearch, {{24, 60, 300, 32}});
    placement().place(exceptionCount, {{336, 67, 320, 18}, stretching});
    placement().place(frame, {{24, 104, 632, 220}, stretching, stretching});
    placement().place(exceptionEmpty, {{24, 196, 632, 24}, stretching, inMiddle});
    placement().place(emptyHint_, {{24, 220, 632, 20}, stretching, inMiddle});
    placement().place(exceptionNone, {{36, 196, 608, 24}, stretching, inMiddle});
    placement().place(exceptionRemove, {{24, 357, 92, 32}, atStart, atEnd});
    placement().place(exceptionRemoveMissing, {{124, 357, 160, 32}, atStart, atEnd});
    placement().place(exceptionClose, {{552, 356, 104, 34}, atEnd, atEnd});
    placement().row({exceptionRemove, exceptionRemoveMissing});
    placement().row({exceptionClose});
    for (QWidget* above : {static_cast<QWidget*>(exceptionEmpty), static_cast<QWidget*>(emptyHint_),
                           static_cast<QWidget*>(exceptionNone)}) {
        above->raise();
    }
}

void ExceptionListPanel::setEmpty(bool empty) {
    exceptionEmpty->setVisible(empty);
    emptyHint_->setVisible(empty);
    exceptionSearch->setEnabled(!empty);
    keyboard().setAnswers(
        {exceptionSearch, exceptionTable, exceptionRemove, exceptionRemoveMissing, exceptionClose},
        empty ? static_cast<QWidget*>(exceptionClose) : exceptionSearch, exceptionClose);
}

void ExceptionListPanel::setNoneText(const QString& text) const {
    exceptionNone->setText(text);
    exceptionNone->setVisible(!text.isEmpty());
}

bool ExceptionListPanel::eventFilter(QObject* watched, QEvent* event) {
    if (watched != exceptionTable || event->type() != QEvent::KeyPress) {
        return DialogPanel::eventFilter(watched, event);
    }
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (key.matches(QKeySequence::Copy)) {
        Q_EMIT copyRequested();
        return true;
    }
    if (key.key() == Qt::Key_Delete && key.modifiers() == Qt::NoModifier) {
        exceptionRemove->click();
        return true;
    }
    // The list would search for the character.
    if (key.matches(QKeySequence::Find)) {
        exceptionSearch->setFocus(Qt::ShortcutFocusReason);
        return true;
    }
    return pressTitle(key);
}

/// Ctrl+1 and Ctrl+2 do what a click on the title of that column does. Returns whether it was one
/// of them.
bool ExceptionListPanel::pressTitle(const QKeyEvent& key) const {
    const int column = key.key() - Qt::Key_1;
    const bool isTitle = column >= 0 && column < exceptionTable->columns().size() &&
                         (key.modifiers() & ~Qt::KeypadModifier) == Qt::ControlModifier;
    if (isTitle) {
        Q_EMIT exceptionTable->horizontalHeader()->sectionClicked(column);
    }
    return isTitle;
}

void ExceptionListPanel::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Find) && exceptionSearch->isEnabled()) {
        exceptionSearch->setFocus(Qt::ShortcutFocusReason);
        exceptionSearch->selectAll();
    } else if (event->key() == Qt::Key_Escape && !exceptionSearch->text().isEmpty()) {
        exceptionSearch->clear();
    } else if (!pressTitle(*event)) {
        DialogPanel::keyPressEvent(event);
    }
}

}  // namespace tarvin
