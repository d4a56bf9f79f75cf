#include "platform/macos/objective_c.h"

#include "platform/macos/load_symbol.h"

#include <dlfcn.h>
#include <objc/message.h>
#include <objc/runtime.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstddef>
#include <string_view>

namespace tarvin::macos {

namespace {

/// The functions of libobjc.
class Runtime final {
 public:
    Runtime() {
        void* const library = ::dlopen("/usr/lib/libobjc.A.dylib", RTLD_LAZY);
        const bool hasFoundation =
            ::dlopen("/System/Library/Frameworks/Foundation.framework/Foundation", RTLD_LAZY) !=
            nullptr;
        if (library == nullptr || !hasFoundation) {
            return;
        }
        const bool all = loadSymbol(library, "objc_getClass", findClass) &&
                         loadSymbol(library, "sel_registerName", findSelector) &&
                         loadSymbol(library, "objc_msgSend", sendMessage) &&
                         loadSymbol(library, "objc_autoreleasePoolPush", pushPool) &&
                         loadSymbol(library, "objc_autoreleasePoolPop", popPool);
        isComplete = all;
    }

    bool isComplete = false;
    id (*findClass)(const char* name) = nullptr;
    SEL (*findSelector)(const char* name) = nullptr;
    void (*sendMessage)() = nullptr;
    void* (*pushPool)() = nullptr;
    void (*popPool)(void* pool) = nullptr;
};

const Runtime& runtime() {
    static const Runtime runtime;
    return runtime;
}

/// `[receiver selector: arguments...]`. The selector must take and return these types.
template <typename Answer, typename... Arguments>
Answer send(id receiver, const char* selector, Arguments... arguments) {
    // objc_msgSend is called like the method that it finds.
    using Method = Answer (*)(id, SEL, Arguments...);
    const auto method = reinterpret_cast<Method>(runtime().sendMessage);
    return method(receiver, runtime().findSelector(selector), arguments...);
}

/// Frees what the calls in between have made. RAII.
class Pool final {
 public:
    Pool() : pool_(runtime().pushPool()) {}
    Pool(const Pool&) = delete;
    Pool& operator=(const Pool&) = delete;
    ~Pool() { runtime().popPool(pool_); }

 private:
    void* const pool_;
};

/// The bytes of an NSString; empty for nil.
std::string textOf(id string) {
    const char* const bytes = string == nullptr ? nullptr : send<const char*>(string, "UTF8String");
    return bytes == nullptr ? std::string() : std::string(bytes);
}

/// The path of a file URL in the file system's own bytes; empty for nil and for a path that is too
/// long.
std::string pathOf(id url) {
    std::array<char, PATH_MAX> path{};
    const bool isPath =
        url != nullptr &&
        send<BOOL>(url, "getFileSystemRepresentation:maxLength:", path.data(), path.size());
    return isPath ? std::string(path.data()) : std::string();
}

/// A file URL that is no link to be followed and not a folder's.
id urlOf(const std::string& path) {
    return send<id>(runtime().findClass("NSURL"),
                    "fileURLWithFileSystemRepresentation:isDirectory:relativeToURL:", path.c_str(),
                    static_cast<BOOL>(false), static_cast<id>(nullptr));
}

void addError(TrashAnswer& answer, id error) {
    if (error == nullptr) {
        return;
    }
    answer.domain = textOf(send<id>(error, "domain"));
    answer.code = send<long>(error, "code");
    answer.reason = textOf(send<id>(error, "localizedFailureReason"));
    id below = error;
    // NSUnderlyingErrorKey has this value. A chain of errors is short.
    const id key =
        send<id>(runtime().findClass("NSString"), "stringWithUTF8String:", "NSUnderlyingError");
    constexpr int longestChain = 8;
    for (int depth = 0; below != nullptr && depth < longestChain; ++depth) {
        if (textOf(send<id>(below, "domain")) == "NSPOSIXErrorDomain") {
            answer.posixCode = static_cast<int>(send<long>(below, "code"));
            return;
        }
        const id details = send<id>(below, "userInfo");
        below = details == nullptr ? nullptr : send<id>(details, "objectForKey:", key);
    }
}

}  // namespace

TrashAnswer moveToTrash(const std::string& path) {
    TrashAnswer answer;
    if (!runtime().isComplete) {
        answer.posixCode = ENOSYS;
        return answer;
    }
    const Pool pool;
    const id manager = send<id>(runtime().findClass("NSFileManager"), "defaultManager");
    const id url = urlOf(path);
    if (manager == nullptr || url == nullptr) {
        answer.posixCode = ENOSYS;
        return answer;
    }
    id result = nullptr;
    id error = nullptr;
    answer.isMoved =
        send<BOOL>(manager, "trashItemAtURL:resultingItemURL:error:", url, &result, &error);
    if (answer.isMoved) {
        answer.path = pathOf(result);
    } else {
        addError(answer, error);
    }
    return answer;
}

}  // namespace tarvin::macos
