#pragma once

#include "model/result_tree.h"
#include "support/recording_trash.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tarvin {

// Reference implementation of the result tree: simple and slow. It applies the rules literally,
// walks all sets of an extension for every result and caches nothing.

/// Counters never fall below 0.
inline void takeAway(std::uint64_t& counter, std::uint64_t part) {
    counter = part < counter ? counter - part : 0;
}

struct PlainFile {
    std::string path;
    std::uint64_t size = 0;
    int state = 0;

    bool removeFile(RecordingTrash& trash) const {
        return trash.fileExistsAtPath(path) && trash.trashItemAtPath(path);
    }
};
using PlainFilePtr = std::shared_ptr<PlainFile>;

inline void eraseAll(std::vector<PlainFilePtr>& files, const std::vector<PlainFilePtr>& leaving) {
    for (const PlainFilePtr& file : leaving) {
        files.erase(std::remove(files.begin(), files.end(), file), files.end());
    }
}

struct PlainSet {
    std::vector<PlainFilePtr> files;
    int state = 0;
    std::uint64_t total = 0;
    std::uint64_t totalSize = 0;
    std::uint64_t marked = 0;
    std::uint64_t markedSize = 0;

    void markAllFiles() {
        marked = 0;
        markedSize = 0;
        if (files.size() >= 2) {
            for (std::size_t i = 1; i < files.size(); ++i) {
                files[i]->state = 1;
                marked += 1;
                markedSize += files[i]->size;
            }
        }
        state = 1;
    }

    void unmarkAllFiles() {
        for (const auto& file : files) {
            file->state = 0;
        }
        marked = 0;
        markedSize = 0;
        state = 0;
    }

    void changeStateOfFile(PlainFile& file) {
        if (file.state != 0) {
            file.state = 0;
            if (marked != 0) {
                takeAway(marked, 1);
                takeAway(markedSize, file.size);
            }
        } else {
            file.state = 1;
            marked += 1;
            markedSize += file.size;
        }
        state = determineSelfState();
    }

    int determineSelfState() const {
        const std::uint64_t m = marked;
        const std::uint64_t n = files.size();
        if (m == n - 1 && m != 0) {
            return 1;
        }
        if (m >= n - 1) {
            return 0;
        }
        if (m != 0) {
            return -1;
        }
        return 0;
    }

    RemovalResult remove(RecordingTrash& trash) {
        RemovalResult sums;
        std::vector<PlainFilePtr> leaving;
        for (const auto& file : files) {
            if (file->state != 0 && file->removeFile(trash)) {
                leaving.push_back(file);
                takeAway(marked, 1);
                takeAway(total, 1);
                takeAway(markedSize, file->size);
                takeAway(totalSize, file->size);
                sums.deletedFilesCount += 1;
                sums.deletedFilesSize += file->size;
            }
        }
        eraseAll(files, leaving);
        state = determineSelfState();
        return sums;
    }

    std::vector<std::string> except() {
        std::vector<std::string> paths;
        std::vector<PlainFilePtr> leaving;
        for (const auto& file : files) {
            if (file->state != 0) {
                paths.push_back(file->path);
                leaving.push_back(file);
                takeAway(marked, 1);
                takeAway(markedSize, file->size);
            }
        }
        eraseAll(files, leaving);
        state = determineSelfState();
        return paths;
    }
};
using PlainSetPtr = std::shared_ptr<PlainSet>;

struct PlainExtensions {
    std::string name;
    std::vector<PlainSetPtr> sets;
    int state = 0;
    std::uint64_t total = 0;
    std::uint64_t totalSize = 0;
    std::uint64_t marked = 0;
    std::uint64_t markedSize = 0;

    void markAllSet() {
        marked = 0;
        markedSize = 0;
        for (const auto& set : sets) {
            set->markAllFiles();
            set->state = 1;
            marked += set->marked;
            markedSize += set->markedSize;
        }
        state = 1;
    }

    void unmarkAllSet() {
        for (const auto& set : sets) {
            set->unmarkAllFiles();
            set->state = 0;
            marked = 0;
            markedSize = 0;
        }
        state = 0;
    }

    void changeState() {
        if (state == 0 || state == -1) {
            markAllSet();
        } else if (state == 1) {
            unmarkAllSet();
        }
    }

    void changeStateOfSet(PlainSet& set) {
        if (set.state == 0 || set.state == -1) {
            set.markAllFiles();
        } else if (set.state == 1) {
            set.unmarkAllFiles();
        }
        state = determineSelfState();
    }

    void changeStateOfFile(PlainFile& file, PlainSet& set) {
        set.changeStateOfFile(file);
        state = determineSelfState();
    }

    int determineSelfState() {
        marked = 0;
        markedSize = 0;
        std::uint32_t k = 0;
        for (const auto& set : sets) {
            marked += set->marked;
            markedSize += set->markedSize;
            k += set->state == 1 || set->state == -1 ? 1u : 0u;
        }
        if (sets.size() == k) {
            return 1;
        }
        if (k > 0 && sets.size() > k) {
            return -1;
        }
        return 0;
    }

    RemovalResult remove(PlainSet& set, RecordingTrash& trash) {
        takeAway(marked, set.marked);
        takeAway(markedSize, set.markedSize);
        takeAway(total, set.total);
        takeAway(totalSize, set.totalSize);
        const RemovalResult sums = set.remove(trash);
        marked += set.marked;
        markedSize += set.markedSize;
        total += set.total;
        totalSize += set.totalSize;
        state = determineSelfState();
        return sums;
    }

    std::vector<std::string> except(PlainSet& set) {
        takeAway(marked, set.marked);
        takeAway(markedSize, set.markedSize);
        std::vector<std::string> paths = set.except();
        marked += set.marked;
        markedSize += set.markedSize;
        state = determineSelfState();
        return paths;
    }
};
using PlainExtensionsPtr = std::shared_ptr<PlainExtensions>;

struct PlainModal {
    std::vector<PlainExtensionsPtr> extensions;
    std::uint64_t total = 0;
    std::uint64_t totalSize = 0;
    std::uint64_t marked = 0;
    std::uint64_t markedSize = 0;

    PlainExtensions* getExtensionWithName(const std::string& name) const {
        for (const auto& extension : extensions) {
            if (extension->name == name) {
                return extension.get();
            }
        }
        return nullptr;
    }

    void markAllExtension() {
        marked = 0;
        markedSize = 0;
        for (const auto& extension : extensions) {
            extension->markAllSet();
            marked += extension->marked;
            markedSize += extension->markedSize;
        }
    }

    void unmarkAllExtension() {
        for (const auto& extension : extensions) {
            extension->unmarkAllSet();
        }
        marked = 0;
        markedSize = 0;
    }

    void changeState(PlainExtensions& extension, PlainSet* set, PlainFile* file) {
        takeAway(marked, extension.marked);
        takeAway(markedSize, extension.markedSize);
        if (file != nullptr) {
            extension.changeStateOfFile(*file, *set);
        } else if (set != nullptr) {
            extension.changeStateOfSet(*set);
        } else {
            extension.changeState();
        }
        marked += extension.marked;
        markedSize += extension.markedSize;
    }

    RemovalResult remove(PlainSet& set, PlainExtensions& extension, RecordingTrash& trash) {
        takeAway(marked, extension.marked);
        takeAway(markedSize, extension.markedSize);
        takeAway(total, extension.total);
        takeAway(totalSize, extension.totalSize);
        const RemovalResult sums = extension.remove(set, trash);
        marked += extension.marked;
        markedSize += extension.markedSize;
        total += extension.total;
        totalSize += extension.totalSize;
        return sums;
    }

    std::vector<std::string> except(PlainSet& set, PlainExtensions& extension) {
        takeAway(marked, extension.marked);
        takeAway(markedSize, extension.markedSize);
        std::vector<std::string> paths = extension.except(set);
        marked += extension.marked;
        markedSize += extension.markedSize;
        return paths;
    }

    void calculateTotalFilesAndSize() {
        total = 0;
        totalSize = 0;
        for (const auto& extension : extensions) {
            total += extension->total;
            totalSize += extension->totalSize;
        }
    }
};

inline Level levelOf(const PlainSet& set) {
    return {static_cast<CheckState>(set.state), set.total, set.totalSize, set.marked,
            set.markedSize};
}

inline Level levelOf(const PlainExtensions& extension) {
    return {static_cast<CheckState>(extension.state), extension.total, extension.totalSize,
            extension.marked, extension.markedSize};
}

inline Level levelOf(const PlainModal& modal) {
    return {CheckState::off, modal.total, modal.totalSize, modal.marked, modal.markedSize};
}

}  // namespace tarvin
