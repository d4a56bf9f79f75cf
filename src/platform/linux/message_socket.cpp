#include "platform/linux/message_socket.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <optional>
#include <utility>

namespace tarvin {

namespace {

UniqueFd newSocket() {
    return UniqueFd(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
}

/// The sockaddr_un of a path; nullopt if the path is too long.
std::optional<sockaddr_un> addressOf(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof(address.sun_path)) {
        return std::nullopt;
    }
    path.copy(address.sun_path, path.size());
    return address;
}

const sockaddr* asAny(const sockaddr_un& address) {
    const void* const any = &address;
    return static_cast<const sockaddr*>(any);
}

}  // namespace

Result<std::unique_ptr<MessageSocket>> MessageSocket::listen(
    const std::string& path, std::function<void(std::string_view)> received) {
    const auto address = addressOf(path);
    if (!address) {
        return SystemError{ENAMETOOLONG};
    }
    UniqueFd socket = newSocket();
    if (!socket || ::bind(socket.number(), asAny(*address), sizeof(*address)) != 0) {
        return SystemError{errno};
    }
    UniqueFd wake(::eventfd(0, EFD_CLOEXEC));
    if (!wake) {
        return SystemError{errno};
    }
    return std::unique_ptr<MessageSocket>(
        new MessageSocket(std::move(socket), std::move(wake), std::move(received)));
}

MessageSocket::MessageSocket(UniqueFd socket, UniqueFd wake,
                             std::function<void(std::string_view)> received)
    : socket_(std::move(socket)),
      wake_(std::move(wake)),
      received_(std::move(received)),
      thread_([this] { run(); }) {}

MessageSocket::~MessageSocket() {
    const std::uint64_t once = 1;
    // An empty counter always has room.
    [[maybe_unused]] const ssize_t written = ::write(wake_.number(), &once, sizeof(once));
    thread_.join();
}

bool MessageSocket::send(const std::string& path, std::string_view message) {
    const auto address = addressOf(path);
    if (!address) {
        return false;
    }
    const UniqueFd socket = newSocket();
    return socket && ::sendto(socket.number(), message.data(), message.size(), 0, asAny(*address),
                              sizeof(*address)) >= 0;
}

void MessageSocket::run() {
    std::array<char, maxMessageBytes> room{};
    while (waitForMessage()) {
        const ssize_t got = ::recv(socket_.number(), room.data(), room.size(), 0);
        if (got >= 0) {
            received_({room.data(), static_cast<std::size_t>(got)});
        }
    }
}

/// False on destruction, or if the system call fails.
bool MessageSocket::waitForMessage() const {
    std::array<pollfd, 2> waited{pollfd{wake_.number(), POLLIN, 0},
                                 pollfd{socket_.number(), POLLIN, 0}};
    int ready = -1;
    do {
        ready = ::poll(waited.data(), waited.size(), -1);
    } while (ready < 0 && errno == EINTR);
    return ready > 0 && waited[0].revents == 0;
}

}  // namespace tarvin
