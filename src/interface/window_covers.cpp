#include "interface/window_covers.h"

#include "controls/view_transparent.h"
#include "interface/making.h"

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

/// Disables or enables the effect of the buttons and lists inside `area`, which a panel covers.
/// They look as before. The cover keeps mouse and keyboard away, but assistive technology still
/// presses and selects controls by name. Main thread only.
void setCovered(const QWidget* area, bool covered) {
    setSilent<QAbstractButton>(area, covered);
    setSilent<QComboBox>(area, covered);
    setSilent<QTreeView>(area, covered);
    setSilent<QTableView>(area, covered);
    setSelectable<QTreeView>(area, !covered);
    setSelectable<QTableView>(area, !covered);
}

}  // namespace

WindowCovers::WindowCovers(QWidget& window, const QVector<const QWidget*>& areas)
    : window_(window), areas_(areas), counter_(std::make_unique<ViewTransparent>()) {}

WindowCovers::~WindowCovers() = default;

void WindowCovers::add() {
    auto* cover = named(new ViewTransparent(&window_), "viewTransparent");
    for (ViewTransparent* below : covers_ + QVector<ViewTransparent*>{counter_.get()}) {
        QObject::connect(cover, &ViewTransparent::addedNote, below,
                         &ViewTransparent::viewTransparentAddedNote);
        QObject::connect(cover, &ViewTransparent::removedNote, below,
                         &ViewTransparent::viewTransparentRemovedNote);
    }
    covers_.push_back(cover);
    cover->setGeometry(window_.rect());
    cover->raise();
    cover->show();
    cover->postAddedNotification();
    update();
}

void WindowCovers::removeFirst() {
    if (!covers_.isEmpty()) {
        remove(covers_.front());
    }
}

void WindowCovers::removeAll() {
    while (!covers_.isEmpty()) {
        remove(covers_.back());
    }
}

void WindowCovers::resize() const {
    for (ViewTransparent* cover : covers_) {
        cover->setGeometry(window_.rect());
    }
}

void WindowCovers::remove(ViewTransparent* cover) {
    covers_.removeOne(cover);
    cover->postRemovedNotification();
    // No longer a child from now on, but deleted later: a mouse event may still be under way to it.
    cover->hide();
    cover->setParent(nullptr);
    cover->deleteLater();
    update();
}

void WindowCovers::update() const {
    for (const QWidget* area : areas_) {
        setCovered(area, !covers_.isEmpty());
    }
}

}  // namespace tarvin
