#include "controller/put_back_run.h"

#include <algorithm>
#include <string>
#include <utility>

namespace tarvin {

namespace {

/// As far as the journal knows.
std::uint64_t filesInTrash(const CleanUpSummary& cleanUp) {
    const std::uint64_t away = cleanUp.putBackFiles + cleanUp.lostFiles;
    return cleanUp.movedFiles - std::min(cleanUp.movedFiles, away);
}

}  // namespace

PutBackRun::PutBackRun(Platform& platform, DataFile totals)
    : platform_(platform), totals_(std::move(totals)) {}

PutBackRun::~PutBackRun() {
    stop();
    wait();
}

void PutBackRun::examine(std::function<void()> listed, std::function<void()> over) {
    thread_.start([this, listed = std::move(listed)] { lookForCleanUp(listed); }, std::move(over));
}

void PutBackRun::putBack(std::function<void()> over) {
    thread_.start([this] { bringBack(); }, std::move(over));
}

std::optional<UncheckedCleanUp> PutBackRun::takeUnchecked() {
    const std::lock_guard lock(mutex_);
    return std::exchange(unchecked_, std::nullopt);
}

void PutBackRun::lookForCleanUp(const std::function<void()>& listed) {
    list(std::nullopt, listed);
    auto opened = PutBack::open(platform_, totals_);
    if (auto* error = std::get_if<StoreError>(&opened)) {
        failure_ = std::move(*error);
        return;
    }
    engine_ = std::get<std::unique_ptr<PutBack>>(std::move(opened));
    auto last = engine_->last([this] { return stopped_.load(); });
    if (auto* error = std::get_if<StoreError>(&last)) {
        failure_ = std::move(*error);
        return;
    }
    const auto& found = std::get<std::variant<CleanUpSummary, NothingToPutBack>>(last);
    if (const auto* nothing = std::get_if<NothingToPutBack>(&found)) {
        nothing_ = *nothing;
        return;
    }
    cleanUp_ = std::get<CleanUpSummary>(found);
    if (cleanUp_->id != listed_) {
        list(cleanUp_->id, listed);
    }
    failure_ = engine_->examine(cleanUp_->id, [this](const PutBackFile& file) {
        outlook_.add(file);
        return !stopped_;
    });
}

/// Lists what a clean-up has moved, or the likeliest one: the last that has something in the Trash.
/// What the journal refuses is told by the examination, which asks it again.
void PutBackRun::list(std::optional<CleanUpId> id, const std::function<void()>& listed) {
    const std::optional<std::string> folder = platform_.applicationSupportFolder();
    if (!folder || !CleanUpJournal::isIn(*folder)) {
        return;
    }
    auto opened = CleanUpJournal::open(*folder);
    auto* journal = std::get_if<CleanUpJournal>(&opened);
    if (journal == nullptr) {
        return;
    }
    const auto all = journal->cleanUps();
    const auto* known = std::get_if<std::vector<CleanUpSummary>>(&all);
    if (known == nullptr) {
        return;
    }
    const auto found = std::find_if(known->begin(), known->end(), [&](const auto& each) {
        return id ? each.id == *id : filesInTrash(each) > 0;
    });
    if (found == known->end()) {
        return;
    }
    const auto moves = journal->moves(found->id, {MoveState::moved}, FileReasons::mostListed);
    const auto* files = std::get_if<std::vector<JournalMove>>(&moves);
    if (files == nullptr) {
        return;
    }
    UncheckedCleanUp unchecked{found->begun, {}, filesInTrash(*found)};
    for (const JournalMove& move : *files) {
        unchecked.paths.push_back(move.path);
    }
    listed_ = found->id;
    {
        const std::lock_guard lock(mutex_);
        unchecked_ = std::move(unchecked);
    }
    listed();
}

void PutBackRun::bringBack() {
    if (!cleanUp_) {
        return;
    }
    failure_ =
        engine_->run(cleanUp_->id, {.stopped = [this] { return stopped_.load(); },
                                    .report = [this](const PutBackFile& file) { count(file); }});
}

void PutBackRun::count(const PutBackFile& file) {
    if (isBack(file.outcome)) {
        bytesDone_ += file.size;
        ++done_;
        return;
    }
    ++failed_;
    if (failures_.size() < FileReasons::mostListed) {
        failures_.push_back(file);
    }
}

}  // namespace tarvin
