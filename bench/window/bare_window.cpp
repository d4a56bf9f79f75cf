// The least that a program with a window of Qt can be: what the product's start is held against.

#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QWidget window;
    window.resize(1016, 531);
    window.show();
    return QApplication::exec();
}
