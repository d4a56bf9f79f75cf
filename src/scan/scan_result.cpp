#include "scan/scan_result.h"

namespace tarvin {

std::shared_ptr<Modal> joinCategories(const CategoryResults& categories) {
    auto joined = std::make_shared<Modal>();
    for (const std::shared_ptr<Modal>& category : categories) {
        if (!category) {
            continue;
        }
        joined->addExtensionFromArray(category->extensions());
        joined->setTotalFiles(joined->totalFiles() + category->totalFiles());
        joined->setTotalFilesSize(joined->totalFilesSize() + category->totalFilesSize());
    }
    return joined;
}

}  // namespace tarvin
