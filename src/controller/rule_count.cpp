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
    [[nodiscard]] std::vector<RuleFolder> foldersAt(const std::vector<std::string>& paths,
                                                    const ScanWays& ways);
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
        const ScanWays ways = scanWaysOf(locations, fileSystem);
        result.rule.protectedFolders = foldersAt(choice.protectedFolders, ways);
        if (prefers) {
            result.rule.preferred = foldersAt(choice.preferred, ways);
        }
    }
    readList([&](const Modal& modal) { result.outcome = countByRule(modal, result.rule); });
    isDone = true;
}

/// A folder that is gone now may have been there during the scan: its files keep its path.
std::vector<RuleFolder> RuleCount::Job::foldersAt(const std::vector<std::string>& paths,
                                                  const ScanWays& ways) {
    std::vector<RuleFolder> folders;
    for (const std::string& path : paths) {
        const FoundFolder found = findRuleFolder(path, fileSystem);
        if (found.isGone) {
            result.gone.push_back(path);
        }
        folders.push_back(folderInScan(found, ways));
    }
    return folders;
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
