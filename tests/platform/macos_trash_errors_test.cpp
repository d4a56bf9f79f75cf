#include "platform/macos/trash_errors.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace tarvin::macos {
namespace {

TrashAnswer cocoaError(long code) {
    return {.domain = "NSCocoaErrorDomain", .code = code};
}

TEST(MacTrashRefusal, OfAMissingFileIsGone) {
    for (const long code : {4L, 260L}) {
        EXPECT_EQ(refusalOf(cocoaError(code)).kind, TrashRefusalKind::gone) << code;
        EXPECT_EQ(refusalOf(cocoaError(code)).error, SystemError{ENOENT}) << code;
    }
}

TEST(MacTrashRefusal, OfAVolumeWithoutATrashSaysSo) {
    const TrashRefusal refusal = refusalOf(cocoaError(3328));
    EXPECT_EQ(refusal.kind, TrashRefusalKind::noVolume);
    EXPECT_EQ(refusal.error, SystemError{ENOTSUP});
}

TEST(MacTrashRefusal, HasTheClosestErrorNumber) {
    struct Row {
        long code;
        int number;
    };
    for (const Row row : {Row{257, EACCES}, Row{513, EACCES}, Row{516, EEXIST}, Row{640, ENOSPC},
                          Row{642, EROFS}, Row{512, EIO}, Row{0, EIO}}) {
        const TrashRefusal refusal = refusalOf(cocoaError(row.code));
        EXPECT_EQ(refusal.kind, TrashRefusalKind::system) << row.code;
        EXPECT_EQ(refusal.error, SystemError{row.number}) << row.code;
        EXPECT_EQ(refusal.text, SystemError{row.number}.text()) << row.code;
    }
}

TEST(MacTrashRefusal, PrefersTheNumberOfTheSystemCall) {
    TrashAnswer answer = cocoaError(512);
    answer.posixCode = EPERM;
    EXPECT_EQ(refusalOf(answer).error, SystemError{EPERM});
}

TEST(MacTrashRefusal, OfAnotherDomainHasNoMeaningOfItsNumber) {
    const TrashRefusal refusal = refusalOf({.domain = "NSOSStatusErrorDomain", .code = 4});
    EXPECT_EQ(refusal.kind, TrashRefusalKind::system);
    EXPECT_EQ(refusal.error, SystemError{EIO});
    const TrashAnswer unsupported{.domain = "NSOSStatusErrorDomain", .code = 3328};
    EXPECT_EQ(refusalOf(unsupported).kind, TrashRefusalKind::system);
}

TEST(MacTrashRefusal, HasTheSystemsReason) {
    TrashAnswer answer = cocoaError(513);
    answer.reason = "You don’t have permission.";
    EXPECT_EQ(refusalOf(answer).text, "You don’t have permission.");
}

}  // namespace
}  // namespace tarvin::macos
