#include "platform/exclusive_rename.h"

#include <fcntl.h>

#include <cerrno>
#include <cstdio>

namespace tarvin {

int renameExclusively(const std::string& from, const std::string& to) {
    return ::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0 ? 0
                                                                                            : errno;
}

}  // namespace tarvin
