#include "platform/posix/exclusive_rename.h"

#include <cerrno>
#include <cstdio>

namespace tarvin {

int renameExclusively(int from, const char* name, int to, const char* newName) {
    return ::renameatx_np(from, name, to, newName, RENAME_EXCL) == 0 ? 0 : errno;
}

bool isUnsupportedRename(int failure) {
    // EINVAL: a file system that does not know the flag, such as an older network volume. ENOSYS:
    // some that are programs.
    return failure == ENOTSUP || failure == EINVAL || failure == ENOSYS;
}

}  // namespace tarvin
