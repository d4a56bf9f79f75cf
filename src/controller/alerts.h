#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>
#include <functional>

namespace tarvin {

/// One question or message that a person has to answer before going on.
struct Alert {
    QString messageText;
    QString informativeText;
    QStringList buttons;   ///< in reading order, at least one
    int escapeButton = 0;  ///< the one that Esc presses: the harmless one
};

/// Shows alerts over the window. Nothing waits for the answer: scans go on meanwhile. Main thread.
/// Tests answer in its place.
class Alerts {
 public:
    /// Names one alert of a run of the program. No alert has the number 0.
    using Number = std::uint64_t;

    virtual ~Alerts() = default;

    /// `answered`, which may be empty, is called with the number of the pressed button.
    virtual Number show(const Alert& alert, std::function<void(int button)> answered) = 0;

    Number show(const Alert& alert) { return show(alert, {}); }

    /// Closes an alert whose reason is gone, without an answer. Nothing happens if it was answered
    /// or withdrawn already, or if there is none of that number.
    virtual void withdraw(Number alert) = 0;
};

/// The message of the product with "Ok" alone.
[[nodiscard]] Alert noticeOf(const QString& informativeText);

}  // namespace tarvin
