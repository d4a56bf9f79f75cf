#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <functional>

namespace tarvin {

/// One question or message that the user has to answer.
struct Alert {
    QString messageText;
    QString informativeText;
    QStringList buttons;   ///< in reading order, at least one
    int escapeButton = 0;  ///< the one that Esc presses: the harmless one
};

/// Shows alerts over the window. Asynchronous: scans continue. Main thread only. Tests replace it.
class Alerts {
 public:
    /// Identifies one alert of this process; never 0.
    using Number = std::uint64_t;

    virtual ~Alerts() = default;

    /// Calls `answered`, which may be empty, with the index of the pressed button.
    virtual Number show(const Alert& alert, std::function<void(int button)> answered) = 0;

    Number show(const Alert& alert) { return show(alert, {}); }

    /// Closes an alert without calling `answered`. Does nothing if it is closed already or does not
    /// exist.
    virtual void withdraw(Number alert) = 0;
};

/// A message with the program's title and only "Ok".
[[nodiscard]] inline Alert noticeOf(const QString& informativeText) {
    return {QCoreApplication::translate("tarvin::Alerts", "Tarvin Duplicate File Remover"),
            informativeText,
            {QCoreApplication::translate("tarvin::Alerts", "Ok")},
            0};
}

}  // namespace tarvin
