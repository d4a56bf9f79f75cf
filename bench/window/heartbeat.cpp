#include "heartbeat.h"

#include <fcntl.h>
#include <glib.h>
#include <unistd.h>

#include <QAbstractEventDispatcher>
#include <QEvent>
#include <QMetaEnum>
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace tarvin::bench {

namespace {

// Global, because the loop's poll function has no user data.
Heartbeat* watching = nullptr;
GPollFunc originalPoll = nullptr;

gint watchedPoll(GPollFD* descriptors, guint count, gint timeout) {
    const bool waits = timeout != 0;
    if (waits && watching != nullptr) {
        watching->waitBegins();
    }
    const gint ready = originalPoll(descriptors, count, timeout);
    if (waits && watching != nullptr) {
        watching->waitEnded();
    }
    return ready;
}

double processorMilliseconds() {
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// Time that the calling thread has waited for a CPU so far; 0 where the kernel does not count it.
double queuedMilliseconds() {
    static const int account = ::open("/proc/thread-self/schedstat", O_RDONLY | O_CLOEXEC);
    std::array<char, 96> text{};
    unsigned long long ran = 0;
    unsigned long long queued = 0;
    if (::pread(account, text.data(), text.size() - 1, 0) <= 0 ||
        std::sscanf(text.data(), "%llu %llu", &ran, &queued) != 2) {
        return 0;
    }
    return static_cast<double>(queued) / 1e6;
}

}  // namespace

Heartbeat::Heartbeat() {
    // Only GLib's loop has a replaceable poll function.
    if (!QAbstractEventDispatcher::instance()->inherits("QEventDispatcherGlib")) {
        std::fputs("Qt's event loop has to be GLib's; is QT_NO_GLIB set?\n", stderr);
        std::exit(1);  // NOLINT(concurrency-mt-unsafe)
    }
    enter("");
    GMainContext* const context = g_main_context_default();
    originalPoll = g_main_context_get_poll_func(context);
    watching = this;
    g_main_context_set_poll_func(context, &watchedPoll);
    waitEnded();
}

Heartbeat::~Heartbeat() {
    watching = nullptr;
    g_main_context_set_poll_func(g_main_context_default(), originalPoll);
}

void Heartbeat::enter(const std::string& step) {
    const auto known = std::find_if(steps_.begin(), steps_.end(),
                                    [&step](const Step& other) { return other.name == step; });
    now_ = static_cast<std::size_t>(known - steps_.begin());
    if (known == steps_.end()) {
        steps_.push_back({step, 0, {}});
    }
}

void Heartbeat::clear() {
    steps_.clear();
    enter("");
}

void Heartbeat::handlerBegan() {
    handlerBegan_ = SteadyClock::now();
}

void Heartbeat::handlerEnded(const char* className, const QString& name, int event) {
    const double taken = milliseconds(SteadyClock::now() - handlerBegan_);
    if (taken <= stall_.handler) {
        return;
    }
    stall_.handler = taken;
    const char* const eventName = QMetaEnum::fromType<QEvent::Type>().valueToKey(event);
    stall_.what = className;
    if (!name.isEmpty()) {
        stall_.what += " " + name.toStdString();
    }
    stall_.what += std::string(", ") + (eventName == nullptr ? "event" : eventName);
}

void Heartbeat::waitBegins() {
    stall_.wall = milliseconds(SteadyClock::now() - stallBegan_);
    stall_.processor = processorMilliseconds() - processorBegan_;
    stall_.queued = queuedMilliseconds() - queuedBegan_;
    Step& step = steps_[now_];
    ++step.stalls;
    if (stall_.wall > step.longest.wall) {
        step.longest = stall_;
    }
}

void Heartbeat::waitEnded() {
    stall_ = {};
    stallBegan_ = SteadyClock::now();
    processorBegan_ = processorMilliseconds();
    queuedBegan_ = queuedMilliseconds();
}

bool WatchedApplication::notify(QObject* receiver, QEvent* event) {
    if (watching == nullptr || depth_ > 0) {
        return QApplication::notify(receiver, event);
    }
    // Read before: the handler may delete the receiver.
    const char* const className = receiver->metaObject()->className();
    const QString name = receiver->objectName();
    const int type = event->type();
    ++depth_;
    watching->handlerBegan();
    const bool answer = QApplication::notify(receiver, event);
    watching->handlerEnded(className, name, type);
    --depth_;
    return answer;
}

}  // namespace tarvin::bench
