#include "platform/posix/posix_file_system.h"

#include "platform/posix/open_paths.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <limits>

namespace tarvin {

namespace {

constexpr int directoryFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK;

}  // namespace

const int PosixFileSystem::fileFlags = O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC | O_NOCTTY;

Timestamp timestampFrom(std::int64_t seconds, std::int64_t nanoseconds) {
    constexpr std::int64_t perSecond = 1'000'000'000;
    constexpr std::int64_t lastSecond = std::numeric_limits<std::int64_t>::max() / perSecond - 1;
    if (seconds > lastSecond) {
        return Timestamp::max();
    }
    if (seconds < -lastSecond) {
        return Timestamp(std::chrono::seconds(-lastSecond));
    }
    return Timestamp(std::chrono::nanoseconds(seconds * perSecond + nanoseconds));
}

EntryType typeOfMode(std::uint32_t mode) {
    if (S_ISREG(mode)) {
        return EntryType::regular;
    }
    return S_ISDIR(mode) ? EntryType::directory : EntryType::other;
}

Result<Descriptor> PosixFileSystem::openRootDirectory(const std::string& path) {
    return opened(openAnyLength(path, directoryFlags));
}

Result<Descriptor> PosixFileSystem::openDirectory(const std::string& path) {
    return opened(openAnyLength(path, directoryFlags | O_NOFOLLOW));
}

Result<Descriptor> PosixFileSystem::openDirectoryAt(const Descriptor& parent, const char* name) {
    return opened(openAt(parent.number(), name, directoryFlags | O_NOFOLLOW));
}

Result<FileAttributes> PosixFileSystem::attributesAt(const Descriptor& directory,
                                                     const char* name) {
    return attributesFrom(directory.number(), name, AT_SYMLINK_NOFOLLOW);
}

Result<FileAttributes> PosixFileSystem::targetAttributesAt(const Descriptor& directory,
                                                           const char* name) {
    return attributesFrom(directory.number(), name, 0);
}

Result<std::size_t> PosixFileSystem::readAtLeast(const Descriptor& file, std::uint64_t offset,
                                                 std::span<std::byte> into, std::size_t enough) {
    std::size_t filled = 0;
    while (filled < enough) {
        const ssize_t got = ::pread(file.number(), into.data() + filled, into.size() - filled,
                                    static_cast<off_t>(offset + filled));
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got < 0) {
            return SystemError{errno};
        }
        if (got == 0) {
            break;
        }
        filled += static_cast<std::size_t>(got);
    }
    return filled;
}

std::size_t PosixFileSystem::descriptorLimit() {
    rlimit limit{};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0) {
        return 256;
    }
    return static_cast<std::size_t>(std::min<rlim_t>(limit.rlim_cur, mostDescriptors_));
}

Result<Descriptor> PosixFileSystem::opened(int number) {
    if (number < 0) {
        return SystemError{errno};
    }
    return Descriptor(*this, number);
}

std::optional<FileIdentity> PosixFileSystem::identityAt(const std::optional<std::string>& path) {
    if (!path) {
        return std::nullopt;
    }
    const Result<FileAttributes> attributes = attributesFrom(AT_FDCWD, path->c_str(), 0);
    return attributes ? std::optional(attributes->identity) : std::nullopt;
}

void PosixFileSystem::close(int number) {
    ::close(number);
}

}  // namespace tarvin
