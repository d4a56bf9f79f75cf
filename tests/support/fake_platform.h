#pragma once

#include "platform/platform.h"
#include "support/fake_running_instances.h"
#include "support/fake_trash.h"
#include "support/held_trash.h"

#include <chrono>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {

/// A clock that only the test advances. Any thread.
class FakeClock final : public Clock {
 public:
    Timestamp now() override {
        const std::lock_guard lock(mutex_);
        return now_;
    }

    std::chrono::steady_clock::time_point steadyNow() override {
        const std::lock_guard lock(mutex_);
        return steadyNow_;
    }

    /// Sets the date and time like a user; the steady clock is not changed.
    void set(Timestamp now) {
        const std::lock_guard lock(mutex_);
        now_ = now;
    }

    /// Advances both clocks.
    void advance(std::chrono::nanoseconds time) {
        const std::lock_guard lock(mutex_);
        now_ += time;
        steadyNow_ += time;
    }

 private:
    std::mutex mutex_;
    Timestamp now_{std::chrono::sys_days(std::chrono::year(2026) / 1 / 31)};  // guarded by mutex_
    std::chrono::steady_clock::time_point steadyNow_{};                       // guarded by mutex_
};

/// A platform that returns what the test has set: at first no volumes, no user, no folders, and
/// `fileSystem`, which must outlive it. Any thread.
class FakePlatform final : public Platform {
 public:
    explicit FakePlatform(FileSystem& fileSystem = systemFileSystem()) : fileSystem_(fileSystem) {}

    FileSystem& fileSystem() override { return fileSystem_; }
    FakeClock& clock() override { return clock_; }
    std::unique_ptr<TrashMover> makeTrashMover() override {
        if (!trashUser_) {
            return trash_.makeMover();
        }
        return std::make_unique<HeldTrash>(tarvin::makeTrashMover(*trashUser_), beforePutBack_);
    }
    /// Moves files to the real Trash of this user instead of trash(). Call before anything is
    /// moved.
    void useTrashOf(TrashUser user, HeldTrash::BeforePutBack beforePutBack) {
        trashUser_ = std::move(user);
        beforePutBack_ = std::move(beforePutBack);
    }
    FakeTrash& trash() { return trash_; }
    /// Used on one thread at a time, like every RunningInstances.
    FakeRunningInstances& runningInstances() override { return runningInstances_; }

    std::vector<Volume> mountedVolumes() override {
        const std::lock_guard lock(mutex_);
        return volumes_;
    }

    MountPlaces mountPlaces() override {
        const std::lock_guard lock(mutex_);
        return mountPlaces_;
    }

    bool isOnNetwork(const std::string& path) override {
        const std::lock_guard lock(mutex_);
        return !networkFolder_.empty() && path.starts_with(networkFolder_);
    }

    std::optional<std::string> userName() override {
        const std::lock_guard lock(mutex_);
        return userName_;
    }

    std::optional<std::string> userFolder(UserFolder folder) override {
        const std::lock_guard lock(mutex_);
        const auto found = userFolders_.find(folder);
        return found == userFolders_.end() ? std::nullopt : found->second;
    }

    std::optional<std::string> applicationSupportFolder() override {
        const std::lock_guard lock(mutex_);
        return applicationSupportFolder_;
    }

    void setMountedVolumes(std::vector<Volume> volumes) {
        const std::lock_guard lock(mutex_);
        volumes_ = std::move(volumes);
    }

    /// At first "/" is mounted and nothing else is expected.
    void setMountPlaces(MountPlaces places) {
        const std::lock_guard lock(mutex_);
        mountPlaces_ = std::move(places);
    }

    /// Paths that begin with `path` are on a network volume.
    void setNetworkFolder(std::string path) {
        const std::lock_guard lock(mutex_);
        networkFolder_ = std::move(path);
    }

    void setUserName(std::optional<std::string> name) {
        const std::lock_guard lock(mutex_);
        userName_ = std::move(name);
    }

    void setUserFolder(UserFolder folder, std::optional<std::string> path) {
        const std::lock_guard lock(mutex_);
        userFolders_[folder] = std::move(path);
    }

    void setApplicationSupportFolder(std::optional<std::string> path) {
        const std::lock_guard lock(mutex_);
        applicationSupportFolder_ = std::move(path);
    }

 private:
    FileSystem& fileSystem_;
    FakeClock clock_;
    FakeTrash trash_;
    std::optional<TrashUser> trashUser_;
    HeldTrash::BeforePutBack beforePutBack_;
    FakeRunningInstances runningInstances_;
    std::mutex mutex_;
    std::vector<Volume> volumes_;                                   // guarded by mutex_
    MountPlaces mountPlaces_{{"/"}, {}};                            // guarded by mutex_
    std::string networkFolder_;                                     // guarded by mutex_
    std::optional<std::string> userName_;                           // guarded by mutex_
    std::map<UserFolder, std::optional<std::string>> userFolders_;  // guarded by mutex_
    std::optional<std::string> applicationSupportFolder_;           // guarded by mutex_
};

}  // namespace tarvin
