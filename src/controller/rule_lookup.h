#pragma once

#include "platform/file_system.h"
#include "scan/rule_folder.h"

#include <atomic>
#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace tarvin {

/// Whether a folder of a rule is there.
struct LookedUpFolder {
    std::string path;  ///< as it was asked for
    bool isGone = false;
};

/// Finds the folders of rules on disk. Each question has a background thread, and is not asked
/// again before it is answered: a volume that does not respond leaves one thread behind for each of
/// its folders, however often they are asked for. Created by std::make_shared(), because its
/// threads keep it alive. Any thread.
class RuleLookup final : public std::enable_shared_from_this<RuleLookup> {
 public:
    /// Its answer is guarded by the lookup's mutex.
    template <typename Value>
    struct Question {
        std::optional<Value> answer;
    };
    template <typename Value>
    using Asked = std::shared_ptr<Question<Value>>;

    /// `fileSystem` must outlive every thread, so normally the process.
    explicit RuleLookup(FileSystem& fileSystem) : fileSystem_(fileSystem) {}

    /// findRuleFolder() and scanWaysOf(). Return immediately, unless no thread can be started.
    [[nodiscard]] Asked<FoundFolder> askForFolder(const std::string& path);
    [[nodiscard]] Asked<ScanWays> askForWays(const std::vector<std::string>& locations);

    /// Blocks until there is an answer, or nullopt because `stop` was true when wake() was called.
    template <typename Value>
    [[nodiscard]] std::optional<Value> await(const Asked<Value>& asked,
                                             const std::atomic<bool>& stop) {
        std::unique_lock lock(mutex_);
        answered_.wait(lock, [&] { return asked->answer || stop; });
        return asked->answer;
    }
    void wake();

    /// Whether a folder has been asked for and there is no answer yet.
    [[nodiscard]] bool isAsking() const;
    /// The folders found or missed since the last call, by the latest answer.
    [[nodiscard]] std::vector<LookedUpFolder> takeLookedUp();

    /// The threads of all lookups that have not ended, left behind or not.
    [[nodiscard]] static int running();

 private:
    template <typename Key, typename Value>
    using Open = std::map<Key, Asked<Value>>;

    template <typename Key, typename Value, typename Find>
    Asked<Value> ask(Open<Key, Value>& open, const Key& key, const Find& find);
    void note(const std::string& path, const FoundFolder& folder);
    static void note(const std::vector<std::string>& /*locations*/, const ScanWays& /*ways*/) {}

    FileSystem& fileSystem_;
    mutable std::mutex mutex_;  // guards all fields below and the answers
    std::condition_variable answered_;
    Open<std::string, FoundFolder> folders_;  // without an answer
    Open<std::vector<std::string>, ScanWays> ways_;
    std::map<std::string, bool> lookedUp_;  // whether it is gone
};

}  // namespace tarvin
