#pragma once

#include "platform/result.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tarvin {

/// One running instance of the program, of the same user.
struct RunningInstance {
    /// Instances started earlier have lower numbers. No two that run at once have the same.
    std::uint64_t number = 0;

    bool operator==(const RunningInstance&) const = default;
};

/// Requests from other instances. Called on a background thread, one at a time; each returns soon
/// and queues the work to the main thread.
struct InstanceRequests {
    /// Quit.
    std::function<void()> quit;
    /// Raise the window. The token, if not empty, is the desktop's permission to take the focus
    /// (XDG_ACTIVATION_TOKEN).
    std::function<void(const std::string& activationToken)> comeToFront;
    /// Offer these folders, absolute paths, to be scanned.
    std::function<void(const std::vector<std::string>& folders)> openFolders;
};

/// The instances of the program that a user has running at the same time, without those that
/// crashed or were asked to quit. Calls are made on one thread at a time; none blocks for longer
/// than a second.
class RunningInstances {
 public:
    virtual ~RunningInstances() = default;

    /// Registers this process as the last instance, until leave(). On failure there is no safe
    /// folder to register in; then instances() is empty and the program runs on its own. Call at
    /// most once.
    virtual Result<RunningInstance> join(InstanceRequests requests) = 0;

    /// Ends what join() began; no request is called after it. Call it first when the program ends,
    /// so that an instance started just then does not rely on this one. Must not be called by a
    /// request.
    virtual void leave() = 0;

    /// All running instances, this one included, in the order in which they were started. Empty if
    /// this process has not joined.
    virtual std::vector<RunningInstance> instances() = 0;

    /// Each sends a request to one instance, which may be this one, and returns immediately. False
    /// if the instance cannot be reached any more.
    virtual bool askToQuit(RunningInstance instance) = 0;
    virtual bool bringToFront(RunningInstance instance, const std::string& activationToken) = 0;
    /// Passes absolute paths of folders, native bytes, to an instance. False if it does not get all
    /// of them: it is gone or busy, or a path does not fit into a message.
    virtual bool openFolders(RunningInstance instance, const std::vector<std::string>& folders) = 0;
};

/// The single-instance rule: of several instances all but the first are asked to quit, whichever of
/// them this process is, and the first is raised. Instances started at the same moment agree on the
/// first. Call after join(). Returns the instance that stays; nullopt if instances() is empty.
std::optional<RunningInstance> keepFirstInstanceOnly(RunningInstances& instances,
                                                     const std::string& activationToken);

}  // namespace tarvin
