#pragma once

#include <string>

namespace tarvin::macos {

// The parts of the Objective-C runtime and of Foundation that we call, through their C interface.
// Both are loaded on first use, so that the programs link without Apple's frameworks. Any thread.

/// The answer of moveToTrash().
struct TrashAnswer {
    bool isMoved = false;
    std::string path{};  ///< where the file is now; native bytes; empty if the system did not tell
    std::string domain{};  ///< of the error, such as "NSCocoaErrorDomain"
    long code = 0;         ///< in the domain
    int posixCode = 0;     ///< of the error below it in NSPOSIXErrorDomain; 0 if there is none
    std::string reason{};  ///< in the user's language, without the name of the file; may be empty
};

/// `-[NSFileManager trashItemAtURL:resultingItemURL:error:]`, as the Finder does it: "Put Back" in
/// the Trash works. `path` is absolute.
[[nodiscard]] TrashAnswer moveToTrash(const std::string& path);

}  // namespace tarvin::macos
