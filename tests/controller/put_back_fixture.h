#pragma once

#include "controller/deletion_fixture.h"
#include "interface/list_table.h"
#include "interface/put_back_panels.h"
#include "support/file_content.h"

#include <unistd.h>

#include <QLocale>
#include <QMenu>

namespace tarvin {

/// A result whose files are moved to a real Trash and put back.
class PutBackFixture : public DeletionFixture {
 protected:
    PutBackFixture() {
        qputenv("TZ", "UTC");
        QLocale::setDefault(QLocale::c());
        folder.makeFolder("data");
        platform.useTrashOf({folder.pathOf("data/Trash"), ::geteuid()},
                            [this](const std::string& name) {
                                if (name == heldName_) {
                                    barrier.wait();
                                }
                            });
    }

    /// Blocks the run before it puts back the file of this name.
    void holdPutBackOf(const std::string& name) { heldName_ = name; }

    /// Blocks the examination before it opens the folder of the files.
    void holdExamination() {
        files.beforeCall(
            FileCall::openDirectory, 1, [this] { barrier.wait(); }, folder.pathOf("found"));
    }

    /// Opens the panel by the menu. Returns true once it, or a notice instead, is visible.
    [[nodiscard]] bool opens() {
        click("buttonMore");
        if (!comesTrue([this] { return window().moreMenu->isVisible(); })) {
            return false;
        }
        choose(window().moreMenu, window().putBackItem);
        return comesTrue([this] {
            return (question().isVisible() && !textOf("putBackTotal").empty()) ||
                   window().informationWindow->isVisible();
        });
    }

    /// Deletes all duplicates and closes the report.
    void cleanUp() {
        click("markAll");
        ASSERT_NE(deleteMarked(), "no report");
        click("scanInforOKBtn");
    }

    [[nodiscard]] PutBackPanel& question() { return *window().putBackWindow; }
    [[nodiscard]] PutBackReport& report() { return *window().putBackReport; }

    /// The rows of the question: name, folder, status.
    [[nodiscard]] std::vector<Lines> rows() { return rowsOf(*question().putBackTable, true); }
    [[nodiscard]] std::vector<Lines> failures() { return rowsOf(*report().putBackFailures, false); }

    [[nodiscard]] static std::vector<Lines> rowsOf(const ListTable& table, bool twoLines) {
        std::vector<Lines> rows;
        const QAbstractItemModel& model = *table.model();
        for (int row = 0; row < model.rowCount(); ++row) {
            Lines texts;
            for (int column = 0; column < model.columnCount(); ++column) {
                const QModelIndex index = model.index(row, column);
                texts.push_back(index.data().toString().toStdString());
                if (twoLines && column == 0) {
                    texts.push_back(index.data(ListTable::secondLineRole).toString().toStdString());
                }
            }
            rows.push_back(texts);
        }
        return rows;
    }

 private:
    std::string heldName_;
};

}  // namespace tarvin
