#include "controller/rule_count.h"

#include "platform/threads.h"
#include "scan/rule_folder.h"

#include <atomic>
#include <mutex>
#include <thread>
#include <utility>

namespace tarvin {

namespace {

std::atomic<int> runningCounts{0};

}  // namespace

struct RuleCount::Job {
    Job(FileSystem& files, std::shared_ptr<const Modal> counted, RuleChoice chosen)
        : fileSystem(files), list(std::move(counted)), choice(std::move(chosen)) {}

    void run();
    [[nodiscard]] std::vector<FolderPaths> pathsOf(const std::vector<std::string>& folders,
                                                   const std::vector<LinkedLocation>& linked);
    /// Calls `read` with the list, unless the job is abandoned.
    template <typename Read>
    void readList(const Read& read) {
        const std::lock_guard lock(reading);
        if (!abandoned) {
            read(*list);
        }
    }

    FileSystem& fileSystem;
    std::mutex reading;  // held while the list is read
    std::shared_ptr<const Modal> list;
    bool abandoned = false;  // guarded by reading
    const RuleChoice choice;
    std::atomic<bool> isDone{false};
    CountedRule result;  // of the thread until isDone
};

void RuleCount::Job::run() {
    result.rule.keep = choice.keep;
    const bool prefers = choice.keep == KeepRule::preferred && !choice.preferred.empty();
    if (prefers || !choice.protectedFolders.empty()) {
        std::vector<std::string> locations;
        readList([&](const Modal& modal) { locations = locationsOf(modal); });
        const std::vector<LinkedLocation> linked = linkedLocationsOf(locations);
        result.rule.protectedFolders = pathsOf(choice.protectedFolders, linked);
        if (prefers) {
            result.rule.preferred = pathsOf(choice.preferred, linked);
        }
    }
    readList([&](const Modal& modal) { result.outcome = countByRule(modal, result.rule); });
    isDone = true;
}

/// A folder that is gone now may have been there during the scan: its files keep its path.
std::vector<FolderPaths> RuleCount::Job::pathsOf(const std::vector<std::string>& folders,
                                                 const std::vector<LinkedLocation>& linked) {
    std::vector<FolderPaths> paths;
    for (const std::string& folder : folders) {
        const Result<std::string> resolved = ruleFolderAt(folder, fileSystem);
        if (!resolved) {
            result.gone.push_back(folder);
        }
        paths.push_back(pathsInScan(resolved ? *resolved : folder, linked));
    }
    return paths;
}

void RuleCount::start(std::shared_ptr<const Modal> list, const RuleChoice& choice) {
    abandon();
    job_ = std::make_shared<Job>(fileSystem_, std::move(list), choice);
    ++runningCounts;
    const auto run = [job = job_] {
        job->run();
        --runningCounts;
    };
    if (std::thread thread = startThread(run); thread.joinable()) {
        thread.detach();
    } else {
        run();
    }
}

std::optional<CountedRule> RuleCount::take() {
    if (!job_ || !job_->isDone) {
        return std::nullopt;
    }
    return std::move(std::exchange(job_, nullptr)->result);
}

void RuleCount::abandon() {
    if (const std::shared_ptr<Job> job = std::exchange(job_, nullptr)) {
        const std::lock_guard lock(job->reading);
        job->abandoned = true;
        // The thread may be left behind; the list is not to live as long.
        job->list.reset();
    }
}

int RuleCount::running() {
    return runningCounts;
}

}  // namespace tarvin
