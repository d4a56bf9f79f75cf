// A program with a window from which the tests drag something into another program's window.
//
// Usage: drop_source TYPE FILE
// What can be dragged is the content of FILE, as data of the MIME type TYPE. Each thing that
// happens is told by a line on standard output: "over" when a program under the pointer would take
// the drop, "finished" when that program is done with it, until which it may still ask for the
// data.

#include <QApplication>
#include <QDrag>
#include <QFile>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <cstdio>

namespace {

void tell(const char* line) {
    std::puts(line);
    std::fflush(stdout);
}

class DropSource final : public QLabel {
 public:
    DropSource(const QString& type, const QByteArray& content)
        : QLabel(QStringLiteral("Drag me")), type_(type), content_(content) {
        setAlignment(Qt::AlignCenter);
        setWindowTitle(QStringLiteral("Drop source"));
    }

 protected:
    // Otherwise the movements are not ours.
    void mousePressEvent(QMouseEvent* event) override { event->accept(); }

    void mouseMoveEvent(QMouseEvent* event) override {
        if ((event->buttons() & Qt::LeftButton) == 0 || drags_) {
            return;
        }
        drags_ = true;
        auto* dragged = new QMimeData;
        dragged->setData(type_, content_);
        auto* drag = new QDrag(this);
        drag->setMimeData(dragged);
        QObject::connect(drag, &QDrag::actionChanged, this, [](Qt::DropAction action) {
            if (action != Qt::IgnoreAction) {
                tell("over");
            }
        });
        QObject::connect(drag, &QObject::destroyed, this, [] { tell("finished"); });
        drag->exec(Qt::CopyAction | Qt::MoveAction | Qt::LinkAction, Qt::CopyAction);
    }

 private:
    const QString type_;
    const QByteArray content_;
    bool drags_ = false;
};

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    QFile file(arguments.value(2));
    if (!file.open(QIODevice::ReadOnly)) {
        return 2;
    }
    DropSource source(arguments.value(1), file.readAll());
    // Out of the way of the window that things are dropped on.
    source.setGeometry(40, 880, 200, 60);
    source.show();
    return QApplication::exec();
}
