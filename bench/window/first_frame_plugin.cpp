// A generic Qt plug-in, loaded by QT_QPA_GENERIC_PLUGINS=firstframe: reports when the first frame
// has been painted, then quits the program. The program itself needs no code for the measurement.

#include "figures.h"
#include "first_frame.h"

#include <unistd.h>

#include <QCoreApplication>
#include <QEvent>
#include <QGenericPlugin>
#include <QWindow>
#include <ctime>
#include <utility>

namespace tarvin::bench {

class FirstFrameWatch final : public QObject {
    Q_OBJECT

 public:
    FirstFrameWatch() : widget_(qEnvironmentVariable(firstFrameWidget)) {
        QCoreApplication::instance()->installEventFilter(this);
    }

    /// A window paints while it handles an expose or update event. The report is posted during that
    /// and delivered, by its priority, before any other event after it.
    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool isFrame =
            widget_.isEmpty() ? event->type() == QEvent::Expose && isExposed(watched)
                              : event->type() == QEvent::Paint && watched->objectName() == widget_;
        if (isFrame && !std::exchange(posted_, true)) {
            QCoreApplication::postEvent(this, new QEvent(QEvent::User), Qt::HighEventPriority);
        }
        return QObject::eventFilter(watched, event);
    }

    bool event(QEvent* event) override {
        if (event->type() != QEvent::User) {
            return QObject::event(event);
        }
        report();
        QCoreApplication::quit();
        return true;
    }

 private:
    static bool isExposed(const QObject* object) {
        const auto* const window = qobject_cast<const QWindow*>(object);
        return window != nullptr && window->isExposed();
    }

    static void report() {
        timespec used{};
        ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &used);
        const FirstFrame frame{
            std::chrono::nanoseconds(SteadyClock::now().time_since_epoch()).count(),
            std::int64_t{used.tv_sec} * 1'000'000'000 + used.tv_nsec};
        const int pipe = qEnvironmentVariableIntValue(firstFramePipe);
        if (::write(pipe, &frame, sizeof frame) != sizeof frame) {
            qFatal("cannot report the first frame");
        }
    }

    const QString widget_;
    bool posted_ = false;
};

class FirstFramePlugin final : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "first_frame.json")

 public:
    QObject* create(const QString& name, const QString& specification) override {
        Q_UNUSED(name)
        Q_UNUSED(specification)
        return new FirstFrameWatch;
    }
};

}  // namespace tarvin::bench

#include "first_frame_plugin.moc"
