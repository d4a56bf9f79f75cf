#pragma once

#include "platform/running_copies.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {

/// Fake instances of the program; at first this process is the only one. One thread at a time; the
/// requests are called synchronously, on that thread.
class FakeRunningCopies final : public RunningCopies {
 public:
    /// Makes join() fail with `error` from now on.
    void refuseToJoin(SystemError error) { refusal_ = error; }
    /// Sets the instances that run already, in order; their numbers may be below and above that of
    /// this process, which is `thisCopy`.
    void setOthers(std::vector<RunningCopy> others, RunningCopy thisCopy) {
        others_ = std::move(others);
        thisCopy_ = thisCopy;
    }
    /// Like setOthers(), but they start just before this process joins.
    void letOthersComeFirst(std::vector<RunningCopy> others, RunningCopy thisCopy) {
        comingFirst_ = std::move(others);
        thisCopy_ = thisCopy;
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
    [[nodiscard]] const std::vector<RunningCopy>& askedToQuit() const { return askedToQuit_; }
    [[nodiscard]] const std::vector<RunningCopy>& broughtToFront() const { return front_; }
    [[nodiscard]] const std::vector<std::string>& handedOn() const { return handedOn_; }
    [[nodiscard]] const std::string& lastToken() const { return lastToken_; }

    Result<RunningCopy> join(CopyRequests requests) override {
        if (refusal_) {
            return *refusal_;
        }
        requests_ = std::move(requests);
        others_.insert(others_.end(), comingFirst_.begin(), comingFirst_.end());
        joined_ = true;
        return thisCopy_;
    }

    void leave() override { joined_ = false; }

    std::vector<RunningCopy> copies() override {
        if (!joined_) {
            return {};
        }
        std::vector<RunningCopy> all = others_;
        all.push_back(thisCopy_);
        std::sort(all.begin(), all.end(),
                  [](RunningCopy one, RunningCopy other) { return one.number < other.number; });
        return all;
    }

    bool askToQuit(RunningCopy copy) override {
        if (!isThere(copy)) {
            return false;
        }
        askedToQuit_.push_back(copy);
        if (copy == thisCopy_) {
            requests_.quit();
        }
        return true;
    }

    bool bringToFront(RunningCopy copy, const std::string& activationToken) override {
        if (!isThere(copy)) {
            return false;
        }
        front_.push_back(copy);
        lastToken_ = activationToken;
        if (copy == thisCopy_) {
            requests_.comeToFront(activationToken);
        }
        return true;
    }

    bool openFolders(RunningCopy copy, const std::vector<std::string>& folders) override {
        if (!isThere(copy)) {
            return false;
        }
        handedOn_.insert(handedOn_.end(), folders.begin(), folders.end());
        if (copy == thisCopy_) {
            requests_.openFolders(folders);
        }
        return true;
    }

    /// Makes an instance exit just before the next request to it: copies() lists it once more.
    void endBeforeItIsAsked(RunningCopy copy) { ending_.push_back(copy); }

 private:
    bool isThere(RunningCopy copy) {
        if (std::erase(ending_, copy) > 0) {
            std::erase(others_, copy);
            return false;
        }
        return copy == thisCopy_ ||
               std::find(others_.begin(), others_.end(), copy) != others_.end();
    }

    CopyRequests requests_;
    std::optional<SystemError> refusal_;
    std::vector<RunningCopy> others_;
    std::vector<RunningCopy> comingFirst_;
    std::vector<RunningCopy> ending_;
    RunningCopy thisCopy_{1};
    std::vector<RunningCopy> askedToQuit_;
    std::vector<RunningCopy> front_;
    std::vector<std::string> handedOn_;
    std::string lastToken_;
    bool joined_ = false;
};

}  // namespace tarvin
