#pragma once

#include "model/file.h"
#include "model/file_store.h"
#include "scan/category.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace tarvin {

/// The collected files by category, in collection order, and the store that owns them. The
/// collection fills the lists and each comparison empties its own. Different threads may use
/// different lists at once.
struct CategoryLists {
    std::vector<File*> arrOfImagesFileObject;
    std::vector<File*> arrOfVideosFileObject;
    std::vector<File*> arrOfAudioFileObject;
    std::vector<File*> arrOfDocsFileObject;
    std::vector<File*> arrOfOthersFileObject;
    std::shared_ptr<FileStore> store = FileStore::create();

    [[nodiscard]] std::vector<File*>& of(Category category) {
        switch (category) {
            case Category::image:
                return arrOfImagesFileObject;
            case Category::video:
                return arrOfVideosFileObject;
            case Category::audio:
                return arrOfAudioFileObject;
            case Category::documents:
                return arrOfDocsFileObject;
            case Category::other:
                break;
        }
        return arrOfOthersFileObject;
    }

    [[nodiscard]] std::size_t total() const {
        return arrOfImagesFileObject.size() + arrOfVideosFileObject.size() +
               arrOfAudioFileObject.size() + arrOfDocsFileObject.size() +
               arrOfOthersFileObject.size();
    }

    /// Empties the lists and releases the files.
    void clear() { *this = CategoryLists(); }
};

}  // namespace tarvin
