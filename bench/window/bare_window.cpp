// An empty Qt window of the product's size: the reference for the product's start.

#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QWidget window;
    window.resize(1016, 531);
    window.show();
    return QApplication::exec();
}
