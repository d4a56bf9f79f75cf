#include "controller/put_back_run.h"

#include <utility>

namespace tarvin {

PutBackRun::PutBackRun(Platform& platform, DataFile totals)
    : platform_(platform), totals_(std::move(totals)) {}

PutBackRun::~PutBackRun() {
    stop();
    wait();
}

void PutBackRun::examine(std::function<void()> listed, std::function<void()> over) {
    thread_.start([this, listed = std::move(listed)] { findCleanUp(listed); }, std::move(over));
}

void PutBackRun::putBack(std::function<void()> over) {
    thread_.start([this] { restoreFiles(); }, std::move(over));
}

std::optional<UncheckedCleanUp> PutBackRun::takeUnchecked() {
    const std::lock_guard lock(mutex_);
    return std::exchange(unchecked_, std::nullopt);
}

void PutBackRun::findCleanUp(const std::function<void()>& listed) {
    std::optional<CleanUpId> shown;
    const auto list = [&](CleanUpJournal& journal, std::optional<CleanUpId> id) {
        if (auto unchecked = uncheckedCleanUp(journal, FileReasons::maxListed, id)) {
            shown = unchecked->id;
            showUnchecked(std::move(*unchecked), listed);
        }
    };
    auto opened = PutBack::open(platform_, totals_,
                                [&](CleanUpJournal& journal) { list(journal, std::nullopt); });
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
    if (cleanUp_->id != shown) {
        list(engine_->journal(), cleanUp_->id);
    }
    failure_ = engine_->examine(cleanUp_->id, [this](const PutBackFile& file) {
        forecast_.add(file);
        return !stopped_;
    });
}

void PutBackRun::showUnchecked(UncheckedCleanUp cleanUp, const std::function<void()>& listed) {
    {
        const std::lock_guard lock(mutex_);
        unchecked_ = std::move(cleanUp);
    }
    listed();
}

void PutBackRun::restoreFiles() {
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
    if (failures_.size() < FileReasons::maxListed) {
        failures_.push_back(file);
    }
}

}  // namespace tarvin
