#include "controller/export_run.h"

#include "controller/left_threads.h"
#include "platform/threads.h"
#include "report/output_file.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>
#include <optional>
#include <string_view>
#include <thread>
#include <utility>

namespace tarvin {

namespace {

/// How long the end of the program waits for the file, and then for its removal.
constexpr std::chrono::seconds patienceWithFile{2};
constexpr std::chrono::seconds patienceWithRemoval{1};

/// Parts of the text that wait to be written; each is about 256 KiB.
constexpr std::size_t maxWaitingParts = 16;

}  // namespace

/// The calls of `calls`, but no file is replaced when the run was cancelled.
class ExportRun::Calls final : public FileCalls {
 public:
    Calls(FileCalls& calls, const std::atomic<bool>& cancelled)
        : calls_(calls), cancelled_(cancelled) {}

    int createFile(const char* path, int flags, UniqueFd& file) override {
        return calls_.createFile(path, flags, file);
    }
    int openFolder(const char* path, UniqueFd& folder) override {
        return calls_.openFolder(path, folder);
    }
    int write(int descriptor, std::string_view bytes, std::size_t& written) override {
        return calls_.write(descriptor, bytes, written);
    }
    int sync(int descriptor) override { return calls_.sync(descriptor); }
    int rename(const char* from, const char* to) override {
        return cancelled_ ? ECANCELED : calls_.rename(from, to);
    }

 private:
    FileCalls& calls_;
    const std::atomic<bool>& cancelled_;
};

/// What the threads share.
class ExportRun::Shared final {
 public:
    Shared(std::string path, FileCalls& calls, std::function<void()> over)
        : path_(std::move(path)), calls_(calls, cancelled_), over_(std::move(over)) {}

    // On the thread that makes the text.

    /// Blocks while enough parts wait. Fails if nobody wants them.
    std::optional<SystemError> add(std::string_view part) {
        std::unique_lock lock(mutex_);
        changed_.wait(lock,
                      [this] { return parts_.size() < maxWaitingParts || isOver_ || cancelled_; });
        if (isOver_ || cancelled_) {
            return SystemError{ECANCELED};
        }
        parts_.emplace_back(part);
        changed_.notify_all();
        return std::nullopt;
    }

    void endText() {
        const std::lock_guard lock(mutex_);
        isTextComplete_ = true;
        changed_.notify_all();
    }

    // On the thread that writes.

    void run() { end(write()); }

    void end(std::string failure) {
        const std::lock_guard lock(mutex_);
        failure_ = std::move(failure);
        isOver_ = true;
        leftThreads -= isLeft_ ? 1 : 0;
        if (over_) {
            over_();
        }
        changed_.notify_all();
    }

    // On any thread.

    void removeTemporary() {
        std::shared_ptr<OutputFile> file;
        {
            const std::lock_guard lock(mutex_);
            file = file_;
        }
        if (file != nullptr) {
            file->removeTemporary();
        }
        const std::lock_guard lock(mutex_);
        isRemoved_ = true;
        changed_.notify_all();
    }

    // On the main thread.

    void cancel() {
        const std::lock_guard lock(mutex_);
        cancelled_ = true;
        over_ = {};
        changed_.notify_all();
    }

    void waitForFile() {
        std::unique_lock lock(mutex_);
        changed_.wait_for(lock, patienceWithFile, [this] { return isOver_; });
    }

    void leave() {
        std::unique_lock lock(mutex_);
        changed_.wait_for(lock, patienceWithRemoval, [this] { return isOver_ || isRemoved_; });
        isLeft_ = !isOver_;
        leftThreads += isLeft_ ? 1 : 0;
    }

    [[nodiscard]] bool isOver() {
        const std::lock_guard lock(mutex_);
        return isOver_;
    }
    [[nodiscard]] const std::string& failure() const { return failure_; }

 private:
    /// The next part; nullopt if there is no other.
    std::optional<std::string> take() {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return !parts_.empty() || isTextComplete_ || cancelled_; });
        if (parts_.empty() || cancelled_) {
            return std::nullopt;
        }
        std::string part = std::move(parts_.front());
        parts_.pop_front();
        changed_.notify_all();
        return part;
    }

    /// Returns the failure.
    std::string write() {
        auto opened = OutputFile::openRegular(path_, calls_);
        if (!opened) {
            return opened.error();
        }
        const std::shared_ptr<OutputFile> file = std::move(*opened);
        {
            const std::lock_guard lock(mutex_);
            file_ = file;
        }
        while (const std::optional<std::string> part = take()) {
            file->output().append(*part);
            if (file->output().error()) {
                break;
            }
        }
        std::optional<SystemError> failure = SystemError{ECANCELED};
        if (!cancelled_) {
            failure = file->commit();
        }
        const std::lock_guard lock(mutex_);
        file_.reset();
        return failure ? failure->text() : std::string();
    }

    const std::string path_;
    std::atomic<bool> cancelled_{false};  // written with mutex_
    Calls calls_;                         // the writing thread's
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<std::string> parts_;     // guarded by mutex_
    bool isTextComplete_ = false;       // guarded by mutex_
    std::function<void()> over_;        // guarded by mutex_
    std::shared_ptr<OutputFile> file_;  // guarded by mutex_, for removeTemporary()
    std::string failure_;               // guarded by mutex_ until it is over
    bool isOver_ = false;               // guarded by mutex_
    bool isRemoved_ = false;            // guarded by mutex_
    bool isLeft_ = false;               // guarded by mutex_
};

ExportRun::ExportRun(Job job, FileCalls& calls, std::function<void()> over)
    : job_(std::move(job)), shared_(std::make_shared<Shared>(job_.path, calls, std::move(over))) {
    std::thread writer = startThread([shared = shared_] { shared->run(); });
    if (!writer.joinable()) {
        shared_->end(SystemError{EAGAIN}.text());
        return;
    }
    writer.detach();
    textThread_.start(
        [this] {
            Output text([this](std::string_view part) { return shared_->add(part); });
            writeReport(job_.format, job_.report, text);
            text.flush();
        },
        [this] { shared_->endText(); });
}

ExportRun::~ExportRun() {
    if (!cancelled_) {
        shared_->waitForFile();
    }
    cancel();
    if (isOver()) {
        return;
    }
    if (std::thread remover = startThread([shared = shared_] { shared->removeTemporary(); });
        remover.joinable()) {
        remover.detach();
    }
    shared_->leave();
}

void ExportRun::cancel() {
    cancelled_ = true;
    shared_->cancel();
    textThread_.wait();
}

bool ExportRun::isOver() const {
    return shared_->isOver();
}

const std::string& ExportRun::failure() const {
    return shared_->failure();
}

}  // namespace tarvin
