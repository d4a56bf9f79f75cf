#include "controller/results.h"

namespace tarvin {

namespace {

Category categoryOf(ResultView view) {
    switch (view) {
        case ResultView::image:
            return Category::image;
        case ResultView::video:
            return Category::video;
        case ResultView::audio:
            return Category::audio;
        case ResultView::documents:
            return Category::documents;
        case ResultView::all:
        case ResultView::other:
            break;
    }
    return Category::other;
}

ViewFlags flagsOf(ResultView view) {
    return {.allTab = view == ResultView::all,
            .imageTab = view == ResultView::image,
            .videoTab = view == ResultView::video,
            .audioTab = view == ResultView::audio,
            .docsTab = view == ResultView::documents,
            .othrTab = view == ResultView::other};
}

}  // namespace

void Results::begin() {
    modal = scan.result().modal;
    tabs = flagsOf(ResultView::all);
}

const std::shared_ptr<Modal>& Results::of(ResultView view) const {
    return scan.result().of(categoryOf(view));
}

void Results::change(ResultView view) {
    tabs = flagsOf(view);
    if (!modal) {
        return;
    }
    if (view != ResultView::all) {
        modal = of(view);
        return;
    }
    modal = joinCategories(scan.result().categories);
}

void Results::forget() {
    selected = QPersistentModelIndex();
    files.setSet(nullptr, 0);
    tree.setModal(nullptr);
    modal.reset();
}

void Results::reload() {
    selected = QPersistentModelIndex();
    files.setSet(nullptr, 0);
    tree.setModal(modal);
}

void Results::refresh() {
    tree.allMarksChanged();
    showFiles();
}

void Results::showFiles() {
    // The first set under an extension is 1.
    files.setSet(selectedSet(), ResultTree::setRow(selected) + 1);
}

}  // namespace tarvin
