#include "controller/result_fixture.h"

#include <QSignalSpy>
#include <array>
#include <string>
#include <vector>

namespace tarvin {
namespace {

/// The signals of the outline's context menu, as "operation" or "operation true".
class OutlineMenuTest : public ThreeSetsFixture {
 protected:
    void SetUp() override {
        ThreeSetsFixture::SetUp();
        const OutlineMenu& menu = delegate->views().outlineMenu();
        connectFlag(menu, &OutlineMenu::markUnmarkSelectedOutlineImage,
                    "markUnmarkSelectedOutlineImage");
        connectFlag(menu, &OutlineMenu::openSelectedImageOfOutlineView,
                    "openSelectedImageOfOutlineView");
        connectFlag(menu, &OutlineMenu::moveSelectedItemToTrash, "moveSelectedItemToTrash");
        connectPlain(menu, &OutlineMenu::markAllSelectedSet, "markAllSelectedSet");
        connectPlain(menu, &OutlineMenu::unMarkAllSelectedSet, "unMarkAllSelectedSet");
        connectPlain(menu, &OutlineMenu::getInfo, "getInfo");
    }

    /// Opens the menu on a set and selects the item with this tag.
    void chooseTag(int tag) {
        QMenu* menu = window().results->outlineMenu;
        const QModelIndex name = tree().indexOfSet(0, 1).siblingAtColumn(ResultTreeView::name);
        openMenu(outline().viewport(), outline().visualRect(name).center(), menu);
        for (QAction* item : menu->actions()) {
            if (item->data() == tag) {
                choose(menu, item);
                return;
            }
        }
        ADD_FAILURE() << "no item has the tag " << tag;
    }

    Lines asked_;

 private:
    void connectFlag(const OutlineMenu& menu, void (OutlineMenu::*operation)(bool),
                     const char* name) {
        QObject::connect(&menu, operation, &window(), [this, name](bool flag) {
            asked_.push_back(std::string(name) + (flag ? " true" : " false"));
        });
    }
    void connectPlain(const OutlineMenu& menu, void (OutlineMenu::*operation)(), const char* name) {
        QObject::connect(&menu, operation, &window(), [this, name] { asked_.emplace_back(name); });
    }
};

TEST_F(OutlineMenuTest, EachTagAsksForItsOwnOperation) {
    const std::array expected{
        "markUnmarkSelectedOutlineImage true",
        "openSelectedImageOfOutlineView false",
        "openSelectedImageOfOutlineView true",
        "moveSelectedItemToTrash true",
        "moveSelectedItemToTrash false",
        "markAllSelectedSet",
        "unMarkAllSelectedSet",
        "getInfo",
    };
    for (int tag = 0; tag < static_cast<int>(expected.size()); ++tag) {
        asked_.clear();
        chooseTag(tag);
        EXPECT_EQ(asked_, Lines{expected[static_cast<std::size_t>(tag)]}) << tag;
    }
}

TEST_F(OutlineMenuTest, AnItemThatSaysUnmarkAsksForThat) {
    delegate->views().outlineMenu().righClickMenuItemClicked(0, QStringLiteral("Unmark"));
    delegate->views().outlineMenu().righClickMenuItemClicked(0, QStringLiteral("Mark"));
    EXPECT_EQ(asked_, (Lines{"markUnmarkSelectedOutlineImage false",
                             "markUnmarkSelectedOutlineImage true"}));
}

TEST_F(OutlineMenuTest, AnUnknownTagAsksForNothing) {
    for (const int tag : {-1, 8, 99}) {
        delegate->views().outlineMenu().righClickMenuItemClicked(tag, QStringLiteral("Mark"));
    }
    EXPECT_EQ(asked_, Lines());
}

}  // namespace
}  // namespace tarvin
