#include "controller/put_back_texts.h"

#include "controller/shown_numbers.h"

namespace tarvin {

QString PutBackTexts::title() {
    return tr("Put Back Last Clean-up");
}

QString PutBackTexts::total(std::uint64_t files, std::uint64_t bytes) {
    const QString size = ShownNumbers::size(bytes);
    return files == 1 ? tr("1 file (%1)").arg(size)
                      : tr("%1 files (%2)").arg(ShownNumbers::count(files), size);
}

QString PutBackTexts::checking() {
    return tr("Checking…");
}

QString PutBackTexts::coming(std::uint64_t files) {
    if (files == 0) {
        return tr("No files can be put back.");
    }
    return files == 1 ? tr("1 file will be put back.")
                      : tr("%1 files will be put back.").arg(ShownNumbers::count(files));
}

QString PutBackTexts::staying(std::uint64_t files) {
    if (files == 0) {
        return {};
    }
    return files == 1 ? tr("1 file cannot be put back.")
                      : tr("%1 files cannot be put back.").arg(ShownNumbers::count(files));
}

QString PutBackTexts::progress(std::uint64_t done, std::uint64_t files) {
    return tr("%1 of %2 files. Nothing that is there now is replaced.")
        .arg(ShownNumbers::count(done), ShownNumbers::count(files));
}

QString PutBackTexts::filesPutBack(std::uint64_t files) {
    return tr("Files Put Back: %1").arg(ShownNumbers::count(files));
}

QString PutBackTexts::size(std::uint64_t bytes) {
    return tr("Size: %1").arg(ShownNumbers::size(bytes));
}

QString PutBackTexts::failed(std::uint64_t files) {
    return files == 1 ? tr("1 file could not be put back:")
                      : tr("%1 files could not be put back:").arg(ShownNumbers::count(files));
}

QString PutBackTexts::scanAgain() {
    return tr("Scan again to see these files in the results.");
}

QString PutBackTexts::notAll(const QString& reason) {
    return tr("Not all was done or written down: %1").arg(reason);
}

QString PutBackTexts::nothing() {
    return tr("There is nothing to put back.");
}

QString PutBackTexts::nothingBecause(NothingToPutBack reason) {
    switch (reason) {
        case NothingToPutBack::neverCleaned:
            return tr("Nothing has been cleaned up yet.");
        case NothingToPutBack::allBack:
            return tr("The last clean-up has been put back already.");
        case NothingToPutBack::noneInTrash:
            break;
    }
    return tr("Its files are no longer in the Trash.");
}

QString PutBackTexts::notBegun() {
    return tr("The last clean-up could not be put back.");
}

}  // namespace tarvin
