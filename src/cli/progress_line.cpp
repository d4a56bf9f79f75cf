#include "cli/progress_line.h"

#include "cli/terminal.h"
#include "platform/threads.h"
#include "report/output.h"
#include "scan/texts.h"
#include "text/shown_name.h"
#include "text/utf8.h"

#include <algorithm>
#include <cstdint>
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

constexpr std::size_t barCells = 20;

/// The longest prefix of whole characters that fits into the columns.
std::string_view cut(std::string_view text, std::size_t columns) {
    std::size_t length = 0;
    std::size_t used = 0;
    while (length < text.size()) {
        const Utf8Character character = firstCharacter(text.substr(length));
        used += character.valid ? columnsOf(character.codePoint) : 1;
        if (used > columns) {
            break;
        }
        length += character.length;
    }
    return text.substr(0, length);
}

std::string_view lastComponent(std::string_view path) {
    return path.substr(path.find_last_of('/') + 1);
}

std::string bar(std::uint64_t processed, std::uint64_t total) {
    const std::uint64_t done = total == 0 ? 0 : std::min(processed, total);
    const std::uint64_t whole = std::max<std::uint64_t>(total, 1);
    const auto filled = static_cast<std::size_t>(done * barCells / whole);
    return '[' + std::string(filled, '#') + std::string(barCells - filled, ' ') + "] " +
           std::to_string(done * 100 / whole) + '%';
}

/// The time in "Elapsed Time: 00:00:02".
std::string_view timeOf(std::string_view elapsed) {
    return elapsed.substr(elapsed.find_last_of(' ') + 1);
}

/// The text is truncated before the time.
std::string lineOf(std::string_view text, const Progress& progress, std::size_t columns) {
    const std::string after = "  " + std::string(timeOf(progress.elapsed));
    return std::string(cut(text, columns > after.size() ? columns - after.size() : 0)) + after;
}

std::string collectingLine(const Progress& progress, std::size_t columns) {
    return lineOf(progress.path.empty()
                      ? std::string(collectingFilesText())
                      : collectingFileText(printable(lastComponent(progress.path))),
                  progress, columns);
}

/// With the full path, so that the user can find what the scan waits for.
std::string waitingLine(const Progress& progress, std::size_t columns) {
    return lineOf(waitingForText(printable(progress.path)), progress, columns);
}

std::string comparingLine(const Progress& progress, std::size_t columns) {
    const std::string before = bar(progress.processed, progress.total) + "  ";
    const std::string after = "  " + getFormattedStringForSize(progress.bytesRead) + "  " +
                              std::string(timeOf(progress.elapsed));
    const std::size_t taken = before.size() + after.size();
    const std::string name = printable(lastComponent(progress.path));
    return before + std::string(cut(name, columns > taken ? columns - taken : 0)) + after;
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

std::string progressText(const Progress& progress, std::size_t columns) {
    if (progress.waiting) {
        return std::string(cut(waitingLine(progress, columns), columns));
    }
    const std::string line =
        progress.comparing ? comparingLine(progress, columns) : collectingLine(progress, columns);
    return std::string(cut(line, columns));
}

}  // namespace tarvin
