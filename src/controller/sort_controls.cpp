#include "controller/sort_controls.h"

#include "controller/result_texts.h"
#include "controller/sort_files.h"
#include "controls/pop_up_button.h"
#include "controls/toggle_button.h"
#include "interface/result_screen.h"

#include <QAbstractButton>
#include <QAction>
#include <QMenu>
#include <optional>

namespace tarvin {

SortControls::SortControls(const ResultScreen& screen) : screen_(screen) {
    connect(screen.sortPopupBtn, &PopUpButton::activated, this, &SortControls::popupButtonClicked);
    for (ToggleButton* toggle : {screen.sortBtn, screen.asscendingBtn}) {
        connect(toggle, &QAbstractButton::clicked, this,
                [this, toggle] { asscendingDescendingClicked(*toggle); });
    }
    for (QAction* item : screen.sortByMenu->actions()) {
        connect(item, &QAction::triggered, this,
                [this, item] { sortByMenuClicked(item->data().toInt()); });
    }
    for (QAction* item : screen.sortingOrderMenu->actions()) {
        connect(item, &QAction::triggered, this,
                [this, item] { sortingOrderMenuClicked(item->data().toInt()); });
    }
    screen.sortPopupBtn->selectItemWithTag(1);
    screen.sortPopupBtn->setToolTip(ResultTexts::sortBySize());
    screen.asscendingBtn->setToolTip(ResultTexts::sortingOrder(true));
}

void SortControls::asscendingDescendingClicked(QAbstractButton& sender) {
    sender.setToolTip(ResultTexts::sortingOrder(sender.isChecked()));
    Q_EMIT chosen();
}

void SortControls::sortByMenuClicked(int tag) {
    if (const std::optional<SortCriterion> criterion = sortCriterionOf(tag)) {
        PopUpButton& popup = *screen_.sortPopupBtn;
        sorting_ = criterion->sorting;
        if (popup.toolTip() == criterion->toolTip) {
            return;
        }
        popup.setToolTip(criterion->toolTip);
        popup.selectItemWithTag(criterion->popupTag);
    }
    Q_EMIT chosenInMenu();
}

void SortControls::sortingOrderMenuClicked(int tag) {
    if (tag == 0 || tag == 1) {
        QAbstractButton& toggle = *screen_.asscendingBtn;
        const bool ascends = tag == 0;
        if (toggle.isChecked() == ascends) {
            return;
        }
        toggle.setChecked(ascends);
        // "Ascending" for both directions.
        toggle.setToolTip(ResultTexts::sortingOrder(true));
    }
    Q_EMIT chosenInMenu();
}

bool SortControls::beginNumbering() {
    sorting_ = effectiveSorting;
    ascending_ = screen_.sortBtn->isChecked();
    return ascending_;
}

}  // namespace tarvin
