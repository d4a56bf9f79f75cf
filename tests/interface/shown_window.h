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

/// A visible, active main window, for tests of user interaction.
class ShownWindow : public testing::Test {
 protected:
    ShownWindow() {
        // No widget may be hovered accidentally.
        QCursor::setPos(-100, -100);
        // Tests click sooner after a change of screens than users.
        QApplication::setDoubleClickInterval(0);
        window.show();
        // Long, for slow machines.
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window, 20000));
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window, 20000));
    }

    ~ShownWindow() override { QApplication::setDoubleClickInterval(usualInterval_); }

    /// Returns the control with this object name, or fails the test and returns nullptr.
    template <class Control = QWidget>
    Control* control(const char* name) {
        auto* found = window.findChild<Control*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name << " is missing or of another class";
        return found;
    }

    /// The geometry of a control in the content of the window.
    [[nodiscard]] QRect geometryOf(const QWidget* widget) const {
        return {widget->mapTo(&window, QPoint(0, 0)), widget->size()};
    }

    /// Resizes the window and waits for it.
    void resizeTo(const QSize& size) {
        window.resize(size);
        ASSERT_TRUE(QTest::qWaitFor([&] { return window.size() == size; }, 20000));
        QCoreApplication::sendPostedEvents();
    }

    /// Holds a key down: a press, two repetitions by the keyboard, and a release.
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

/// A model of the location list.
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
