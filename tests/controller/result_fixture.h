#pragma once

#include "controller/product_fixture.h"
#include "controls/button_hover_simple.h"
#include "controls/elided_label.h"
#include "controls/hover_button.h"
#include "controls/view_transparent.h"
#include "interface/result_panels.h"
#include "interface/result_screen.h"
#include "interface/result_table.h"
#include "interface/result_tree_view.h"
#include "interface/text_block.h"

#include <QLabel>
#include <filesystem>

namespace tarvin {

/// The product at the end of a scan, with the result on the screen.
class ResultFixture : public ProductFixture {
 protected:
    using Lines = std::vector<std::string>;

    ResultFixture() {
        files.setListingOrder(ListingOrder::sorted);
        platform.trash().moveTo(folder.makeFolder("trash"));
    }

    /// Writes a file below the scanned folder; returns its absolute path.
    std::string write(const std::string& name, const std::string& content) {
        return folder.writeFile("found/" + name, content);
    }

    /// Scans the written files.
    void scan() {
        launch({folder.makeFolder("found")});
        click("findDuplicateExact");
        ASSERT_TRUE(comesTo("4"));
    }

    void scanAndReview() {
        scan();
        click("scanInforOKBtn");
    }

    /// Two sets of images, one of texts; the second image set has three files.
    void writeThreeSets() {
        write("a1.jpg", "one");
        write("a2.jpg", "one");
        write("b1.jpg", "three");
        write("b2.jpg", "three");
        write("b3.jpg", "three");
        write("c1.txt", "text text");
        write("c2.txt", "text text");
    }

    [[nodiscard]] const ResultTree& tree() { return delegate->results().tree(); }
    [[nodiscard]] const FileList& list() { return delegate->results().files(); }
    [[nodiscard]] ResultTreeView& outline() { return *window().results->OView2; }
    [[nodiscard]] ResultTable& table() { return *window().results->resultTable; }
    [[nodiscard]] const Modal& modal() { return delegate->results().list(); }
    [[nodiscard]] Set& setOf(int extension, int set) {
        return *modal()
                    .extensions()[static_cast<std::size_t>(extension)]
                    ->sets()[static_cast<std::size_t>(set)];
    }

    void clickRow(const QModelIndex& row) {
        const QRect area = outline().visualRect(row.siblingAtColumn(ResultTreeView::name));
        QTest::mouseClick(outline().viewport(), Qt::LeftButton, {},
                          QPoint(area.left() + 30, area.center().y()));
    }

    void select(int extension, int set) { clickRow(tree().indexOfSet(extension, set)); }

    /// A real click on the check box of a row of the outline.
    void clickBox(const QModelIndex& row) {
        const QModelIndex box = row.siblingAtColumn(ResultTreeView::check);
        outline().scrollTo(box);
        QTest::mouseClick(outline().viewport(), Qt::LeftButton, {},
                          outline().visualRect(box).center());
    }

    /// A real click on the check box of a row of the file table.
    void clickFileBox(int row) {
        const QModelIndex cell = list().index(row, ResultTable::ButtonCell);
        QTest::mouseClick(table().viewport(), Qt::LeftButton, {},
                          table().visualRect(cell).center());
    }

    [[nodiscard]] std::string textOf(const char* name) {
        const QWidget* found = control(name);
        if (const auto* label = qobject_cast<const QLabel*>(found)) {
            return label->text().toStdString();
        }
        if (const auto* block = qobject_cast<const TextBlock*>(found)) {
            return block->text().toStdString();
        }
        if (const auto* elided = qobject_cast<const ElidedLabel*>(found)) {
            return elided->text().toStdString();
        }
        ADD_FAILURE() << name << " has no text";
        return {};
    }

    /// The lines of the information window; empty if it is hidden.
    [[nodiscard]] std::vector<std::string> information() {
        if (!window().informationWindow->isVisible()) {
            return {};
        }
        return {textOf("informationHeader"), textOf("scanInfoCount"), textOf("scanInfoSize"),
                textOf("scanOtherInfo")};
    }

    [[nodiscard]] std::string fileText(int row, int column) {
        return list().index(row, column).data().toString().toStdString();
    }

    /// The names in the rows of the file list, in order.
    [[nodiscard]] Lines names() {
        Lines names;
        for (int row = 0; row < list().rowCount(); ++row) {
            names.push_back(fileText(row, ResultTable::nameText));
        }
        return names;
    }

    /// Whether the files are covered while something loads.
    [[nodiscard]] bool isCovered() { return window().loadingView->isVisible(); }

    [[nodiscard]] bool isEnabled(const char* name) { return control(name)->isEnabled(); }

    /// The lower left corner of a panel, relative to that of the content.
    [[nodiscard]] QPoint positionOf(const QWidget* panel) {
        EXPECT_EQ(window().size(), MainWindow::designSize);
        const QPoint corner = panel->mapTo(&window(), QPoint(0, panel->height()));
        return {corner.x(), window().height() - corner.y()};
    }

    /// The number of covers over the window.
    [[nodiscard]] int covers() {
        return static_cast<int>(
            window().findChildren<ViewTransparent*>(QString(), Qt::FindDirectChildrenOnly).size());
    }

    /// Scans the same folder again, starting from the result screen.
    void scanAgain() {
        click("buttonHomePage");
        ASSERT_EQ(screen(), QStringLiteral("1"));
        delegate->locations().openWith({folder.pathOf("found")});
        click("findDuplicateExact");
        ASSERT_TRUE(comesTo("4"));
    }

    [[nodiscard]] bool isThere(const std::string& name) {
        return std::filesystem::exists(std::filesystem::symlink_status(found(name)));
    }
    [[nodiscard]] std::string found(const std::string& name) {
        return folder.pathOf("found/" + name);
    }

    /// The totals in the stored file.
    [[nodiscard]] DataFile storedTotals() {
        DataFile file(folder.pathOf("support"));
        EXPECT_FALSE(file.loadDataFile().has_value());
        return file;
    }
    /// The stored exceptions list, once the changes made so far were written.
    [[nodiscard]] Lines storedExceptions() {
        if (delegate) {
            delegate->session().exceptionChanges.wait();
        }
        ExceptionFile file(folder.pathOf("support"));
        EXPECT_FALSE(file.load().has_value());
        return file.exceptionArrayData();
    }
};

/// Two sets of images and one of texts, with the summary closed.
class ThreeSetsFixture : public ResultFixture {
 protected:
    void SetUp() override {
        writeThreeSets();
        scanAndReview();
    }
};

}  // namespace tarvin
