#include "controller/outline_menu.h"

#include "controller/location_texts.h"
#include "interface/result_screen.h"

#include <QAction>
#include <QMenu>

namespace tarvin {

OutlineMenu::OutlineMenu(const ResultScreen& screen) {
    for (QAction* item : screen.outlineMenu->actions()) {
        connect(item, &QAction::triggered, this,
                [this, item] { righClickMenuItemClicked(item->data().toInt(), item->text()); });
    }
}

void OutlineMenu::righClickMenuItemClicked(int tag, const QString& title) {
    switch (tag) {
        case 0:
            Q_EMIT markUnmarkSelectedOutlineImage(title == LocationTexts::markMenu(false));
            break;
        case 1:
        case 2:
            Q_EMIT openSelectedImageOfOutlineView(tag == 2);
            break;
        case 3:
        case 4:
            Q_EMIT moveSelectedItemToTrash(tag == 3);
            break;
        case 5:
            Q_EMIT markAllSelectedSet();
            break;
        case 6:
            Q_EMIT unMarkAllSelectedSet();
            break;
        case 7:
            Q_EMIT getInfo();
            break;
        default:
            break;
    }
}

}  // namespace tarvin
