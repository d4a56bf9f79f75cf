#pragma once

#include <QObject>
#include <functional>

namespace tarvin {

/// Calls a function before each press of a key or button, and each other act of the user, reaches
/// this program, as long as it exists. Moves of the pointer and turns of its wheel do not count.
/// Main thread only.
class BeforeInput final : public QObject {
 public:
    /// `act` may destroy this object.
    explicit BeforeInput(std::function<void()> act);
    ~BeforeInput() override;

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    const std::function<void()> act_;
};

}  // namespace tarvin
