#pragma once

#include "platform/result.h"
#include "platform/unique_fd.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <thread>

namespace tarvin {

/// Receives short messages at a path of the file system, on a thread of its own. The path must be
/// where only trusted programs can write.
class CopySocket final {
 public:
    /// Longer messages are cut off; bytes.
    static constexpr std::size_t longestMessage = 4096;

    /// Listens at `path`, at which nothing may be yet, until the object goes; the path stays.
    /// `received` is called with each message, and must not destroy the object.
    static Result<std::unique_ptr<CopySocket>> listen(
        const std::string& path, std::function<void(std::string_view)> received);

    CopySocket(const CopySocket&) = delete;
    CopySocket& operator=(const CopySocket&) = delete;
    /// Waits for the call of `received` that is under way, if there is one.
    ~CopySocket();

    /// Sends a message without waiting for anybody. False if nobody listens at the path or the one
    /// who does has left too many messages unread.
    static bool send(const std::string& path, std::string_view message);

 private:
    CopySocket(UniqueFd socket, UniqueFd wake, std::function<void(std::string_view)> received);

    void run();
    [[nodiscard]] bool waitForMessage() const;

    const UniqueFd socket_;
    const UniqueFd wake_;  // becomes readable when the object goes
    const std::function<void(std::string_view)> received_;
    std::thread thread_;
};

}  // namespace tarvin
