#pragma once

#include "controls/custom_table_cell_view.h"
#include "controls/images.h"
#include "interface/location_screen.h"
#include "interface/location_table.h"
#include "interface/main_window.h"
#include "interface/print_rect.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QStandardItemModel>
#include <QTest>

namespace tarvin {

/// A main window that is shown and active, for tests of what a person sees and does.
class ShownWindow : public testing::Test {
 protected:
    ShownWindow() {
        // Nothing is to be under the pointer by chance.
        QCursor::setPos(-100, -100);
        // Tests click sooner after a change of screens than a person does.
        QApplication::setDoubleClickInterval(0);
        window.show();
        // Whatever a slow machine takes, up to a limit; a window that never comes fails the test.
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window, 20000));
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window, 20000));
    }

    ~ShownWindow() override { QApplication::setDoubleClickInterval(usualInterval_); }

    /// The control with this object name; fails the test and gives none if there is none.
    template <class Control = QWidget>
    Control* control(const char* name) {
        auto* found = window.findChild<Control*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name << " is missing or of another class";
        return found;
    }

    /// Where a control stands in the content of the window.
    [[nodiscard]] QRect placeOf(const QWidget* widget) const {
        return {widget->mapTo(&window, QPoint(0, 0)), widget->size()};
    }

    /// Gives the window another size and waits until it has it.
    void resizeTo(const QSize& size) {
        window.resize(size);
        ASSERT_TRUE(QTest::qWaitFor([&] { return window.size() == size; }, 20000));
        QCoreApplication::sendPostedEvents();
    }

    /// A key that is held down: pressed, repeated by the keyboard twice, and let go.
    static void hold(QWidget& control, int key) {
        for (const bool repeated : {false, true, true}) {
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString(), repeated);
            QCoreApplication::sendEvent(&control, &press);
        }
        QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&control, &release);
    }

    MainWindow window;

 private:
    const int usualInterval_ = QApplication::doubleClickInterval();
};

/// Locations as their table shows them.
class SomeLocations final : public QStandardItemModel {
 public:
    SomeLocations() {
        setHorizontalHeaderLabels(
            {QStringLiteral("Select Folders (Double click to go deeper)"), QStringLiteral("Scan")});
    }

    void add(const QString& path, const QString& pictureName, bool checked,
             const QString& sizeText = {}) {
        auto* cell = new QStandardItem(pictureIcon(pictureName), path);
        cell->setData(path.section(QLatin1Char('/'), -1),
                      CustomTableCellView::additionalTextCountRole);
        cell->setData(sizeText, CustomTableCellView::additionalTextRole);
        auto* box = new QStandardItem;
        box->setCheckable(true);
        box->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
        appendRow({cell, box});
    }

    [[nodiscard]] bool isChecked(int row) const {
        return item(row, LocationTable::buttonCell)->checkState() == Qt::Checked;
    }
};

}  // namespace tarvin
