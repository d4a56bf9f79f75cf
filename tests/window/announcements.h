#pragma once

#include <atspi/atspi.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tarvin {

/// What programs tell a screen reader of their check boxes, for as long as it is there. One at a
/// time; main thread.
class Announcements final {
 public:
    Announcements();
    Announcements(const Announcements&) = delete;
    Announcements& operator=(const Announcements&) = delete;
    ~Announcements();

    /// Listens until `isEnough` holds of what was heard, "NAME on" or "NAME off" in order; false if
    /// it does not in time.
    bool hear(const std::function<bool(const std::vector<std::string>& heard)>& isEnough);

    [[nodiscard]] const std::vector<std::string>& heard() const { return heard_; }
    void forget() { heard_.clear(); }

 private:
    static void take(AtspiEvent* event, void* self);

    AtspiEventListener* listener_;
    std::vector<std::string> heard_;
};

}  // namespace tarvin
