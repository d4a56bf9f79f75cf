#pragma once

#include <atspi/atspi.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tarvin {

/// Records what programs announce to screen readers. One object at a time. Main thread only.
class Announcements final {
 public:
    enum class Kind {
        checkBoxes,  ///< changed states of check boxes, each "NAME on" or "NAME off"
        names        ///< changed names, which are the texts of labels
    };

    explicit Announcements(Kind kind = Kind::checkBoxes);
    Announcements(const Announcements&) = delete;
    Announcements& operator=(const Announcements&) = delete;
    ~Announcements();

    /// Blocks until `isEnough` holds for the announcements so far, in order. Returns false after
    /// testPatience.
    bool hear(const std::function<bool(const std::vector<std::string>& heard)>& isEnough);

    [[nodiscard]] const std::vector<std::string>& heard() const { return heard_; }
    void forget() { heard_.clear(); }

 private:
    static void take(AtspiEvent* event, void* self);

    const Kind kind_;
    AtspiEventListener* listener_;
    std::vector<std::string> heard_;
};

}  // namespace tarvin
