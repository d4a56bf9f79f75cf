#pragma once

#include "platform/result.h"
#include "platform/unique_fd.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <thread>

namespace tarvin {

/// Receives short messages at a path of the file system, on a background thread. The path must be
/// in a folder that only trusted programs can write to.
class MessageSocket final {
 public:
    /// Longer messages are cut off; bytes.
    static constexpr std::size_t maxMessageBytes = 4096;

    /// Listens at `path` until destruction; the path must be free and is not removed. `received` is
    /// called with each message, and must not destroy the object.
    static Result<std::unique_ptr<MessageSocket>> listen(
        const std::string& path, std::function<void(std::string_view)> received);

    MessageSocket(const MessageSocket&) = delete;
    MessageSocket& operator=(const MessageSocket&) = delete;
    /// Waits for a running call of `received`.
    ~MessageSocket();

    /// Sends a message without blocking. False if there is no listener at the path or it has too
    /// many unread messages.
    static bool send(const std::string& path, std::string_view message);

 private:
    /// A pipe.
    struct Wake {
        UniqueFd reading;
        UniqueFd writing;
    };

    MessageSocket(UniqueFd socket, Wake wake, std::function<void(std::string_view)> received);

    void run();
    [[nodiscard]] bool waitForMessage() const;

    const UniqueFd socket_;
    const Wake wake_;  // becomes readable on destruction
    const std::function<void(std::string_view)> received_;
    std::thread thread_;
};

}  // namespace tarvin
