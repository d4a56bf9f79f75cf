#include "platform/linux/trash_calls.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <cerrno>

namespace tarvin {

namespace {

constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK;

int outcome(int answer) {
    return answer == 0 ? 0 : errno;
}

int openAt(int folder, const char* path, int flags, int& number) {
    do {
        number = ::openat(folder, path, flags);
    } while (number < 0 && errno == EINTR);
    return number < 0 ? errno : 0;
}

int statusAt(int folder, const char* path, int flags, TrashEntryStatus& status) {
    struct statx answer{};
    constexpr unsigned mask = STATX_TYPE | STATX_MODE | STATX_UID | STATX_INO | STATX_MNT_ID;
    while (::statx(folder, path, flags | AT_NO_AUTOMOUNT, mask, &answer) != 0) {
        if (errno != EINTR) {
            return errno;
        }
    }
    status.identity = {makedev(answer.stx_dev_major, answer.stx_dev_minor), answer.stx_ino};
    // Linux 5.8 and later.
    status.mount = (answer.stx_mask & STATX_MNT_ID) != 0 ? answer.stx_mnt_id : 0;
    status.owner = answer.stx_uid;
    status.mode = answer.stx_mode;
    return 0;
}

}  // namespace

const int TrashCalls::currentFolder = AT_FDCWD;

int TrashCalls::openFolder(int folder, const char* path, int& number) {
    return openAt(folder, path, folderFlags, number);
}

int TrashCalls::makeFolder(int folder, const char* path) {
    return outcome(::mkdirat(folder, path, S_IRWXU));
}

int TrashCalls::openFile(int folder, const char* name, int& number) {
    return openAt(folder, name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, number);
}

int TrashCalls::read(int number, char* bytes, std::size_t size, std::size_t& count) {
    ssize_t answer = 0;
    do {
        answer = ::read(number, bytes, size);
    } while (answer < 0 && errno == EINTR);
    count = answer < 0 ? 0 : static_cast<std::size_t>(answer);
    return answer < 0 ? errno : 0;
}

int TrashCalls::write(int number, const char* bytes, std::size_t size, std::size_t& written) {
    ssize_t count = 0;
    do {
        count = ::write(number, bytes, size);
    } while (count < 0 && errno == EINTR);
    written = count < 0 ? 0 : static_cast<std::size_t>(count);
    return count < 0 ? errno : 0;
}

int TrashCalls::identityAt(int folder, const char* name, FileIdentity& identity) {
    TrashEntryStatus found;
    const int failure = status(folder, name, found);
    identity = found.identity;
    return failure;
}

int TrashCalls::status(int folder, const char* path, TrashEntryStatus& status) {
    return statusAt(folder, path, AT_SYMLINK_NOFOLLOW, status);
}

int TrashCalls::targetStatus(int folder, const char* path, TrashEntryStatus& status) {
    return statusAt(folder, path, 0, status);
}

int TrashCalls::statusOf(int number, TrashEntryStatus& status) {
    return statusAt(number, "", AT_EMPTY_PATH, status);
}

int TrashCalls::flush(int folder) {
    return outcome(::syncfs(folder));
}

int TrashCalls::maxNameLength(int folder, std::size_t& bytes) {
    struct statvfs answer{};
    if (::fstatvfs(folder, &answer) != 0) {
        return errno;
    }
    bytes = answer.f_namemax;
    return 0;
}

TrashCalls& systemTrashCalls() {
    static TrashCalls calls;
    return calls;
}

}  // namespace tarvin
