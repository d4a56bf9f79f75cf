#include "platform/posix/exclusive_rename.h"

#include <cerrno>
#include <cstdio>

namespace tarvin {

int renameExclusively(int from, const char* name, int to, const char* newName) {
    return ::renameat2(from, name, to, newName, RENAME_NOREPLACE) == 0 ? 0 : errno;
}

bool isUnsupportedRename(int failure) {
    return failure == EINVAL || failure == ENOSYS || failure == EOPNOTSUPP;
}

}  // namespace tarvin
