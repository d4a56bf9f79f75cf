#include "cli/progress_line.h"

#include "cli/output.h"
#include "cli/progress_text.h"
#include "cli/terminal.h"
#include "platform/start_thread.h"

#include <string_view>
#include <utility>

namespace tarvin {

namespace {

constexpr std::string_view toLineBegin = "\r";
constexpr std::string_view eraseToLineEnd = "\x1B[K";

void writeAtOnce(int descriptor, std::string_view text) {
    Output output(descriptor);
    output.append(toLineBegin);
    output.append(text);
    output.append(eraseToLineEnd);
    output.flush();
}

}  // namespace

ProgressLine::ProgressLine(int descriptor, std::function<Progress()> latest, Settings settings)
    : descriptor_(descriptor),
      latest_(std::move(latest)),
      settings_(settings),
      thread_(startThread([this] { drawUntilEnd(); })) {}

ProgressLine::~ProgressLine() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    changed_.notify_all();
    if (thread_.joinable()) {
        thread_.join();
    }
}

void ProgressLine::drawUntilEnd() {
    do {
        draw();
    } while (waitOneInterval());
    erase();
}

void ProgressLine::draw() {
    // One column stays free: some terminals wrap after a full line.
    std::string line = progressText(latest_(), columnsOf(descriptor_) - 1);
    if (line != drawn_) {
        writeAtOnce(descriptor_, line);
        drawn_ = std::move(line);
    }
}

void ProgressLine::erase() const {
    writeAtOnce(descriptor_, "");
}

bool ProgressLine::waitOneInterval() {
    std::unique_lock lock(mutex_);
    return !changed_.wait_for(lock, settings_.interval, [this] { return ending_; });
}

}  // namespace tarvin
