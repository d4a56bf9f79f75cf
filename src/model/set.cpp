#include "model/set.h"

#include "model/file_mover.h"

#include <cstddef>
#include <limits>

namespace tarvin {

namespace {

bool isMarked(const File& file) {
    return file.state() != CheckState::off;
}

}  // namespace

void SetTally::addState(CheckState state) {
    on += std::uint64_t{state == CheckState::on};
    mixed += std::uint64_t{state == CheckState::mixed};
}

void SetTally::dropState(CheckState state) {
    on -= std::uint64_t{state == CheckState::on};
    mixed -= std::uint64_t{state == CheckState::mixed};
}

std::string Set::nameOfSetWith(std::size_t files) {
    return "Set(" + std::to_string(lessened(files, 1)) + ")";
}

std::uint64_t Set::sizeOfCopies() const {
    if (files_.size() < 2) {
        return 0;
    }
    constexpr std::uint64_t most = std::numeric_limits<std::uint64_t>::max();
    const std::uint64_t copies = files_.size() - 1;
    const std::uint64_t each = files_.front()->fileSize();
    return each > most / copies ? most : each * copies;
}

void Set::markAllFiles() {
    setTotalFilesSelectedInSet(0);
    setTotalFilesSelectedInSetSize(0);
    for (std::size_t position = 1; position < files_.size(); ++position) {
        files_[position]->setState(CheckState::on);
        countMark(*files_[position]);
    }
    setSetsState(CheckState::on);
}

void Set::unmarkAllFiles() {
    for (const std::shared_ptr<File>& file : files_) {
        file->setState(CheckState::off);
    }
    setTotalFilesSelectedInSet(0);
    setTotalFilesSelectedInSetSize(0);
    setSetsState(CheckState::off);
}

void Set::changeStateOfFile(const std::shared_ptr<File>& file) {
    if (isMarked(*file)) {
        file->setState(CheckState::off);
        // A mark that markAllFiles() left on position 0 was never counted, so the counter can be 0
        // although the file is marked.
        if (marked_ != 0) {
            uncountMark(*file);
        }
    } else {
        file->setState(CheckState::on);
        countMark(*file);
    }
    setSetsState(determineSelfState());
}

void Set::setMarks(const std::vector<CheckState>& marks) {
    std::uint64_t marked = 0;
    std::uint64_t markedSize = 0;
    for (std::size_t position = 0; position < files_.size(); ++position) {
        File& file = *files_[position];
        file.setState(marks[position]);
        if (isMarked(file)) {
            ++marked;
            markedSize += file.fileSize();
        }
    }
    setTotalFilesSelectedInSet(marked);
    setTotalFilesSelectedInSetSize(markedSize);
    setSetsState(determineSelfState());
}

CheckState Set::determineSelfState() const {
    const std::uint64_t copies = std::uint64_t{files_.size()} - 1;  // wraps for an empty set
    if (marked_ == copies && marked_ != 0) {
        return CheckState::on;
    }
    if (marked_ >= copies) {
        return CheckState::off;
    }
    return marked_ != 0 ? CheckState::mixed : CheckState::off;
}

RemovalResult Set::removeSelectedFilesInSet(FileMover& mover) {
    RemovalResult result;
    std::unordered_set<const File*> moved;
    const std::unique_ptr<SetMover> moving = mover.begin(*this);
    for (const std::shared_ptr<File>& file : files_) {
        if (!isMarked(*file) || !file->removeFile(*moving)) {
            continue;
        }
        moved.insert(file.get());
        uncountMark(*file);
        totalFilesInSet_ = lessened(totalFilesInSet_, 1);
        totalFilesInSetSize_ = lessened(totalFilesInSetSize_, file->fileSize());
        result.deletedFilesCount += 1;
        result.deletedFilesSize += file->fileSize();
    }
    remove(moved);
    setSetsState(determineSelfState());
    return result;
}

std::vector<std::string> Set::addSelectedFilesInSetToException() {
    std::vector<std::string> paths;
    std::unordered_set<const File*> excepted;
    for (const std::shared_ptr<File>& file : files_) {
        if (isMarked(*file)) {
            paths.push_back(file->filePath());
            excepted.insert(file.get());
            uncountMark(*file);
        }
    }
    remove(excepted);
    setSetsState(determineSelfState());
    return paths;
}

void Set::setSetsState(CheckState state) {
    if (tally_ != nullptr) {
        tally_->addState(state);
        tally_->dropState(setsState_);
    }
    setsState_ = state;
}

void Set::setTotalFilesSelectedInSet(std::uint64_t count) {
    if (tally_ != nullptr) {
        tally_->marked += count - marked_;
    }
    marked_ = count;
}

void Set::setTotalFilesSelectedInSetSize(std::uint64_t bytes) {
    if (tally_ != nullptr) {
        tally_->markedSize += bytes - markedSize_;
    }
    markedSize_ = bytes;
}

bool Set::joinTally(SetTally& tally) {
    if (tally_ != nullptr) {
        return false;
    }
    tally_ = &tally;
    addTo(tally);
    return true;
}

void Set::leaveTally(const SetTally& tally) {
    if (tally_ != &tally) {
        return;
    }
    tally_->dropState(setsState_);
    tally_->marked -= marked_;
    tally_->markedSize -= markedSize_;
    tally_ = nullptr;
}

void Set::addTo(SetTally& tally) const {
    tally.addState(setsState_);
    tally.marked += marked_;
    tally.markedSize += markedSize_;
}

void Set::countMark(const File& file) {
    setTotalFilesSelectedInSet(marked_ + 1);
    setTotalFilesSelectedInSetSize(markedSize_ + file.fileSize());
}

void Set::uncountMark(const File& file) {
    setTotalFilesSelectedInSet(lessened(marked_, 1));
    setTotalFilesSelectedInSetSize(lessened(markedSize_, file.fileSize()));
}

void Set::remove(const std::unordered_set<const File*>& leaving) {
    std::erase_if(files_, [&leaving](const std::shared_ptr<File>& file) {
        return leaving.contains(file.get());
    });
}

}  // namespace tarvin
