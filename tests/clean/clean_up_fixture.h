#pragma once

#include "clean/clean_up.h"
#include "model/deletion_walk.h"
#include "model/file_store.h"
#include "model/modal.h"
#include "platform/platform.h"
#include "platform/trash_move.h"
#include "store/clean_up_journal.h"
#include "support/faulty_file_system.h"
#include "support/quick_folder.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace tarvin {

/// Sets as the result of a scan, with the metadata of their files at the time of addSet().
class ComparedFiles final {
 public:
    /// Adds a set of these files, in this order, under the extension "txt".
    std::shared_ptr<Set> addSet(const std::vector<std::string>& paths) {
        const auto set = std::make_shared<Set>();
        std::uint64_t copies = 0;
        for (const std::string& path : paths) {
            const std::shared_ptr<File> file = fileAt(path);
            copies += set->files().empty() ? 0 : file->fileSize();
            set->addFiles(file);
        }
        set->setTotalFilesInSet(paths.size() - 1);
        set->setTotalFilesInSetSize(copies);
        extension_->addSet(set);
        return set;
    }

    /// Returns the list of all sets, with all files but the first of each marked.
    [[nodiscard]] Modal& marked() {
        if (modal_.extensions().empty()) {
            modal_.addExtension(extension_);
        }
        modal_.markAllExtension();
        return modal_;
    }

 private:
    std::shared_ptr<File> fileAt(const std::string& path) {
        const std::string folder = std::filesystem::path(path).parent_path();
        const std::string name = std::filesystem::path(path).filename();
        const auto attributes = systemFileSystem().attributesAtPath(path);
        EXPECT_TRUE(attributes) << path;
        Directory* const directory = store_->addRoot(folder);
        const auto opened = systemFileSystem().openRootDirectory(folder);
        directory->identity = systemFileSystem().attributesOf(*opened)->identity;
        File* const file = store_->addFile(directory, name, attributes->size, attributes->modified,
                                           attributes->created);
        store_->keepCompared(*file, {attributes->identity, attributes->changed});
        return store_->share(file);
    }

    std::shared_ptr<FileStore> store_ = FileStore::create();
    std::shared_ptr<Extensions> extension_ = std::make_shared<Extensions>("txt");
    Modal modal_;
};

/// A user with a separate Trash, journal and turn file.
class CleaningUser final {
 public:
    /// `folder` must exist and not be shared with another user. `patience` is that of the journal.
    explicit CleaningUser(const std::string& folder,
                          std::chrono::milliseconds patience = std::chrono::seconds(10))
        : trash_(folder + "/Trash"),
          mover_(makeTrashMover({trash_, static_cast<std::uint32_t>(::getuid())})),
          turns_(folder + "/turns"),
          journal_(opened(folder, patience)) {}

    [[nodiscard]] TrashMover& mover() { return *mover_; }
    [[nodiscard]] CleanUpJournal& journal() { return journal_; }
    [[nodiscard]] const LockFile& turns() const { return turns_; }
    [[nodiscard]] const std::string& trash() const { return trash_; }

    /// Numbers of files and of .trashinfo files in the Trash.
    [[nodiscard]] std::size_t trashed() const { return entriesIn(trash_ + "/files"); }
    [[nodiscard]] std::size_t trashInfos() const { return entriesIn(trash_ + "/info"); }

 private:
    static CleanUpJournal opened(const std::string& folder, std::chrono::milliseconds patience) {
        auto journal = CleanUpJournal::open(folder, patience);
        if (const auto* error = std::get_if<StoreError>(&journal)) {
            ADD_FAILURE() << error->path << ": " << error->text;
            std::abort();
        }
        return std::get<CleanUpJournal>(std::move(journal));
    }

    static std::size_t entriesIn(const std::string& folder) {
        std::error_code missing;
        const std::filesystem::directory_iterator entries(folder, missing);
        return static_cast<std::size_t>(std::distance(entries, {}));
    }

    const std::string trash_;
    const std::unique_ptr<TrashMover> mover_;
    const LockFile turns_;
    CleanUpJournal journal_;
};

/// Three equal files in folders of their own, and a user who cleans up. For fixtures.
class EqualFiles {
 protected:
    void expectNothingMoved() const {
        EXPECT_EQ(user_.trashed(), 0U);
        EXPECT_EQ(user_.trashInfos(), 0U);
    }

    TemporaryFolder folder_;
    std::string one_ = folder_.writeFile("a/one.txt", "same");
    std::string two_ = folder_.writeFile("b/two.txt", "same");
    std::string three_ = folder_.writeFile("c/three.txt", "same");
    TemporaryFolder home_;
    CleaningUser user_{home_.path()};
    FaultyFileSystem fileSystem_;
};

/// Settings that call `action` before the first `step`.
inline CleanUp::Settings at(MoveStep step, std::function<void()> action) {
    CleanUp::Settings settings;
    settings.beforeStep = [step, done = false, action = std::move(action)](MoveStep now) mutable {
        if (now == step && !std::exchange(done, true)) {
            action();
        }
    };
    return settings;
}

/// Outcomes by file name, in order.
using MoveReport = std::vector<std::pair<std::string, MoveOutcome>>;

inline std::vector<MoveResult> resultsOfCleanUp(Modal& modal, CleaningUser& user,
                                                FileSystem& fileSystem,
                                                CleanUp::Settings settings = {}) {
    std::vector<MoveResult> results;
    settings.report = [&results, other = std::move(settings.report)](const File& file,
                                                                     const MoveResult& result) {
        results.push_back(result);
        if (other) {
            other(file, result);
        }
    };
    CleanUp cleanUp(fileSystem, user.mover(), user.journal(), user.turns(),
                    systemPlatform().clock(), std::move(settings));
    DeletionControl control;
    DeletionWalk walk(modal, cleanUp, control, {});
    walk.run();
    EXPECT_FALSE(cleanUp.finish().has_value());
    return results;
}

inline MoveReport cleanUp(Modal& modal, CleaningUser& user, FileSystem& fileSystem,
                          CleanUp::Settings settings = {},
                          std::chrono::milliseconds folderMaxAge = {}) {
    MoveReport report;
    settings.folderMaxAge = folderMaxAge;
    settings.report = [&report](const File& file, const MoveResult& result) {
        report.emplace_back(file.fileName(), result.outcome);
    };
    resultsOfCleanUp(modal, user, fileSystem, std::move(settings));
    return report;
}

}  // namespace tarvin
