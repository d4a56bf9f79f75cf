#pragma once

#include <QString>
#include <QStringList>
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
    virtual ~Alerts() = default;

    /// `answered`, which may be empty, is called with the number of the pressed button.
    virtual void show(const Alert& alert, std::function<void(int button)> answered) = 0;

    void show(const Alert& alert) { show(alert, {}); }
};

/// The message of the product with "Ok" alone.
[[nodiscard]] Alert noticeOf(const QString& informativeText);

}  // namespace tarvin
