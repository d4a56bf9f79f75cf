#include "model/exception_batch.h"

#include <iterator>
#include <utility>

namespace tarvin {

bool mayAddExceptions(const Modal& modal) {
    return modal.totalFiles() != 0 && modal.totalFilesSelected() != 0;
}

bool mayRemoveExceptions(const std::vector<std::string>& exceptionArrayData) {
    return !exceptionArrayData.empty();
}

std::vector<std::string> takeOutMarkedFiles(Modal& modal) {
    std::vector<std::string> batch;
    if (modal.totalFilesSelected() == 0) {
        return batch;
    }
    for (const std::shared_ptr<Extensions>& extension : modal.extensionsArray()) {
        if (extension->extensionState() == CheckState::off) {
            continue;
        }
        for (const std::shared_ptr<Set>& set : extension->sets()) {
            if (set->setsState() != CheckState::off) {
                std::vector<std::string> paths =
                    modal.addSelectedFilesToExceptionInSet(set, extension);
                std::move(paths.begin(), paths.end(), std::back_inserter(batch));
            }
        }
    }
    return batch;
}

}  // namespace tarvin
