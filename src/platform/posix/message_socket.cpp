#include "platform/posix/message_socket.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <optional>
#include <utility>

namespace tarvin {

namespace {

// macOS lets a message be no longer than the buffer that it is sent from, usually 2,048 bytes.
constexpr int bufferBytes = 16 * static_cast<int>(MessageSocket::maxMessageBytes);

/// Returns whether it succeeded.
bool closeWhenAnotherProgramStarts(int descriptor) {
    return ::fcntl(descriptor, F_SETFD, FD_CLOEXEC) == 0;
}

/// Does not block. Empty on failure, with the reason in errno.
UniqueFd newSocket() {
#ifdef SOCK_CLOEXEC
    // At once, so that a process that is started meanwhile does not inherit the socket.
    UniqueFd socket(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
#else
    UniqueFd socket(::socket(AF_UNIX, SOCK_DGRAM, 0));
    if (socket && (!closeWhenAnotherProgramStarts(socket.number()) ||
                   ::fcntl(socket.number(), F_SETFL, O_NONBLOCK) != 0)) {
        return {};
    }
#endif
    for (const int buffer : {SO_SNDBUF, SO_RCVBUF}) {
        static_cast<void>(
            ::setsockopt(socket.number(), SOL_SOCKET, buffer, &bufferBytes, sizeof(bufferBytes)));
    }
    return socket;
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
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) {
        return SystemError{errno};
    }
    Wake wake{UniqueFd(ends[0]), UniqueFd(ends[1])};
    if (!closeWhenAnotherProgramStarts(ends[0]) || !closeWhenAnotherProgramStarts(ends[1])) {
        return SystemError{errno};
    }
    return std::unique_ptr<MessageSocket>(
        new MessageSocket(std::move(socket), std::move(wake), std::move(received)));
}

MessageSocket::MessageSocket(UniqueFd socket, Wake wake,
                             std::function<void(std::string_view)> received)
    : socket_(std::move(socket)),
      wake_(std::move(wake)),
      received_(std::move(received)),
      thread_([this] { run(); }) {}

MessageSocket::~MessageSocket() {
    // An empty pipe always has room. Closing it would not do: a process that was started meanwhile
    // may hold its end, too.
    [[maybe_unused]] const ssize_t written = ::write(wake_.writing.number(), "", 1);
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
    std::array<pollfd, 2> waited{pollfd{wake_.reading.number(), POLLIN, 0},
                                 pollfd{socket_.number(), POLLIN, 0}};
    int ready = -1;
    do {
        ready = ::poll(waited.data(), waited.size(), -1);
    } while (ready < 0 && errno == EINTR);
    return ready > 0 && waited[0].revents == 0;
}

}  // namespace tarvin
