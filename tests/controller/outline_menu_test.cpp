#include "controller/result_bench.h"

#include <QSignalSpy>
#include <array>
#include <string>
#include <vector>

namespace tarvin {
namespace {

/// What the context menu of the outline asks for, as "operation" or "operation true".
class OutlineMenu : public ThreeSetsBench {
 protected:
    void SetUp() override {
        ThreeSetsBench::SetUp();
        const ResultViews& views = delegate->views();
        connectFlag(views, &ResultViews::markUnmarkSelectedOutlineImage,
                    "markUnmarkSelectedOutlineImage");
        connectFlag(views, &ResultViews::openSelectedImageOfOutlineView,
                    "openSelectedImageOfOutlineView");
        connectFlag(views, &ResultViews::moveSelectedItemToTrash, "moveSelectedItemToTrash");
        connectPlain(views, &ResultViews::markAllSelectedSet, "markAllSelectedSet");
        connectPlain(views, &ResultViews::unMarkAllSelectedSet, "unMarkAllSelectedSet");
        connectPlain(views, &ResultViews::getInfo, "getInfo");
    }

    /// Opens the menu on a set and chooses the item with this tag.
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
    void connectFlag(const ResultViews& views, void (ResultViews::*operation)(bool),
                     const char* name) {
        QObject::connect(&views, operation, &window(), [this, name](bool flag) {
            asked_.push_back(std::string(name) + (flag ? " true" : " false"));
        });
    }
    void connectPlain(const ResultViews& views, void (ResultViews::*operation)(),
                      const char* name) {
        QObject::connect(&views, operation, &window(), [this, name] { asked_.emplace_back(name); });
    }
};

TEST_F(OutlineMenu, EachTagAsksForItsOwnOperation) {
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

TEST_F(OutlineMenu, AnItemThatSaysUnmarkAsksForThat) {
    delegate->views().righClickMenuItemClicked(0, QStringLiteral("Unmark"));
    delegate->views().righClickMenuItemClicked(0, QStringLiteral("Mark"));
    EXPECT_EQ(asked_, (Lines{"markUnmarkSelectedOutlineImage false",
                             "markUnmarkSelectedOutlineImage true"}));
}

TEST_F(OutlineMenu, AnUnknownTagAsksForNothing) {
    for (const int tag : {-1, 8, 99}) {
        delegate->views().righClickMenuItemClicked(tag, QStringLiteral("Mark"));
    }
    EXPECT_EQ(asked_, Lines());
}

}  // namespace
}  // namespace tarvin
