#include "platform/posix/exclusive_move.h"

#include "platform/posix/exclusive_rename.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <initializer_list>

namespace tarvin {

namespace {

constexpr int placeholderFlags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;

int errorOf(int answer) {
    return answer == 0 ? 0 : errno;
}

/// Whether the file system does not support hard links. Two of the numbers are one on some systems.
bool isUnknownLink(int code) {
    const std::initializer_list<int> codes{EPERM, ENOSYS, EOPNOTSUPP, ENOTSUP, EMLINK};
    return std::find(codes.begin(), codes.end(), code) != codes.end();
}

/// Reserves the name with an empty file, created exclusively, and then replaces that.
int moveOverPlaceholder(MoveCalls& calls, int from, const char* name, int to, const char* newName) {
    int number = -1;
    int failure = calls.createFile(to, newName, number);
    if (failure != 0) {
        return failure;
    }
    failure = calls.close(number);
    if (failure == 0) {
        failure = calls.rename(from, name, to, newName);
    }
    if (failure != 0) {
        static_cast<void>(calls.unlink(to, newName));
    }
    return failure;
}

}  // namespace

int MoveCalls::createFile(int folder, const char* name, int& number) {
    do {
        number = ::openat(folder, name, placeholderFlags, S_IRUSR | S_IWUSR);
    } while (number < 0 && errno == EINTR);
    return number < 0 ? errno : 0;
}

int MoveCalls::close(int number) {
    return errorOf(::close(number));
}

int MoveCalls::renameExclusively(int from, const char* name, int to, const char* newName) {
    return tarvin::renameExclusively(from, name, to, newName);
}

int MoveCalls::rename(int from, const char* name, int to, const char* newName) {
    return errorOf(::renameat(from, name, to, newName));
}

int MoveCalls::link(int from, const char* name, int to, const char* newName) {
    return errorOf(::linkat(from, name, to, newName, 0));
}

int MoveCalls::unlink(int folder, const char* name) {
    return errorOf(::unlinkat(folder, name, 0));
}

int MoveCalls::identityAt(int folder, const char* name, FileIdentity& identity) {
    struct stat status{};
    while (::fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) != 0) {
        if (errno != EINTR) {
            return errno;
        }
    }
    identity = {static_cast<std::uint64_t>(status.st_dev),
                static_cast<std::uint64_t>(status.st_ino)};
    return 0;
}

int moveExclusively(MoveCalls& calls, int from, const char* name, int to, const char* newName) {
    int failure = calls.renameExclusively(from, name, to, newName);
    if (!isUnsupportedRename(failure)) {
        return failure;
    }
    // A hard link does not replace anything; then the first name is removed.
    failure = calls.link(from, name, to, newName);
    if (isUnknownLink(failure)) {
        return moveOverPlaceholder(calls, from, name, to, newName);
    }
    if (failure != 0) {
        return failure;
    }
    // The file has its new name. The first one is removed unless another file has it by now; if the
    // system refuses that, it stays.
    FileIdentity there;
    FileIdentity here;
    if (calls.identityAt(from, name, there) == 0 && calls.identityAt(to, newName, here) == 0 &&
        there == here) {
        static_cast<void>(calls.unlink(from, name));
    }
    return 0;
}

}  // namespace tarvin
