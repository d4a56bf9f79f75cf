#include "controller/put_back_list.h"

#include "controller/file_reasons.h"
#include "controller/own_reasons.h"
#include "controller/path_text.h"
#include "controller/put_back_texts.h"
#include "controller/shown_numbers.h"
#include "interface/list_table.h"

#include <algorithm>
#include <cerrno>

namespace tarvin {

namespace {

void keep(std::vector<PutBackFile>& group, const PutBackFile& file) {
    if (group.size() < FileReasons::maxListed) {
        group.push_back(file);
    }
}

}  // namespace

void PutBackForecast::add(const PutBackFile& file) {
    ++all_;
    bytes_ += file.size;
    if (!isBack(file.outcome)) {
        keep(staying_, file);
        return;
    }
    ++coming_;
    keep(file.outcome == PutBackOutcome::toItsPlace ? ready_ : changed_, file);
}

std::vector<PutBackFile> PutBackForecast::files() const {
    std::vector<PutBackFile> files;
    for (const std::vector<PutBackFile>* group : {&staying_, &changed_, &ready_}) {
        for (const PutBackFile& file : *group) {
            keep(files, file);
        }
    }
    return files;
}

void PutBackList::setFiles(const PutBackForecast& forecast) {
    beginResetModel();
    files_ = forecast.files();
    more_ = forecast.all() - files_.size();
    isChecked_ = true;
    endResetModel();
}

void PutBackList::setUnchecked(const UncheckedCleanUp& cleanUp) {
    beginResetModel();
    files_.clear();
    for (const std::string& path : cleanUp.paths) {
        files_.emplace_back().path = path;
    }
    more_ = cleanUp.all - std::min<std::uint64_t>(cleanUp.all, files_.size());
    isChecked_ = false;
    endResetModel();
}

QString PutBackList::reasonOf(const PutBackFile& file) {
    switch (file.outcome) {
        case PutBackOutcome::lost:
            return tr("No longer in the Trash");
        case PutBackOutcome::changed:
            return tr("Changed in the Trash");
        case PutBackOutcome::notAttached:
            return tr("Drive not attached");
        case PutBackOutcome::stopped:
            return tr("Stopped before its turn");
        case PutBackOutcome::refused:
            return refusalText(file);
        default:
            return {};
    }
}

QString PutBackList::refusalText(const PutBackFile& file) {
    switch (file.refusal) {
        case PutBackRefusal::trash:
            return OwnReasons::ofTrash(file.trash, file.reason);
        case PutBackRefusal::link:
            return tr("Its folder is a link now");
        case PutBackRefusal::notFolder:
            return tr("Something else is where its folder was");
        case PutBackRefusal::system:
            break;
    }
    switch (file.error.code) {
        case ENOSPC:
        case EDQUOT:
            return tr("The disk is full");
        case EACCES:
        case EPERM:
            return tr("Permission denied");
        default:
            return QString::fromStdString(file.reason);
    }
}

QString PutBackList::statusText(const PutBackFile& file) {
    switch (file.outcome) {
        case PutBackOutcome::toItsPlace:
            return tr("Ready");
        case PutBackOutcome::underOtherName:
            return tr("Something else is there now: will be named \"%1\"")
                .arg(textOfPath(file.name));
        case PutBackOutcome::withItsFolder:
            return tr("The folder is gone: will be made again");
        default:
            return reasonOf(file);
    }
}

int PutBackList::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(files_.size()) + (more_ > 0 ? 1 : 0);
}

int PutBackList::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int{columns};
}

QVariant PutBackList::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const auto row = static_cast<std::size_t>(index.row());
    if (row == files_.size()) {
        return lastRowData(index.column(), role);
    }
    const PutBackFile& shown = files_[row];
    return index.column() == fileColumn ? fileData(shown, role) : statusData(shown, role);
}

QString PutBackList::shownStatus(const PutBackFile& file) const {
    return isChecked_ ? statusText(file) : PutBackTexts::checking();
}

QVariant PutBackList::fileData(const PutBackFile& file, int role) const {
    const FileReason texts = fileReason(file.path, {});
    switch (role) {
        case Qt::DisplayRole:
            return texts.name;
        case ListTable::secondLineRole:
            return texts.folder;
        case ListTable::mutedRole:
            return !isBack(file.outcome);
        case Qt::AccessibleTextRole:
            return tr("%1, to %2, %3", "name of a file, its folder, what becomes of it")
                .arg(texts.name, texts.folder, shownStatus(file));
        default:
            return {};
    }
}

QVariant PutBackList::statusData(const PutBackFile& file, int role) const {
    switch (role) {
        case Qt::DisplayRole:
            return shownStatus(file);
        case ListTable::mutedRole:
            return !isChecked_ || file.outcome == PutBackOutcome::toItsPlace;
        default:
            return {};
    }
}

QVariant PutBackList::lastRowData(int column, int role) const {
    if (role == ListTable::mutedRole) {
        return true;
    }
    const bool isText = role == Qt::DisplayRole && column == fileColumn;
    return isText ? tr("and %1 more").arg(ShownNumbers::count(more_)) : QVariant();
}

QVariant PutBackList::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    return section == fileColumn ? tr("File and folder it goes back to") : tr("Status");
}

}  // namespace tarvin
