#pragma once

#include "platform/running_instances.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {

/// Fake instances of the program; at first this process is the only one. One thread at a time; the
/// requests are called synchronously, on that thread.
class FakeRunningInstances final : public RunningInstances {
 public:
    /// Makes join() fail with `error` from now on.
    void refuseToJoin(SystemError error) { refusal_ = error; }
    /// Sets the instances that run already, in order; their numbers may be below and above that of
    /// this process, which is `thisInstance`.
    void setOthers(std::vector<RunningInstance> others, RunningInstance thisInstance) {
        others_ = std::move(others);
        thisInstance_ = thisInstance;
    }
    /// The same as setOthers(), but they start just before this process joins.
    void letOthersComeFirst(std::vector<RunningInstance> others, RunningInstance thisInstance) {
        comingFirst_ = std::move(others);
        thisInstance_ = thisInstance;
    }
    /// Requests of another instance to this one. Requires that it has joined.
    void askThisToQuit() const { requests_.quit(); }
    void bringThisToFront(const std::string& activationToken = {}) const {
        requests_.comeToFront(activationToken);
    }

    void openInThis(const std::vector<std::string>& folders) const {
        requests_.openFolders(folders);
    }

    [[nodiscard]] bool hasJoined() const { return joined_; }
    [[nodiscard]] const std::vector<RunningInstance>& askedToQuit() const { return askedToQuit_; }
    [[nodiscard]] const std::vector<RunningInstance>& broughtToFront() const { return front_; }
    [[nodiscard]] const std::vector<std::string>& handedOn() const { return handedOn_; }
    [[nodiscard]] const std::string& lastToken() const { return lastToken_; }

    Result<RunningInstance> join(InstanceRequests requests) override {
        if (refusal_) {
            return *refusal_;
        }
        requests_ = std::move(requests);
        others_.insert(others_.end(), comingFirst_.begin(), comingFirst_.end());
        joined_ = true;
        return thisInstance_;
    }

    void leave() override { joined_ = false; }

    std::vector<RunningInstance> instances() override {
        if (!joined_) {
            return {};
        }
        std::vector<RunningInstance> all = others_;
        all.push_back(thisInstance_);
        std::sort(all.begin(), all.end(), [](RunningInstance one, RunningInstance other) {
            return one.number < other.number;
        });
        return all;
    }

    bool askToQuit(RunningInstance instance) override {
        if (!isThere(instance)) {
            return false;
        }
        askedToQuit_.push_back(instance);
        if (instance == thisInstance_) {
            requests_.quit();
        }
        return true;
    }

    bool bringToFront(RunningInstance instance, const std::string& activationToken) override {
        if (!isThere(instance)) {
            return false;
        }
        front_.push_back(instance);
        lastToken_ = activationToken;
        if (instance == thisInstance_) {
            requests_.comeToFront(activationToken);
        }
        return true;
    }

    bool openFolders(RunningInstance instance, const std::vector<std::string>& folders) override {
        if (!isThere(instance)) {
            return false;
        }
        handedOn_.insert(handedOn_.end(), folders.begin(), folders.end());
        if (instance == thisInstance_) {
            requests_.openFolders(folders);
        }
        return true;
    }

    /// Makes an instance exit just before the next request to it: instances() lists it once more.
    void endBeforeItIsAsked(RunningInstance instance) { ending_.push_back(instance); }

 private:
    bool isThere(RunningInstance instance) {
        if (std::erase(ending_, instance) > 0) {
            std::erase(others_, instance);
            return false;
        }
        return instance == thisInstance_ ||
               std::find(others_.begin(), others_.end(), instance) != others_.end();
    }

    InstanceRequests requests_;
    std::optional<SystemError> refusal_;
    std::vector<RunningInstance> others_;
    std::vector<RunningInstance> comingFirst_;
    std::vector<RunningInstance> ending_;
    RunningInstance thisInstance_{1};
    std::vector<RunningInstance> askedToQuit_;
    std::vector<RunningInstance> front_;
    std::vector<std::string> handedOn_;
    std::string lastToken_;
    bool joined_ = false;
};

}  // namespace tarvin
