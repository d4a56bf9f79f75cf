#pragma once

#include "support/temporary_folder.h"
#include "window/child_process.h"

#include <memory>
#include <string>

namespace tarvin {

/// A virtual desktop, separate from the user's: an X server, a window manager, a session bus and
/// the accessibility bus. Used by this process and all programs that it starts, through the
/// environment. Ends on destruction. One object at a time. Main thread only.
class VirtualDesktop final {
 public:
    /// Blocks until the desktop has started. Fails the test if a part does not start in time.
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
