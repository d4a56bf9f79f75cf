#include "platform/clock.h"

namespace tarvin {

namespace {

class SystemClock final : public Clock {
 public:
    Timestamp now() override {
        return std::chrono::time_point_cast<Timestamp::duration>(std::chrono::system_clock::now());
    }

    std::chrono::steady_clock::time_point steadyNow() override {
        return std::chrono::steady_clock::now();
    }
};

}  // namespace

Clock& systemClock() {
    static SystemClock clock;
    return clock;
}

}  // namespace tarvin
