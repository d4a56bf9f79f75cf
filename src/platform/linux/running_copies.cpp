#include "platform/linux/running_copies.h"

#include "platform/durable_file.h"
#include "platform/file_system.h"
#include "platform/linux/copy_socket.h"
#include "platform/linux/private_folder.h"
#include "platform/unique_fd.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <cstddef>
#include <set>
#include <string_view>
#include <system_error>
#include <utility>

namespace tarvin {

namespace {

constexpr int mostNumbersTried = 1000;
constexpr std::size_t portionBytes = std::size_t{32} << 10U;
constexpr std::size_t longestToken = 1024;

constexpr std::string_view namePrefix = "copy-";
constexpr std::string_view lockSuffix = ".lock";
constexpr std::string_view socketSuffix = ".socket";

constexpr std::string_view quitMessage = "quit";
constexpr std::string_view frontMessage = "front ";  // and the token
constexpr std::string_view openMessage = "open ";    // and paths, each ended by a zero

std::string nameOf(std::uint64_t number, std::string_view suffix) {
    return std::string(namePrefix).append(std::to_string(number)).append(suffix);
}

/// The number in the name of a copy's file; none for any other name.
std::optional<std::uint64_t> numberIn(std::string_view name) {
    std::uint64_t number = 0;
    if (!name.starts_with(namePrefix)) {
        return std::nullopt;
    }
    name.remove_prefix(namePrefix.size());
    const auto read = std::from_chars(name.data(), name.data() + name.size(), number);
    const std::string_view suffix = name.substr(static_cast<std::size_t>(read.ptr - name.data()));
    const bool isOurs = read.ec == std::errc() && (suffix == lockSuffix || suffix == socketSuffix);
    return isOurs ? std::optional(number) : std::nullopt;
}

/// The numbers of all files that copies have left in the folder, in order.
std::set<std::uint64_t> numbersIn(const PrivateFolder& folder) {
    std::set<std::uint64_t> numbers;
    FileSystem& fileSystem = systemFileSystem();
    const auto opened = fileSystem.openRootDirectory(folder.path());
    EntryBlock block(portionBytes);
    while (opened && fileSystem.listEntries(*opened, block) && !block.entries().empty()) {
        for (const EntryBlock::Entry& entry : block.entries()) {
            if (const auto number = numberIn(entry.name)) {
                numbers.insert(*number);
            }
        }
    }
    return numbers;
}

enum class Life { lives, leaves, gone };

void removeFiles(const PrivateFolder& folder, std::uint64_t number) {
    ::unlinkat(folder.number(), nameOf(number, socketSuffix).c_str(), 0);
    ::unlinkat(folder.number(), nameOf(number, lockSuffix).c_str(), 0);
}

/// Whether somebody holds the copy's file locked; if so, whether the copy still listens.
Life lifeOf(const PrivateFolder& folder, std::uint64_t number) {
    const UniqueFd file(::openat(folder.number(), nameOf(number, lockSuffix).c_str(),
                                 O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    const bool isHeld = file && ::flock(file.number(), LOCK_SH | LOCK_NB) != 0;
    if (!isHeld) {
        return Life::gone;
    }
    const std::string socket = nameOf(number, socketSuffix);
    const bool listens = ::faccessat(folder.number(), socket.c_str(), F_OK, 0) == 0;
    return listens ? Life::lives : Life::leaves;
}

/// The copies that live, in order. What the others have left behind is removed. The folder is held
/// locked, so that nobody is just being born.
std::vector<RunningCopy> livingCopies(const PrivateFolder& folder) {
    std::vector<RunningCopy> living;
    for (const std::uint64_t number : numbersIn(folder)) {
        switch (lifeOf(folder, number)) {
            case Life::lives:
                living.push_back({number});
                break;
            case Life::leaves:
                break;
            case Life::gone:
                removeFiles(folder, number);
                break;
        }
    }
    return living;
}

std::vector<std::string> pathsIn(std::string_view text) {
    std::vector<std::string> paths;
    for (auto end = text.find('\0'); end != std::string_view::npos; end = text.find('\0')) {
        paths.emplace_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    return paths;
}

bool fitsMessage(const std::string& path) {
    return openMessage.size() + path.size() + 1 <= CopySocket::longestMessage;
}

/// As few messages as hold them; a path that none could hold is left out.
std::vector<std::string> messagesOf(const std::vector<std::string>& paths) {
    std::vector<std::string> messages;
    for (const std::string& path : paths) {
        if (!fitsMessage(path)) {
            continue;
        }
        const std::size_t added = path.size() + 1;
        if (messages.empty() || messages.back().size() + added > CopySocket::longestMessage) {
            messages.emplace_back(openMessage);
        }
        messages.back().append(path).push_back('\0');
    }
    return messages;
}

/// The place of one copy: its two files. Goes with them.
class Place final {
 public:
    /// A place behind all others.
    static Result<std::unique_ptr<Place>> take(PrivateFolder folder, CopyRequests requests,
                                               std::chrono::milliseconds patience);

    Place(PrivateFolder folder, UniqueFd file, std::uint64_t number)
        : folder_(std::move(folder)), file_(std::move(file)), number_(number) {}
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;
    ~Place() {
        socket_.reset();
        removeFiles(folder_, number_);
    }

    [[nodiscard]] RunningCopy copy() const { return {number_}; }
    [[nodiscard]] const PrivateFolder& folder() const { return folder_; }

 private:
    std::optional<SystemError> listen(CopyRequests requests);
    void obey(const CopyRequests& requests, std::string_view message) const;

    PrivateFolder folder_;
    const UniqueFd file_;  // held locked
    const std::uint64_t number_;
    std::unique_ptr<CopySocket> socket_;
};

Result<std::unique_ptr<Place>> Place::take(PrivateFolder folder, CopyRequests requests,
                                           std::chrono::milliseconds patience) {
    const auto lock = FolderLock::take(folder.path(), patience);
    if (!lock) {
        return lock.error();
    }
    const std::vector<RunningCopy> living = livingCopies(folder);
    std::uint64_t number = living.empty() ? 1 : living.back().number + 1;
    UniqueFd file;
    for (int tries = 0;; ++tries, ++number) {
        file = UniqueFd(::openat(folder.number(), nameOf(number, lockSuffix).c_str(),
                                 O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                                 S_IRUSR | S_IWUSR));
        if (file) {
            break;
        }
        if (errno != EEXIST || tries == mostNumbersTried) {
            return SystemError{errno};
        }
    }
    const int descriptor = file.number();
    auto place = std::make_unique<Place>(std::move(folder), std::move(file), number);
    if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        return SystemError{errno};
    }
    if (const auto failure = place->listen(std::move(requests))) {
        return *failure;
    }
    return place;
}

std::optional<SystemError> Place::listen(CopyRequests requests) {
    auto socket = CopySocket::listen(folder_.pathOf(nameOf(number_, socketSuffix)),
                                     [this, requests = std::move(requests)](
                                         std::string_view message) { obey(requests, message); });
    if (!socket) {
        return socket.error();
    }
    socket_ = std::move(*socket);
    return std::nullopt;
}

void Place::obey(const CopyRequests& requests, std::string_view message) const {
    if (message == quitMessage) {
        // From now on nobody counts on this copy.
        ::unlinkat(folder_.number(), nameOf(number_, socketSuffix).c_str(), 0);
        requests.quit();
    } else if (message.starts_with(frontMessage)) {
        requests.comeToFront(std::string(message.substr(frontMessage.size())));
    } else if (message.starts_with(openMessage)) {
        requests.openFolders(pathsIn(message.substr(openMessage.size())));
    }
}

class LinuxRunningCopies final : public RunningCopies {
 public:
    LinuxRunningCopies(std::vector<std::string> folders, std::chrono::milliseconds patience)
        : folders_(std::move(folders)), patience_(patience) {}

    Result<RunningCopy> join(CopyRequests requests) override {
        SystemError failure{ENOENT};
        for (const std::string& path : folders_) {
            auto folder = PrivateFolder::open(path);
            if (!folder) {
                failure = folder.error();
                continue;
            }
            auto place = Place::take(std::move(*folder), requests, patience_);
            if (place) {
                place_ = std::move(*place);
                return place_->copy();
            }
            failure = place.error();
            if (failure.code == EBUSY) {
                // The others are here; in another folder this copy would not see them.
                break;
            }
        }
        return failure;
    }

    void leave() override { place_.reset(); }

    std::vector<RunningCopy> copies() override {
        if (place_ == nullptr) {
            return {};
        }
        const auto lock = FolderLock::take(place_->folder().path(), patience_);
        return lock ? livingCopies(place_->folder()) : std::vector<RunningCopy>{place_->copy()};
    }

    bool askToQuit(RunningCopy copy) override { return send(copy, std::string(quitMessage)); }

    bool bringToFront(RunningCopy copy, const std::string& activationToken) override {
        const bool isToken = activationToken.size() <= longestToken;
        return send(copy, std::string(frontMessage) + (isToken ? activationToken : std::string()));
    }

    bool openFolders(RunningCopy copy, const std::vector<std::string>& folders) override {
        bool all = std::all_of(folders.begin(), folders.end(), fitsMessage);
        for (const std::string& message : messagesOf(folders)) {
            all = send(copy, message) && all;
        }
        return all;
    }

 private:
    [[nodiscard]] bool send(RunningCopy copy, const std::string& message) const {
        return place_ != nullptr &&
               CopySocket::send(place_->folder().pathOf(nameOf(copy.number, socketSuffix)),
                                message);
    }

    const std::vector<std::string> folders_;
    // The folder is held locked for a few system calls, which take long only on a busy machine.
    const std::chrono::milliseconds patience_;
    std::unique_ptr<Place> place_;
};

}  // namespace

std::unique_ptr<RunningCopies> makeRunningCopies(std::vector<std::string> folders,
                                                 std::chrono::milliseconds patience) {
    return std::make_unique<LinuxRunningCopies>(std::move(folders), patience);
}

}  // namespace tarvin
