#include "controller/put_back_texts.h"

namespace tarvin {

QString PutBackTexts::total(std::uint64_t files, std::uint64_t bytes) {
    const QString size = ShownNumbers::size(bytes);
    return files == 1 ? tr("1 file (%1)").arg(size)
                      : tr("%1 files (%2)").arg(ShownNumbers::count(files), size);
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

QString PutBackTexts::failed(std::uint64_t files) {
    return files == 1 ? tr("1 file could not be put back:")
                      : tr("%1 files could not be put back:").arg(ShownNumbers::count(files));
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

}  // namespace tarvin
