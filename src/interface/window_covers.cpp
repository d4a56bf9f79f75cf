#include "interface/window_covers.h"

#include "controls/view_transparent.h"
#include "interface/covered.h"
#include "interface/making.h"

namespace tarvin {

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
