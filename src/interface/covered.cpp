#include "interface/covered.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QTableView>
#include <QTreeView>

namespace tarvin {

namespace {

template <class Control>
void setSilent(const QWidget* area, bool silent) {
    for (Control* control : area->findChildren<Control*>()) {
        control->blockSignals(silent);
    }
}

/// The program itself can still select.
template <class List>
void setSelectable(const QWidget* area, bool selectable) {
    for (List* list : area->findChildren<List*>()) {
        list->setSelectionMode(selectable ? List::SingleSelection : List::NoSelection);
    }
}

}  // namespace

void setCovered(const QWidget* area, bool covered) {
    setSilent<QAbstractButton>(area, covered);
    setSilent<QComboBox>(area, covered);
    setSilent<QTreeView>(area, covered);
    setSilent<QTableView>(area, covered);
    setSelectable<QTreeView>(area, !covered);
    setSelectable<QTableView>(area, !covered);
}

}  // namespace tarvin
