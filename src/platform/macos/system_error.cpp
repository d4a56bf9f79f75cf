#include "platform/result.h"

#include <cerrno>
#include <system_error>

namespace tarvin {

std::string SystemError::text() const {
    // A file with a resource fork, which is not read (file_system.cpp). The system's own message is
    // "Inappropriate file type or format".
    if (code == EFTYPE) {
        return "Has a resource fork, which is not compared";
    }
    // What the system answers instead of fetching the content of a file or folder
    // (file_system.cpp). Its own message is "Resource deadlock avoided".
    return code == EDEADLK ? "Only in the cloud, not on this computer"
                           : std::generic_category().message(code);
}

}  // namespace tarvin
