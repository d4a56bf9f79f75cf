#pragma once

#include <atspi/atspi.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tarvin {

/// Records the state changes of check boxes that programs announce to screen readers. One object at
/// a time. Main thread only.
class Announcements final {
 public:
    Announcements();
    Announcements(const Announcements&) = delete;
    Announcements& operator=(const Announcements&) = delete;
    ~Announcements();

    /// Blocks until `isEnough` holds for the announcements so far, each "NAME on" or "NAME off", in
    /// order. Returns false after testPatience.
    bool hear(const std::function<bool(const std::vector<std::string>& heard)>& isEnough);

    [[nodiscard]] const std::vector<std::string>& heard() const { return heard_; }
    void forget() { heard_.clear(); }

 private:
    static void take(AtspiEvent* event, void* self);

    AtspiEventListener* listener_;
    std::vector<std::string> heard_;
};

}  // namespace tarvin
