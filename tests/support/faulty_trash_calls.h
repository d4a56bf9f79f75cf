#pragma once

#include "platform/linux/trash_calls.h"

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <utility>

namespace tarvin {

enum class TrashCall {
    openFolder,
    makeFolder,
    createFile,
    openFile,
    read,
    write,
    close,
    renameExclusively,
    rename,
    link,
    unlink,
    status,
    targetStatus,
    statusOf,
    flush,
    maxNameLength
};

/// The real calls with counters and fault injection. One thread at a time.
class FaultyTrashCalls final : public TrashCalls {
 public:
    /// Makes every call of this kind fail with errno `code`, until heal().
    void fail(TrashCall call, int code) { failing_[call] = code; }
    /// Makes only the next call of this kind fail.
    void failNext(TrashCall call, int code) { failingNext_[call] = code; }
    /// Makes one of the following calls of any kind fail: the one with this number, from 0.
    void failOnce(std::size_t number, int code) {
        failingNumber_ = made_ + number;
        failingCode_ = code;
    }
    void heal() {
        failing_.clear();
        failingNumber_.reset();
    }
    /// Limits each write to this many bytes.
    void limitWrites(std::size_t bytes) { maxWritten_ = bytes; }
    void limitNames(std::size_t bytes) { maxNameLength_ = bytes; }
    /// Runs `action` once, before the next call of this kind.
    void before(TrashCall call, std::function<void()> action) {
        action_ = std::move(action);
        actionCall_ = call;
    }

    [[nodiscard]] std::size_t made() const { return made_; }
    [[nodiscard]] std::size_t made(TrashCall call) const {
        const auto found = counts_.find(call);
        return found == counts_.end() ? 0 : found->second;
    }
    /// Whether the call of failOnce() was made.
    [[nodiscard]] bool hasFailed() const { return hasFailed_; }
    /// Files that were created and not closed again.
    [[nodiscard]] std::size_t filesOpen() const { return open_.size(); }

    int openFolder(int folder, const char* path, int& number) override {
        const int failure = failureOf(TrashCall::openFolder);
        return failure != 0 ? failure : TrashCalls::openFolder(folder, path, number);
    }
    int makeFolder(int folder, const char* path) override {
        const int failure = failureOf(TrashCall::makeFolder);
        return failure != 0 ? failure : TrashCalls::makeFolder(folder, path);
    }
    int createFile(int folder, const char* name, int& number) override {
        int failure = failureOf(TrashCall::createFile);
        failure = failure != 0 ? failure : TrashCalls::createFile(folder, name, number);
        if (failure == 0) {
            open_.insert(number);
        }
        return failure;
    }
    int openFile(int folder, const char* name, int& number) override {
        const int failure = failureOf(TrashCall::openFile);
        return failure != 0 ? failure : TrashCalls::openFile(folder, name, number);
    }
    int read(int number, char* bytes, std::size_t size, std::size_t& count) override {
        const int failure = failureOf(TrashCall::read);
        return failure != 0 ? failure : TrashCalls::read(number, bytes, size, count);
    }
    int write(int number, const char* bytes, std::size_t size, std::size_t& written) override {
        const int failure = failureOf(TrashCall::write);
        return failure != 0 ? failure
                            : TrashCalls::write(number, bytes,
                                                size < maxWritten_ ? size : maxWritten_, written);
    }
    /// Closes the descriptor also if the call has a fault.
    int close(int number) override {
        const int failure = failureOf(TrashCall::close);
        open_.erase(number);
        const int closing = TrashCalls::close(number);
        return failure != 0 ? failure : closing;
    }
    int renameExclusively(int from, const char* name, int to, const char* newName) override {
        const int failure = failureOf(TrashCall::renameExclusively);
        return failure != 0 ? failure : TrashCalls::renameExclusively(from, name, to, newName);
    }
    int rename(int from, const char* name, int to, const char* newName) override {
        const int failure = failureOf(TrashCall::rename);
        return failure != 0 ? failure : TrashCalls::rename(from, name, to, newName);
    }
    int link(int from, const char* name, int to, const char* newName) override {
        const int failure = failureOf(TrashCall::link);
        return failure != 0 ? failure : TrashCalls::link(from, name, to, newName);
    }
    int unlink(int folder, const char* name) override {
        const int failure = failureOf(TrashCall::unlink);
        return failure != 0 ? failure : TrashCalls::unlink(folder, name);
    }
    int status(int folder, const char* path, TrashEntryStatus& status) override {
        const int failure = failureOf(TrashCall::status);
        return failure != 0 ? failure : TrashCalls::status(folder, path, status);
    }
    int targetStatus(int folder, const char* path, TrashEntryStatus& status) override {
        const int failure = failureOf(TrashCall::targetStatus);
        return failure != 0 ? failure : TrashCalls::targetStatus(folder, path, status);
    }
    int statusOf(int number, TrashEntryStatus& status) override {
        const int failure = failureOf(TrashCall::statusOf);
        return failure != 0 ? failure : TrashCalls::statusOf(number, status);
    }
    int flush(int folder) override {
        const int failure = failureOf(TrashCall::flush);
        return failure != 0 ? failure : TrashCalls::flush(folder);
    }
    int maxNameLength(int folder, std::size_t& bytes) override {
        const int failure = failureOf(TrashCall::maxNameLength);
        if (failure != 0 || !maxNameLength_) {
            return failure != 0 ? failure : TrashCalls::maxNameLength(folder, bytes);
        }
        bytes = *maxNameLength_;
        return 0;
    }

 private:
    int failureOf(TrashCall call) {
        if (action_ && actionCall_ == call) {
            std::exchange(action_, nullptr)();
        }
        ++counts_[call];
        if (made_++ == failingNumber_) {
            hasFailed_ = true;
            return failingCode_;
        }
        if (const auto next = failingNext_.extract(call)) {
            return next.mapped();
        }
        const auto found = failing_.find(call);
        return found == failing_.end() ? 0 : found->second;
    }

    std::map<TrashCall, int> failing_;
    std::map<TrashCall, int> failingNext_;
    std::map<TrashCall, std::size_t> counts_;
    std::set<int> open_;
    std::size_t made_ = 0;
    std::optional<std::size_t> failingNumber_;
    int failingCode_ = 0;
    bool hasFailed_ = false;
    std::size_t maxWritten_ = static_cast<std::size_t>(-1);
    std::optional<std::size_t> maxNameLength_;
    std::function<void()> action_;
    TrashCall actionCall_ = TrashCall::openFolder;
};

}  // namespace tarvin
