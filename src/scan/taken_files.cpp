#include "scan/taken_files.h"

namespace tarvin {

TakenFiles::TakenFiles(CategoryLists& collected) {
    for (const Category category : allCategories) {
        for (const File* file : collected.of(category)) {
            add(*file);
        }
    }
}

}  // namespace tarvin
