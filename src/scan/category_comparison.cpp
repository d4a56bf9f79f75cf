#include "scan/category_comparison.h"

#include "scan/duplicate_finder.h"
#include "scan/repeated_files.h"

#include <algorithm>
#include <new>
#include <utility>

namespace tarvin {

namespace {

// Small classes are queued in batches of about a share of the pool's files, or of this many bytes.
// A batch counts only when all of it is done, so larger ones would hold up the progress on a slow
// disk.
constexpr std::uint64_t bytesABatch = 1024 * 1024;
constexpr std::uint32_t none = 0xFFFFFFFF;
// How long workers may take to hand in what they have confirmed when the scan is stopped: many
// times the few milliseconds of a read.
constexpr std::chrono::milliseconds patienceAfterStop{250};
constexpr std::chrono::milliseconds stopPollInterval{20};

}  // namespace

bool ComparisonProgress::updateProgressBarWith(const File& file) {
    // The display does not change during a pause.
    if (control_.pause() || !gate_.due()) {
        return false;
    }
    reportNow(file);
    return true;
}

void ComparisonProgress::reportNow(const File& file) {
    if (!control_.pause()) {
        observer_.processing(file.filePath(), processed_.load(std::memory_order_relaxed));
    }
}

/// Keeps the results of a class that is compared in parts.
class CategoryComparison::Verdict final : public ContentVerdict {
 public:
    Verdict(CategoryComparison& comparison, const Members& members)
        : comparison_(comparison),
          members_(members),
          left_(comparison.context_.bytes, members.files.size(),
                members.files.front()->fileSize()) {}

    void compared(std::uint32_t file, const FileStamp& stamp) override {
        comparison_.keepState(*members_.toRead()[file], stamp);
    }

    void advanced(std::uint32_t file, std::uint64_t bytes) override {
        left_.compared(members_.numberOf(file), bytes);
    }

    void equal(FileGroup group) override {
        comparison_.keepRead(members_, group);
        decided(group);
    }

    void decided(std::span<const std::uint32_t> files) override {
        for (const std::uint32_t read : files) {
            const std::uint32_t file = members_.numberOf(read);
            comparison_.count(members_.positions[file], true);
            left_.finish(file);
        }
    }

    /// All files of the class are decided.
    void finishAll() { left_.finishAll(); }

 private:
    CategoryComparison& comparison_;
    const Members& members_;
    BytesLeft left_;
};

CategoryComparison::CategoryComparison(Context context, std::vector<File*> list, FileStore& store)
    : context_(context),
      list_(std::move(list)),
      store_(store),
      classes_(list_),
      nextEqual_(list_.size(), none),
      counted_(list_.size()),
      taken_(list_.size(), false),
      currentPivot_(none) {
    addBytesToCompare();
}

std::shared_ptr<Modal> CategoryComparison::compare() {
    auto modal = std::make_shared<Modal>();
    try {
        submitAll();
        walk(*modal);
    } catch (const std::bad_alloc&) {
        context_.control.stopForLackOfMemory();
    }
    if (context_.control.stop()) {
        waitForBatches(patienceAfterStop);
        closeVerdicts();
        fileWhatIsDecided(*modal);
    }
    return modal;
}

bool CategoryComparison::isLeft() {
    const std::lock_guard lock(mutex_);
    return tasksLeft_ == 0;
}

bool CategoryComparison::waitForBatches(std::chrono::milliseconds patience) {
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (context_.pool.runOneHere()) {
    }
    std::unique_lock lock(mutex_);
    return changed_.wait_until(lock, deadline, [this] { return tasksLeft_ == 0; });
}

std::vector<File*> CategoryComparison::rest() const {
    std::vector<File*> rest;
    for (std::size_t position = 0; position < list_.size(); ++position) {
        if (!taken_[position]) {
            rest.push_back(list_[position]);
        }
    }
    return rest;
}

void CategoryComparison::addBytesToCompare() const {
    std::uint64_t bytes = 0;
    for (std::size_t number = 0; number < classes_.count(); ++number) {
        bytes = saturatingSum(bytes, saturatingProduct(list_[classes_.firstOf(number)]->fileSize(),
                                                       classes_.memberCount(number)));
    }
    context_.bytes.addList(bytes);
}

void CategoryComparison::makeBatches() {
    const std::size_t filesABatch = context_.pool.filesAShare();
    std::size_t files = 0;
    std::uint64_t bytes = 0;
    batchOf_.reserve(classes_.count());
    for (std::size_t number = 0; number < classes_.count(); ++number) {
        const std::uint64_t size = list_[classes_.firstOf(number)]->fileSize();
        const std::size_t members = classes_.memberCount(number);
        const bool alone = !isReadWhole(number);
        if (batches_.empty() || alone || files >= filesABatch || bytes >= bytesABatch) {
            batches_.push_back(std::make_unique<Batch>());
            batches_.back()->firstClass = number;
            files = 0;
            bytes = 0;
        }
        batches_.back()->endClass = number + 1;
        batchOf_.push_back(batches_.back().get());
        // A class that is a separate task fills its batch.
        files += alone ? filesABatch : members;
        bytes += size * members;
    }
}

void CategoryComparison::submitAll() {
    makeBatches();
    if (isOnRotationalDisk()) {
        requestSweep(0);
    } else {
        context_.readAhead.expectOneLess();
        submitBatches(0, batches_.size());
    }
}

void CategoryComparison::submitBatches(std::size_t first, std::size_t end) {
    for (std::size_t number = first; number < end; ++number) {
        submit([this, batch = batches_[number].get()] { run(*batch); });
    }
}

/// Whether the first file of a class is on a rotational disk. Asks once for each run of files of
/// one device: there may be a million classes.
bool CategoryComparison::isOnRotationalDisk() const {
    std::optional<std::uint64_t> last;
    for (std::size_t number = 0; number < classes_.count(); ++number) {
        const Directory& folder = *list_[classes_.firstOf(number)]->directory();
        if (last != folder.identity.device && context_.readAhead.isUsefulIn(folder)) {
            return true;
        }
        if (folder.identity.inode != 0) {
            last = folder.identity.device;
        }
    }
    return false;
}

/// Has the files of the next batches read ahead.
void CategoryComparison::requestSweep(std::size_t first) {
    const std::size_t end = endOfRequest(first);
    std::vector<ReadAhead::Wanted> files = filesOfBatches(first, end);
    std::function<void()> swept = begun([this, first, end] { sweptUpTo(first, end); });
    try {
        context_.readAhead.request(std::move(files), std::move(swept));
    } catch (const std::bad_alloc&) {
        taskEnded();
        throw;
    }
    try {
        submit([this] { context_.readAhead.sweep(); });
    } catch (const std::bad_alloc&) {
        context_.control.stopForLackOfMemory();
        context_.readAhead.sweep();
    }
}

/// Submits batches whose files were read ahead. Those of the batches after them are requested
/// first, so that the disk is busy while these are compared.
void CategoryComparison::sweptUpTo(std::size_t first, std::size_t end) {
    if (end < batches_.size()) {
        requestSweep(end);
    }
    submitBatches(first, end);
}

/// The end of the batches that are requested together with the first one.
std::size_t CategoryComparison::endOfRequest(std::size_t first) const {
    const std::size_t mostFiles =
        first == 0 ? ReadAhead::filesOfTheFirstRequest : ReadAhead::filesARequest;
    std::uint64_t bytes = 0;
    std::size_t files = 0;
    std::size_t end = first;
    while (end < batches_.size() &&
           (end == first || (bytes < ReadAhead::bytesARequest && files < mostFiles))) {
        for (std::size_t number = batches_[end]->firstClass; number < batches_[end]->endClass;
             ++number) {
            bytes += readAheadOf(number) * classes_.memberCount(number);
            files += classes_.memberCount(number);
        }
        ++end;
    }
    return end;
}

std::uint64_t CategoryComparison::readAheadOf(std::size_t number) const {
    return ReadAhead::bytesAFile(list_[classes_.firstOf(number)]->fileSize(),
                                 classes_.memberCount(number));
}

std::vector<ReadAhead::Wanted> CategoryComparison::filesOfBatches(std::size_t first,
                                                                  std::size_t end) const {
    std::vector<ReadAhead::Wanted> files;
    Members members;
    for (std::size_t number = batches_[first]->firstClass; number < batches_[end - 1]->endClass;
         ++number) {
        find(number, members);
        chooseFiles(members);
        const std::uint64_t size = members.files.front()->fileSize();
        const std::uint64_t atEnd = ReadAhead::bytesOfEnd(size, members.files.size());
        for (File* const file : members.toRead()) {
            files.push_back({file, 0, readAheadOf(number)});
            if (atEnd > 0) {
                files.push_back({file, size - atEnd, atEnd});
            }
        }
    }
    return files;
}

/// Counts the task until the function that is returned has run it.
std::function<void()> CategoryComparison::begun(std::function<void()> task) {
    std::function<void()> counted = [this, task = std::move(task)] {
        try {
            task();
        } catch (const std::bad_alloc&) {
            context_.control.stopForLackOfMemory();
        }
        taskEnded();
    };
    const std::lock_guard lock(mutex_);
    ++tasksLeft_;
    return counted;
}

/// If memory runs out, the task is not queued.
void CategoryComparison::submit(std::function<void()> task) {
    std::function<void()> counted = begun(std::move(task));
    try {
        context_.pool.submit(std::move(counted));
    } catch (const std::bad_alloc&) {
        taskEnded();
        throw;
    }
}

/// Once the lock is released this object may be destroyed.
void CategoryComparison::taskEnded() {
    const std::lock_guard lock(mutex_);
    --tasksLeft_;
    changed_.notify_all();
}

void CategoryComparison::run(Batch& batch) {
    compareAll(batch);
    const std::lock_guard lock(mutex_);
    batch.done = true;
    changed_.notify_all();
}

void CategoryComparison::compareAll(const Batch& batch) {
    Members members;
    std::vector<std::size_t> inParts;
    {
        std::optional<ContentPartition::Workspace> workspace;
        for (std::size_t number = batch.firstClass; number < batch.endClass; ++number) {
            if (!context_.control.mayGoOn()) {
                break;
            }
            if (!compareWhole(number, members, workspace)) {
                inParts.push_back(number);
            }
        }
    }
    for (const std::size_t number : inParts) {
        find(number, members);
        Verdict verdict(*this, members);
        do {
            recall(members);
            if (!members.toRead().empty()) {
                context_.partition.partition(members.toRead(), verdict);
            }
        } while (mustReadAgain(members));
        note(members);
        if (countAll(members, true)) {
            verdict.finishAll();
        }
    }
}

/// Returns false if the class has to be compared in parts.
bool CategoryComparison::compareWhole(std::size_t number, Members& members,
                                      std::optional<ContentPartition::Workspace>& workspace) {
    if (!isReadWhole(number)) {
        return false;
    }
    if (!workspace) {
        workspace.emplace(context_.partition.makeWorkspace());
    }
    find(number, members);
    do {
        recall(members);
        const auto groups = context_.partition.compareWhole(members.toRead(), *workspace);
        if (!groups) {
            return false;
        }
        for (const FileGroup& group : *groups) {
            for (const std::uint32_t file : group) {
                keepState(*members.toRead()[file], workspace->stampOf(file));
            }
            keepRead(members, group);
            for (const std::uint32_t file : group) {
                count(members.positions[members.numberOf(file)], false);
            }
        }
    } while (mustReadAgain(members));
    note(members);
    if (countAll(members, false)) {
        context_.bytes.add(members.files.front()->fileSize() * members.files.size());
    }
    return true;
}

bool CategoryComparison::isReadWhole(std::size_t number) const {
    return ContentPartition::isReadWhole(list_[classes_.firstOf(number)]->fileSize(),
                                         classes_.memberCount(number));
}

void CategoryComparison::find(std::size_t number, Members& members) const {
    classes_.members(number, members.positions);
    members.files.clear();
    members.files.reserve(members.positions.size());
    for (const std::uint32_t position : members.positions) {
        members.files.push_back(list_[position]);
    }
}

/// Chooses the files of a class to read.
void CategoryComparison::chooseFiles(Members& members) const {
    if (!store_.keepsVersions()) {
        return;
    }
    members.known.emplace(members.files);
    members.filesToRead.clear();
    for (const std::uint32_t number : members.known->toRead()) {
        members.filesToRead.push_back(members.files[number]);
    }
}

/// The same, and keeps the groups that are known without reading.
void CategoryComparison::recall(Members& members) {
    chooseFiles(members);
    if (!members.known) {
        return;
    }
    for (const FileGroup& group : members.known->groups()) {
        keepKnown(members, group);
    }
}

/// Whether a file has changed, or could not be read, of which others were to be known. Then nothing
/// is kept of the class; the file will count as unknown.
bool CategoryComparison::mustReadAgain(Members& members) {
    if (!members.known || members.known->decideAll() || context_.control.stop()) {
        return false;
    }
    bool isLost = false;
    for (std::size_t read = 0; read < members.filesToRead.size(); ++read) {
        if (members.known->isRepresentative(read)) {
            const File& file = *members.filesToRead[read];
            context_.partition.checkVersion(file);
            isLost = isLost || (members.known->standsForOthers(read) && file.version()->isDoubtful);
        }
    }
    if (isLost) {
        forget(members);
    }
    return isLost;
}

/// Stores what is known of a class after its files were read.
void CategoryComparison::note(const Members& members) {
    if (members.known && !members.known->decideAll() && !context_.control.stop()) {
        noteContents(members.files, keptGroups(members), store_);
    }
}

/// The groups of a class that was compared to its end.
std::vector<FileGroup> CategoryComparison::keptGroups(const Members& members) {
    const auto& positions = members.positions;
    std::vector<FileGroup> groups;
    std::vector<bool> isInGroup(positions.size(), false);
    const std::lock_guard lock(mutex_);
    for (std::uint32_t number = 0; number < positions.size(); ++number) {
        if (isInGroup[number] || nextEqual_[positions[number]] == none) {
            continue;
        }
        FileGroup& group = groups.emplace_back();
        for (std::uint32_t at = positions[number]; at != none; at = nextEqual_[at]) {
            const auto found = std::lower_bound(positions.begin(), positions.end(), at);
            group.push_back(static_cast<std::uint32_t>(found - positions.begin()));
            isInGroup[group.back()] = true;
        }
    }
    return groups;
}

/// Drops the groups of a class.
void CategoryComparison::forget(const Members& members) {
    const std::lock_guard lock(mutex_);
    if (closed_) {
        return;
    }
    for (const std::uint32_t position : members.positions) {
        nextEqual_[position] = none;
    }
}

/// Keeps a group of equal files, by their places in toRead(), with the files that are known to be
/// equal to them. A file stands for others only while it is unchanged after it was read.
void CategoryComparison::keepRead(const Members& members, const FileGroup& read) {
    if (!members.known) {
        keep(members.positions, read);
        return;
    }
    for (const std::uint32_t file : read) {
        if (members.known->isRepresentative(file)) {
            context_.partition.checkVersion(*members.filesToRead[file]);
        }
    }
    FileGroup group = members.known->withKnown(read);
    if (group.size() == read.size()) {
        keep(members.positions, group);
    } else {
        keepKnown(members, std::move(group));
    }
}

/// Keeps a group of which files need not have been read.
void CategoryComparison::keepKnown(const Members& members, FileGroup group) {
    group = withoutRepeats(std::move(group), members.files);
    if (group.size() < 2) {
        return;
    }
    for (const std::uint32_t number : group) {
        File& file = *members.files[number];
        if (file.compared() == nullptr && !file.version()->isDoubtful) {
            store_.keepCompared(file, *file.version());
        }
    }
    keep(members.positions, group);
}

/// Links a group's files into a chain, from the first to the last. Ignores groups that arrive after
/// the walk has taken the results.
void CategoryComparison::keep(const std::vector<std::uint32_t>& members, const FileGroup& group) {
    const std::lock_guard lock(mutex_);
    if (closed_) {
        return;
    }
    for (std::size_t at = 0; at + 1 < group.size(); ++at) {
        nextEqual_[members[group[at]]] = members[group[at + 1]];
    }
}

/// Stores the state that a later move of the file is checked against. A file without it, because it
/// has changed since it was listed or its volume is unsteady, is compared again before a move.
void CategoryComparison::keepState(File& file, const FileStamp& stamp) {
    if (stamp.identity.inode != 0 && stamp.size == file.fileSize() &&
        stamp.modified == file.fileModificationDate()) {
        store_.keepCompared(file, {stamp.identity, stamp.changed});
    }
}

/// Counts the files of a class that was compared to its end. Returns false if a stop may have cut
/// it short.
bool CategoryComparison::countAll(const Members& members, bool reports) {
    if (context_.control.stop()) {
        return false;
    }
    for (const std::uint32_t position : members.positions) {
        count(position, reports);
    }
    return true;
}

/// Counts each file once, however many threads decide it.
void CategoryComparison::count(std::uint32_t position, bool reports) {
    if (counted_[position].exchange(true, std::memory_order_relaxed)) {
        return;
    }
    context_.progress.countOne();
    if (reports && isWaiting_.load(std::memory_order_relaxed)) {
        context_.progress.updateProgressBarWith(*list_[position]);
    }
}

void CategoryComparison::closeVerdicts() {
    const std::lock_guard lock(mutex_);
    closed_ = true;
}

void CategoryComparison::walk(Modal& modal) {
    for (std::uint32_t pivot = 0; pivot < list_.size(); ++pivot) {
        if (taken_[pivot]) {
            continue;
        }
        take(pivot);
        currentPivot_ = pivot;
        if (!context_.control.mayGoOn() || !waitForClassOf(pivot)) {
            return;
        }
        fileGroupOf(pivot, modal);
        currentPivot_ = none;
    }
}

/// Returns false if the scan was stopped before the class was compared.
bool CategoryComparison::waitForClassOf(std::uint32_t pivot) {
    const std::uint32_t number = classes_.classOf(pivot);
    if (number == SizeClasses::noClass) {
        return true;
    }
    const Batch& batch = *batchOf_[number];
    if (batch.done) {
        return true;
    }
    if (!isReported_) {
        // The wait may be long, and the file reported last is already decided.
        context_.progress.reportNow(*list_[pivot]);
    }
    isWaiting_ = true;
    while (context_.pool.runOneHere()) {
    }
    std::unique_lock lock(mutex_);
    while (!batch.done && !context_.control.stop()) {
        changed_.wait_for(lock, stopPollInterval, [&batch] { return batch.done.load(); });
    }
    isWaiting_ = false;
    return batch.done;
}

void CategoryComparison::fileGroupOf(std::uint32_t pivot, Modal& modal) {
    if (nextEqual_[pivot] == none) {
        return;
    }
    taken_[pivot] = true;
    std::vector<std::shared_ptr<File>> group{store_.share(list_[pivot])};
    for (std::uint32_t at = nextEqual_[pivot]; at != none; at = nextEqual_[at]) {
        context_.control.waitWhilePaused();
        take(at);
        group.push_back(store_.share(list_[at]));
    }
    fileSetUnderExtension(modal, group);
}

/// Files the sets that the walk had not reached before the stop.
void CategoryComparison::fileWhatIsDecided(Modal& modal) {
    for (std::uint32_t pivot = 0; pivot < list_.size(); ++pivot) {
        if (!taken_[pivot] || pivot == currentPivot_) {
            fileGroupOf(pivot, modal);
        }
    }
}

void CategoryComparison::take(std::uint32_t position) {
    taken_[position] = true;
    count(position, false);
    isReported_ =
        !context_.control.stop() && context_.progress.updateProgressBarWith(*list_[position]);
}

}  // namespace tarvin
