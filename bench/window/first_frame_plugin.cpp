// A plug-in that Qt loads into any program of its own that is started with
// QT_QPA_GENERIC_PLUGINS=firstframe: tells when the first frame has been painted, then ends the
// program as a person would. So a program is measured as it is, without a word about it inside.

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

    /// A window paints while it handles its exposure, which is therefore handled here. Of a later
    /// frame the end comes with what is posted at its beginning, ahead of all else.
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Expose && isExposed(watched) &&
            !std::exchange(exposed_, true)) {
            QCoreApplication::sendEvent(watched, event);
            frame_.shown = now();
            if (widget_.isEmpty()) {
                post();
            }
            return true;
        }
        if (event->type() == QEvent::Paint && watched->objectName() == widget_ &&
            !widget_.isEmpty()) {
            post();
        }
        return QObject::eventFilter(watched, event);
    }

    bool event(QEvent* event) override {
        if (event->type() != QEvent::User) {
            return QObject::event(event);
        }
        frame_.whole = now();
        tell();
        QCoreApplication::quit();
        return true;
    }

 private:
    static bool isExposed(const QObject* object) {
        const auto* const window = qobject_cast<const QWindow*>(object);
        return window != nullptr && window->isExposed();
    }

    void post() {
        if (!std::exchange(posted_, true)) {
            QCoreApplication::postEvent(this, new QEvent(QEvent::User), Qt::HighEventPriority);
        }
    }

    static Moment now() {
        timespec ran{};
        ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &ran);
        return {std::chrono::nanoseconds(SteadyClock::now().time_since_epoch()).count(),
                std::int64_t{ran.tv_sec} * 1'000'000'000 + ran.tv_nsec};
    }

    void tell() const {
        const int pipe = qEnvironmentVariableIntValue(firstFramePipe);
        if (::write(pipe, &frame_, sizeof frame_) != sizeof frame_) {
            qFatal("Nobody is told of the first frame.");
        }
    }

    const QString widget_;
    bool exposed_ = false;
    bool posted_ = false;
    FirstFrame frame_;
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
