#include "platform/posix/running_instances.h"

#include "platform/durable_file.h"
#include "platform/file_system.h"
#include "platform/posix/descriptor_paths.h"
#include "platform/posix/message_socket.h"
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

constexpr int maxNumbersTried = 1000;
constexpr std::size_t listingBytes = std::size_t{32} << 10U;
constexpr std::size_t maxTokenBytes = 1024;

constexpr std::string_view namePrefix = "copy-";
constexpr std::string_view lockSuffix = ".lock";
constexpr std::string_view socketSuffix = ".socket";

constexpr std::string_view quitMessage = "quit";
constexpr std::string_view frontMessage = "front ";  // and the token
constexpr std::string_view openMessage = "open ";    // and null-terminated paths

bool isPrivate(int folder) {
    struct stat status{};
    return ::fstat(folder, &status) == 0 && status.st_uid == ::geteuid() &&
           (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

/// A folder that only this user can access, held open, so that it stays the same one if its path
/// changes. Any thread.
class PrivateFolder final {
 public:
    /// Opens the folder, and creates it if it is missing; its parent must exist. Fails with EACCES
    /// if it belongs to another user or others can access it. Does not follow a symbolic link.
    static Result<PrivateFolder> open(const std::string& path) {
        if (::mkdir(path.c_str(), S_IRWXU) != 0 && errno != EEXIST) {
            return SystemError{errno};
        }
        UniqueFd folder(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        if (!folder) {
            return SystemError{errno};
        }
        if (!isPrivate(folder.number())) {
            return SystemError{EACCES};
        }
        return PrivateFolder(std::move(folder), path);
    }

    [[nodiscard]] int number() const { return folder_.number(); }
    /// A path to the folder, or to an entry in it; valid during the lifetime of this object.
    [[nodiscard]] std::string path() const { return pathThrough(number(), path_); }
    [[nodiscard]] std::string pathOf(const std::string& name) const { return path() + '/' + name; }

 private:
    PrivateFolder(UniqueFd folder, std::string path)
        : folder_(std::move(folder)), path_(std::move(path)) {}

    UniqueFd folder_;
    std::string path_;  // by which it was opened
};

std::string nameOf(std::uint64_t number, std::string_view suffix) {
    return std::string(namePrefix).append(std::to_string(number)).append(suffix);
}

/// The number in the name of an instance's file; nullopt for any other name.
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

/// The numbers of all instances with a file in the folder, in order.
std::set<std::uint64_t> numbersIn(const PrivateFolder& folder) {
    std::set<std::uint64_t> numbers;
    FileSystem& fileSystem = systemFileSystem();
    const auto opened = fileSystem.openRootDirectory(folder.path());
    EntryBlock block(listingBytes);
    while (opened && fileSystem.listEntries(*opened, block) && !block.entries().empty()) {
        for (const EntryBlock::Entry& entry : block.entries()) {
            if (const auto number = numberIn(entry.name)) {
                numbers.insert(*number);
            }
        }
    }
    return numbers;
}

enum class State { running, quitting, dead };

void removeFiles(const PrivateFolder& folder, std::uint64_t number) {
    ::unlinkat(folder.number(), nameOf(number, socketSuffix).c_str(), 0);
    ::unlinkat(folder.number(), nameOf(number, lockSuffix).c_str(), 0);
}

/// Dead if its file is not locked; quitting if it has no socket any more.
State stateOf(const PrivateFolder& folder, std::uint64_t number) {
    const UniqueFd file(::openat(folder.number(), nameOf(number, lockSuffix).c_str(),
                                 O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    const bool isHeld = file && ::flock(file.number(), LOCK_SH | LOCK_NB) != 0;
    if (!isHeld) {
        return State::dead;
    }
    const std::string socket = nameOf(number, socketSuffix);
    const bool listens = ::faccessat(folder.number(), socket.c_str(), F_OK, 0) == 0;
    return listens ? State::running : State::quitting;
}

/// The running instances, in order. Removes the files of dead ones. Requires the folder lock: no
/// instance can be between creating its file and locking it.
std::vector<RunningInstance> runningInstances(const PrivateFolder& folder) {
    std::vector<RunningInstance> running;
    for (const std::uint64_t number : numbersIn(folder)) {
        switch (stateOf(folder, number)) {
            case State::running:
                running.push_back({number});
                break;
            case State::quitting:
                break;
            case State::dead:
                removeFiles(folder, number);
                break;
        }
    }
    return running;
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
    return openMessage.size() + path.size() + 1 <= MessageSocket::maxMessageBytes;
}

/// As few messages as possible, without paths that do not fit into one.
std::vector<std::string> messagesOf(const std::vector<std::string>& paths) {
    std::vector<std::string> messages;
    for (const std::string& path : paths) {
        if (!fitsMessage(path)) {
            continue;
        }
        const std::size_t added = path.size() + 1;
        if (messages.empty() || messages.back().size() + added > MessageSocket::maxMessageBytes) {
            messages.emplace_back(openMessage);
        }
        messages.back().append(path).push_back('\0');
    }
    return messages;
}

/// The two files of one instance; removed on destruction.
class InstanceFiles final {
 public:
    /// With a number higher than all others.
    static Result<std::unique_ptr<InstanceFiles>> take(PrivateFolder folder,
                                                       InstanceRequests requests,
                                                       std::chrono::milliseconds patience);

    InstanceFiles(PrivateFolder folder, UniqueFd file, std::uint64_t number)
        : folder_(std::move(folder)), file_(std::move(file)), number_(number) {}
    InstanceFiles(const InstanceFiles&) = delete;
    InstanceFiles& operator=(const InstanceFiles&) = delete;
    ~InstanceFiles() {
        socket_.reset();
        removeFiles(folder_, number_);
    }

    [[nodiscard]] RunningInstance instance() const { return {number_}; }
    [[nodiscard]] const PrivateFolder& folder() const { return folder_; }

 private:
    std::optional<SystemError> listen(InstanceRequests requests);
    void obey(const InstanceRequests& requests, std::string_view message) const;

    PrivateFolder folder_;
    const UniqueFd file_;  // held locked
    const std::uint64_t number_;
    std::unique_ptr<MessageSocket> socket_;
};

Result<std::unique_ptr<InstanceFiles>> InstanceFiles::take(PrivateFolder folder,
                                                           InstanceRequests requests,
                                                           std::chrono::milliseconds patience) {
    const auto lock = FolderLock::take(folder.path(), patience);
    if (!lock) {
        return lock.error();
    }
    const std::vector<RunningInstance> running = runningInstances(folder);
    std::uint64_t number = running.empty() ? 1 : running.back().number + 1;
    UniqueFd file;
    for (int tries = 0;; ++tries, ++number) {
        file = UniqueFd(::openat(folder.number(), nameOf(number, lockSuffix).c_str(),
                                 O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                                 S_IRUSR | S_IWUSR));
        if (file) {
            break;
        }
        if (errno != EEXIST || tries == maxNumbersTried) {
            return SystemError{errno};
        }
    }
    const int descriptor = file.number();
    auto files = std::make_unique<InstanceFiles>(std::move(folder), std::move(file), number);
    if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        return SystemError{errno};
    }
    if (const auto failure = files->listen(std::move(requests))) {
        return *failure;
    }
    return files;
}

std::optional<SystemError> InstanceFiles::listen(InstanceRequests requests) {
    auto socket = MessageSocket::listen(folder_.pathOf(nameOf(number_, socketSuffix)),
                                        [this, requests = std::move(requests)](
                                            std::string_view message) { obey(requests, message); });
    if (!socket) {
        return socket.error();
    }
    socket_ = std::move(*socket);
    return std::nullopt;
}

void InstanceFiles::obey(const InstanceRequests& requests, std::string_view message) const {
    if (message == quitMessage) {
        // Without a socket it counts as quitting.
        ::unlinkat(folder_.number(), nameOf(number_, socketSuffix).c_str(), 0);
        requests.quit();
    } else if (message.starts_with(frontMessage)) {
        requests.comeToFront(std::string(message.substr(frontMessage.size())));
    } else if (message.starts_with(openMessage)) {
        requests.openFolders(pathsIn(message.substr(openMessage.size())));
    }
}

class FolderRunningInstances final : public RunningInstances {
 public:
    FolderRunningInstances(std::vector<std::string> folders, std::chrono::milliseconds patience)
        : folders_(std::move(folders)), patience_(patience) {}

    Result<RunningInstance> join(InstanceRequests requests) override {
        SystemError failure{ENOENT};
        for (const std::string& path : folders_) {
            auto folder = PrivateFolder::open(path);
            if (!folder) {
                failure = folder.error();
                continue;
            }
            auto files = InstanceFiles::take(std::move(*folder), requests, patience_);
            if (files) {
                files_ = std::move(*files);
                return files_->instance();
            }
            failure = files.error();
            if (failure.code == EBUSY) {
                // The others are in this folder; in another one this instance would not see them.
                break;
            }
        }
        return failure;
    }

    void leave() override { files_.reset(); }

    std::vector<RunningInstance> instances() override {
        if (files_ == nullptr) {
            return {};
        }
        const auto lock = FolderLock::take(files_->folder().path(), patience_);
        return lock ? runningInstances(files_->folder())
                    : std::vector<RunningInstance>{files_->instance()};
    }

    bool askToQuit(RunningInstance instance) override {
        return send(instance, std::string(quitMessage));
    }

    bool bringToFront(RunningInstance instance, const std::string& activationToken) override {
        const bool isToken = activationToken.size() <= maxTokenBytes;
        return send(instance,
                    std::string(frontMessage) + (isToken ? activationToken : std::string()));
    }

    bool openFolders(RunningInstance instance, const std::vector<std::string>& folders) override {
        bool all = std::all_of(folders.begin(), folders.end(), fitsMessage);
        for (const std::string& message : messagesOf(folders)) {
            all = send(instance, message) && all;
        }
        return all;
    }

 private:
    [[nodiscard]] bool send(RunningInstance instance, const std::string& message) const {
        return files_ != nullptr &&
               MessageSocket::send(files_->folder().pathOf(nameOf(instance.number, socketSuffix)),
                                   message);
    }

    const std::vector<std::string> folders_;
    // The lock is held for a few system calls only, which take long on a busy machine.
    const std::chrono::milliseconds patience_;
    std::unique_ptr<InstanceFiles> files_;
};

}  // namespace

std::unique_ptr<RunningInstances> makeRunningInstances(std::vector<std::string> folders,
                                                       std::chrono::milliseconds patience) {
    return std::make_unique<FolderRunningInstances>(std::move(folders), patience);
}

}  // namespace tarvin
