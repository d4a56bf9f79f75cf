#include "controller/exception_list_texts.h"

#include "controller/shown_numbers.h"

namespace tarvin {

QString ExceptionListTexts::count(std::uint64_t files, std::uint64_t missing) {
    if (missing == 0) {
        return files == 1 ? tr("1 file") : tr("%1 files").arg(ShownNumbers::count(files));
    }
    return files == 1 ? tr("1 file, not there any more")
                      : tr("%1 files, %2 not there any more")
                            .arg(ShownNumbers::count(files), ShownNumbers::count(missing));
}

QString ExceptionListTexts::found(std::uint64_t found, std::uint64_t files) {
    return files == 1
               ? tr("%1 of 1 file").arg(ShownNumbers::count(found))
               : tr("%1 of %2 files").arg(ShownNumbers::count(found), ShownNumbers::count(files));
}

}  // namespace tarvin
