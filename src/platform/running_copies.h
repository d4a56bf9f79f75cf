#pragma once

#include "platform/result.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tarvin {

/// One running copy of the program, of the same user.
struct RunningCopy {
    /// Copies with lower numbers were started earlier. No two that run at once have the same.
    std::uint64_t number = 0;

    bool operator==(const RunningCopy&) const = default;
};

/// What one copy of the program may ask another. Called on a thread of their own, one at a time;
/// they return soon and hand the work to the main thread.
struct CopyRequests {
    /// The copy shall end.
    std::function<void()> quit;
    /// The copy shall show its window in front of the others. The token, if there is one, is what
    /// the desktop wants to see from a program that takes the keyboard.
    std::function<void(const std::string& activationToken)> comeToFront;
    /// The copy shall offer these folders, absolute paths, to be scanned.
    std::function<void(const std::vector<std::string>& folders)> openFolders;
};

/// The copies of the program that a user has running at the same time. Copies that crashed, or have
/// been asked to quit, are not among them. Calls are made on one thread at a time; none waits
/// longer than a second.
class RunningCopies {
 public:
    virtual ~RunningCopies() = default;

    /// Makes this process known as a copy, last in order, until leave(). On failure there is no
    /// safe place to be known at; then copies() is empty and the program runs on its own. Called
    /// once.
    virtual Result<RunningCopy> join(CopyRequests requests) = 0;

    /// Ends what join() began; no request is called after it. Belongs at the very beginning of the
    /// program's end, so that a copy started just then does not count on this one. Never called
    /// by a request.
    virtual void leave() = 0;

    /// All copies that run now, this one included, in the order in which they were started. Empty
    /// if this process has not joined.
    virtual std::vector<RunningCopy> copies() = 0;

    /// Each asks one copy, which may be this one, and does not wait for it. False if the copy can
    /// no longer be asked.
    virtual bool askToQuit(RunningCopy copy) = 0;
    virtual bool bringToFront(RunningCopy copy, const std::string& activationToken) = 0;
    /// Hands absolute paths of folders, native bytes, to a copy. False if it does not get all of
    /// them: it is gone or busy, or a path is as long as hardly any system call takes it.
    virtual bool openFolders(RunningCopy copy, const std::vector<std::string>& folders) = 0;
};

/// The rule of the single copy: if several run, each but the first is asked to quit, whichever of
/// them this process is, and the first comes to the front. Copies that are started at the same
/// moment agree on the first. Called after join(). Answers the copy that stays; none if copies() is
/// empty.
std::optional<RunningCopy> keepFirstCopyOnly(RunningCopies& copies,
                                             const std::string& activationToken);

}  // namespace tarvin
