// A program with a window as the source of drags into the window under test.
//
// Usage: drop_source TYPE FILE
// The dragged data is the content of FILE, with the MIME type TYPE. Prints "over" to standard
// output when the program under the pointer accepts the drop, and "finished" when it has finished
// the drop; until then it may request the data.

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
    // A widget that ignores the press receives no mouse movements.
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
    // Does not cover the target window.
    source.setGeometry(40, 880, 200, 60);
    source.show();
    return QApplication::exec();
}
