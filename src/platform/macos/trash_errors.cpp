#include "platform/macos/trash_errors.h"

#include <cerrno>
#include <string_view>

namespace tarvin::macos {

namespace {

constexpr std::string_view cocoaDomain = "NSCocoaErrorDomain";
constexpr long noSuchFile = 4;
constexpr long noReadPermission = 257;
constexpr long noSuchFileToRead = 260;
constexpr long noWritePermission = 513;
constexpr long fileExists = 516;
constexpr long outOfSpace = 640;
constexpr long readOnlyVolume = 642;
constexpr long unsupported = 3328;  // the volume has no Trash

/// The closest error number.
int codeOf(const TrashAnswer& answer) {
    if (answer.posixCode != 0) {
        return answer.posixCode;
    }
    if (answer.domain != cocoaDomain) {
        return EIO;
    }
    switch (answer.code) {
        case noSuchFile:
        case noSuchFileToRead:
            return ENOENT;
        case noReadPermission:
        case noWritePermission:
            return EACCES;
        case fileExists:
            return EEXIST;
        case outOfSpace:
            return ENOSPC;
        case readOnlyVolume:
            return EROFS;
        case unsupported:
            return ENOTSUP;
        default:
            return EIO;
    }
}

}  // namespace

TrashRefusal refusalOf(const TrashAnswer& answer) {
    const SystemError error{codeOf(answer)};
    TrashRefusal refusal{TrashRefusalKind::system, error,
                         answer.reason.empty() ? error.text() : answer.reason};
    if (error.code == ENOENT) {
        refusal.kind = TrashRefusalKind::gone;
    } else if (answer.domain == cocoaDomain && answer.code == unsupported) {
        refusal.kind = TrashRefusalKind::noVolume;
    }
    return refusal;
}

}  // namespace tarvin::macos
