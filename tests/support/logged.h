#pragma once

#include <QStringList>
#include <QtGlobal>

namespace tarvin {

/// Collects the messages logged by Qt during its lifetime. One at a time.
class Logged final {
 public:
    Logged() {
        lines.clear();
        before_ = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext&, const QString& text) { lines.append(text); });
    }
    Logged(const Logged&) = delete;
    Logged& operator=(const Logged&) = delete;
    ~Logged() { qInstallMessageHandler(before_); }

    static inline QStringList lines;

 private:
    QtMessageHandler before_ = nullptr;
};

}  // namespace tarvin
