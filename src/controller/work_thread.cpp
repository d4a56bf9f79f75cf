#include "controller/work_thread.h"

#include "platform/threads.h"

#include <utility>

namespace tarvin {

void WorkThread::start(std::function<void()> work, std::function<void()> over) {
    wait();
    const auto run = [work = std::move(work), over = std::move(over)] {
        work();
        over();
    };
    thread_ = startThread(run);
    if (!thread_.joinable()) {
        run();
    }
}

void WorkThread::wait() {
    if (thread_.joinable()) {
        thread_.join();
    }
}

}  // namespace tarvin
