#pragma once

#include "controller/result_fixture.h"
#include "controls/progress_bar.h"
#include "interface/home_screen.h"
#include "interface/result_panels.h"
#include "support/waiting.h"

#include <unistd.h>

#include <atomic>

namespace tarvin {

/// A result on the screen, and deletions that can be blocked at a file.
class DeletionFixture : public ResultFixture {
 protected:
    /// Blocks the run before the first stat of a file whose path contains `part`.
    void holdAt(const std::string& part) {
        files.beforeCall(
            FileCall::attributesAt, 1,
            [this] {
                walker = ::gettid();
                barrier.wait();
            },
            part);
    }

    /// Starts deleting the marked files and waits until the run is blocked there.
    void deleteAndHoldAt(const std::string& part) {
        holdAt(part);
        click("finishButton");
        ASSERT_TRUE(comesTrue([this] { return barrier.isReached(); }));
    }

    /// Starts deleting, stops the blocked run with "YES", and waits for its report.
    void deleteAndStopAt(const std::string& part) {
        ASSERT_NO_FATAL_FAILURE(deleteAndHoldAt(part));
        click("stopDeleteBtn");
        alerts.press(0);
        barrier.open();
        ASSERT_TRUE(reported());
    }

    /// Whether the run that was blocked sleeps in a pause.
    [[nodiscard]] bool isPaused() {
        return waitUntil([this] { return isAsleep(walker); });
    }

    [[nodiscard]] bool reported() {
        return comesTrue([this] { return window().informationWindow->isVisible(); });
    }

    /// Deletes the marked files; returns the first line of the report.
    [[nodiscard]] std::string deleteMarked() {
        click("finishButton");
        return reported() ? information()[1] : "no report";
    }

    [[nodiscard]] std::string setText(int extension, int set) {
        return tree()
            .indexOfSet(extension, set)
            .siblingAtColumn(ResultTreeView::name)
            .data()
            .toString()
            .toStdString();
    }

    Barrier barrier;
    std::atomic<pid_t> walker{0};
};

}  // namespace tarvin
