#include "window/drop.h"

#include "support/temporary_folder.h"
#include "support/waiting.h"
#include "window/child_process.h"
#include "window/program_window.h"

#include <gtest/gtest.h>

#include <array>
#include <cctype>

namespace tarvin {

namespace {

std::string encoded(const std::string& path) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    for (const char letter : path) {
        const auto byte = static_cast<unsigned char>(letter);
        if (std::isalnum(byte) != 0 || letter == '/') {
            text += letter;
        } else {
            text.append({'%', digits[byte >> 4U], digits[byte & 15U]});
        }
    }
    return text;
}

}  // namespace

std::string dropSource() {
    return TARVIN_DROP_SOURCE;
}

void dropFromElsewhere(const std::string& type, const std::string& content, Spot target) {
    const TemporaryFolder folder;
    ChildProcess source({dropSource(), type, folder.writeFile("content", content)},
                        folder.pathOf("source"));
    const ProgramWindow window(source.pid());
    const Spot start = window.wait(ATSPI_ROLE_LABEL, "Drag me").area().middle();
    const auto says = [&](const std::string& word) {
        return source.output().find(word) != std::string::npos;
    };
    input::moveTo(start);
    input::press();
    // A drag begins after a few movements; each movement queries the target.
    int step = 0;
    EXPECT_TRUE(waitUntil([&] {
        ++step;
        input::moveTo(step <= 4 ? Spot{start.x + 8 * step, start.y}
                                : Spot{target.x + step % 2, target.y});
        return says("over\n");
    })) << "Nobody would take the drop.";
    input::release();
    EXPECT_TRUE(waitUntil([&] { return says("finished\n"); }))
        << "The target program does not finish the drop.";
}

void dropFiles(const std::vector<std::string>& paths, Spot target) {
    std::string lines;
    for (const std::string& path : paths) {
        lines += "file://" + encoded(path) + "\r\n";
    }
    dropFromElsewhere("text/uri-list", lines, target);
}

}  // namespace tarvin
