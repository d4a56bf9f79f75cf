#pragma once

#include <QObject>
#include <atomic>

namespace tarvin {

/// Asks work on another thread to stop, once. The work connects `requested` to what ends it, on its
/// own thread, and then looks at isRequested(), in case it was asked before. Any thread; must
/// outlive the work.
class StopRequest final : public QObject {
    Q_OBJECT

 public:
    void request() {
        isRequested_ = true;
        Q_EMIT requested();
    }
    [[nodiscard]] bool isRequested() const { return isRequested_; }

    Q_SIGNAL void requested();

 private:
    std::atomic<bool> isRequested_{false};
};

}  // namespace tarvin
