#include "platform/posix/running_instances.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

// A minimal instance for the tests: runs the commands on its standard input and prints the results
// to standard output, line by line. Exits when it is asked to quit, or at the end of its input.

namespace tarvin {
namespace {

/// Reads lines from a descriptor.
class LineReader final {
 public:
    explicit LineReader(int descriptor) : descriptor_(descriptor) {}

    /// Blocks until the next line. False at the end.
    bool read(std::string& line) {
        while (text_.find('\n') == std::string::npos) {
            std::array<char, 4096> room{};
            const ssize_t got = ::read(descriptor_, room.data(), room.size());
            if (got <= 0) {
                return false;
            }
            text_.append(room.data(), static_cast<std::size_t>(got));
        }
        const std::size_t end = text_.find('\n');
        line = text_.substr(0, end);
        text_.erase(0, end + 1);
        return true;
    }

    [[nodiscard]] bool hasLine() const { return text_.find('\n') != std::string::npos; }
    [[nodiscard]] int descriptor() const { return descriptor_; }

 private:
    int descriptor_;
    std::string text_;
};

void say(const std::string& line) {
    std::cout << line << std::endl;
}

class Instance final {
 public:
    explicit Instance(std::vector<std::string> folders)
        : instances_(makeRunningInstances(std::move(folders))) {
        if (::pipe2(requests_.data(), O_CLOEXEC) != 0) {
            ::_exit(3);
        }
    }

    /// True if it was asked to quit; false at the end of the input.
    bool run() {
        LineReader input(STDIN_FILENO);
        LineReader requests(requests_[0]);
        say("ready");
        std::string line;
        while (true) {
            LineReader& next = nextOf(input, requests);
            if (!next.read(line)) {
                return false;
            }
            if (&next == &input) {
                obey(line);
                continue;
            }
            say(line);
            if (line == "quit") {
                return true;
            }
        }
    }

    void leave() { instances_->leave(); }

 private:
    static LineReader& nextOf(LineReader& input, LineReader& requests) {
        if (input.hasLine() || requests.hasLine()) {
            return requests.hasLine() ? requests : input;
        }
        std::array<pollfd, 2> waited{pollfd{requests.descriptor(), POLLIN, 0},
                                     pollfd{input.descriptor(), POLLIN, 0}};
        ::poll(waited.data(), waited.size(), -1);
        return waited[0].revents != 0 ? requests : input;
    }

    void obey(const std::string& command) {
        if (command == "join" || command == "start") {
            join();
        }
        if (command == "rule" || command == "start") {
            const auto stays = keepFirstInstanceOnly(*instances_, "a token");
            say("stays " + (stays ? std::to_string(stays->number) : "nobody"));
        } else if (command == "instances") {
            std::string line = "instances";
            for (const RunningInstance instance : instances_->instances()) {
                line += ' ' + std::to_string(instance.number);
            }
            say(line);
        } else if (command == "crash") {
            ::_exit(9);
        }
    }

    void join() {
        const auto joined = instances_->join(
            {.quit = [this] { request("quit\n"); },
             .comeToFront = [this](const std::string& token) { request("front " + token + '\n'); },
             .openFolders = [](const std::vector<std::string>& /*folders*/) {}});
        say(joined ? "joined " + std::to_string(joined->number)
                   : "alone " + std::to_string(joined.error().code));
    }

    void request(const std::string& line) {
        static_cast<void>(!::write(requests_[1], line.data(), line.size()));
    }

    std::unique_ptr<RunningInstances> instances_;
    std::array<int, 2> requests_{-1, -1};
};

}  // namespace
}  // namespace tarvin

int main(int argc, char** argv) {
    tarvin::Instance instance(std::vector<std::string>(argv + 1, argv + argc));
    const bool wasAsked = instance.run();
    instance.leave();
    return wasAsked ? 0 : 2;
}
