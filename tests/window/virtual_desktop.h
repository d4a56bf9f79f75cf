#pragma once

#include "support/temporary_folder.h"
#include "window/child_process.h"

#include <memory>
#include <string>

namespace tarvin {

/// A desktop that nobody sees and that shares nothing with the person's own: an X server, a window
/// manager, a session bus and the accessibility bus. It belongs to this process and to all programs
/// that the process starts while it is there, through the environment, and ends with the object.
/// One at a time; main thread.
class VirtualDesktop final {
 public:
    /// Has started when this returns. What does not start in time is a failure of the test.
    VirtualDesktop();
    VirtualDesktop(const VirtualDesktop&) = delete;
    VirtualDesktop& operator=(const VirtualDesktop&) = delete;
    ~VirtualDesktop();

 private:
    void startScreen();
    void startBus();
    void startWindowManager();

    TemporaryFolder folder_;
    std::unique_ptr<ChildProcess> screen_;
    std::unique_ptr<ChildProcess> bus_;
    std::unique_ptr<ChildProcess> windowManager_;
};

}  // namespace tarvin
