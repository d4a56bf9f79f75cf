#include "controller/rule_lookup.h"

#include "platform/threads.h"

#include <thread>
#include <utility>

namespace tarvin {

namespace {

std::atomic<int> runningLookups{0};

}  // namespace

template <typename Key, typename Value, typename Find>
RuleLookup::Asked<Value> RuleLookup::ask(Open<Key, Value>& open, const Key& key, const Find& find) {
    Asked<Value> asked;
    {
        const std::lock_guard lock(mutex_);
        Asked<Value>& known = open[key];
        if (known) {
            return known;
        }
        known = std::make_shared<Question<Value>>();
        asked = known;
    }
    ++runningLookups;
    const auto run = [self = shared_from_this(), asked, &open, key, find] {
        Value answer = find(self->fileSystem_, key);
        {
            const std::lock_guard lock(self->mutex_);
            self->note(key, answer);
            asked->answer = std::move(answer);
            open.erase(key);
        }
        self->answered_.notify_all();
        --runningLookups;
    };
    if (std::thread thread = startThread(run); thread.joinable()) {
        thread.detach();
    } else {
        run();
    }
    return asked;
}

RuleLookup::Asked<FoundFolder> RuleLookup::askForFolder(const std::string& path) {
    return ask(folders_, path, [](FileSystem& fileSystem, const std::string& of) {
        return findRuleFolder(of, fileSystem);
    });
}

RuleLookup::Asked<ScanWays> RuleLookup::askForWays(const std::vector<std::string>& locations) {
    return ask(ways_, locations, [](FileSystem& fileSystem, const std::vector<std::string>& of) {
        return scanWaysOf(of, fileSystem);
    });
}

void RuleLookup::note(const std::string& path, const FoundFolder& folder) {
    lookedUp_[path] = folder.isGone;
}

void RuleLookup::wake() {
    {
        // Nobody is between the check of `stop` and the wait.
        const std::lock_guard lock(mutex_);
    }
    answered_.notify_all();
}

bool RuleLookup::isAsking() const {
    const std::lock_guard lock(mutex_);
    return !folders_.empty();
}

std::vector<LookedUpFolder> RuleLookup::takeLookedUp() {
    const std::lock_guard lock(mutex_);
    std::vector<LookedUpFolder> folders;
    for (const auto& [path, isGone] : std::exchange(lookedUp_, {})) {
        folders.push_back({path, isGone});
    }
    return folders;
}

int RuleLookup::running() {
    return runningLookups;
}

}  // namespace tarvin
