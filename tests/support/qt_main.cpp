#include <gtest/gtest.h>

#include <QApplication>

/// Tests of widgets need a QApplication. Without QT_QPA_PLATFORM they paint into memory.
int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
