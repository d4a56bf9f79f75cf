#include "controller/rule_count.h"

#include "platform/threads.h"

#include <atomic>
#include <mutex>
#include <string>
#include <thread>
#include <utility>

namespace tarvin {

namespace {

std::atomic<int> runningCounts{0};

}  // namespace

struct RuleCount::Job {
    using AskedFolders = std::vector<RuleLookup::Asked<FoundFolder>>;

    Job(std::shared_ptr<RuleLookup> asked, std::shared_ptr<const Modal> counted, RuleChoice chosen)
        : lookup(std::move(asked)), list(std::move(counted)), choice(std::move(chosen)) {}

    void run();
    [[nodiscard]] bool findFolders();
    [[nodiscard]] AskedFolders ask(const std::vector<std::string>& paths) const;
    [[nodiscard]] bool awaitFolders(const AskedFolders& asked, const ScanWays& ways,
                                    std::vector<RuleFolder>& folders) const;
    /// Calls `read` with the list, unless the job is abandoned or there is none.
    template <typename Read>
    void readList(const Read& read) {
        const std::lock_guard lock(reading);
        if (!stop && list) {
            read(*list);
        }
    }

    const std::shared_ptr<RuleLookup> lookup;
    std::mutex reading;                 // held while the list is read
    std::shared_ptr<const Modal> list;  // guarded by reading
    std::atomic<bool> stop{false};      // abandoned
    const RuleChoice choice;
    std::atomic<bool> isDone{false};
    CountedRule result;  // of the thread until isDone
};

void RuleCount::Job::run() {
    result.rule.keep = choice.keep;
    if (findFolders()) {
        readList(
            [&](const Modal& modal) { result.outcome = countByRule(modal, result.rule, &stop); });
        isDone = true;
    }
}

/// Returns false if the job was abandoned meanwhile.
bool RuleCount::Job::findFolders() {
    const AskedFolders protectedOnes = ask(choice.protectedFolders);
    const AskedFolders preferred = ask(choice.preferred);
    const bool prefers = choice.keep == KeepRule::preferred && !preferred.empty();
    if (!prefers && protectedOnes.empty()) {
        return true;
    }
    std::vector<std::string> locations;
    readList([&](const Modal& modal) { locations = locationsOf(modal, &stop); });
    if (stop) {
        return false;
    }
    const std::optional<ScanWays> ways = lookup->await(lookup->askForWays(locations), stop);
    return ways && awaitFolders(protectedOnes, *ways, result.rule.protectedFolders) &&
           (!prefers || awaitFolders(preferred, *ways, result.rule.preferred));
}

RuleCount::Job::AskedFolders RuleCount::Job::ask(const std::vector<std::string>& paths) const {
    AskedFolders asked;
    for (const std::string& path : paths) {
        asked.push_back(lookup->askForFolder(path));
    }
    return asked;
}

/// A folder that is gone now may have been there during the scan: its files keep its path.
bool RuleCount::Job::awaitFolders(const AskedFolders& asked, const ScanWays& ways,
                                  std::vector<RuleFolder>& folders) const {
    for (const auto& folder : asked) {
        const std::optional<FoundFolder> found = lookup->await(folder, stop);
        if (!found) {
            return false;
        }
        folders.push_back(folderInScan(*found, ways));
    }
    return true;
}

void RuleCount::start(std::shared_ptr<const Modal> list, const RuleChoice& choice) {
    abandon();
    job_ = std::make_shared<Job>(lookup_, std::move(list), choice);
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
        job->stop = true;
        lookup_->wake();
        const std::lock_guard lock(job->reading);
        // A thread may be left behind; the list is not to live as long.
        job->list.reset();
    }
}

int RuleCount::running() {
    return runningCounts + RuleLookup::running();
}

}  // namespace tarvin
