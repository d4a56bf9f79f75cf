#pragma once

#include "clean/clean_up_run.h"
#include "controller/exception_changes.h"
#include "model/set.h"
#include "platform/platform.h"
#include "store/data_file.h"
#include "store/exception_file.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tarvin {

/// Which summaries of a result have been shown.
struct SummariesShown {
    bool allTabInfo = false;
    bool imageTabInfo = false;
    bool videoTabInfo = false;
    bool audioTabInfo = false;
    bool docsTabInfo = false;
    bool othrTabInfo = false;

    bool operator==(const SummariesShown&) const = default;
};

/// The state shared by the tasks of the window. Main thread only, except finishCleanUp().
struct Session {
    /// `thePlatform` must outlive this object.
    explicit Session(Platform& thePlatform);

    /// The login name; nullopt if unknown.
    [[nodiscard]] std::optional<std::string> getUserName() const { return platform.userName(); }
    /// The folder of both stored files, which need not exist; nullopt without a home folder.
    [[nodiscard]] std::optional<std::string> appSupportPath() const {
        return platform.applicationSupportFolder();
    }

    /// Sets the user's name and reads both stored files. A file that cannot be read counts as
    /// empty.
    void loadDataFile();

    // The values in memory apply while the program runs, even if they cannot be written.

    [[nodiscard]] std::int64_t alreadyDeletedCount() const { return data.alreadyDeletedCount(); }
    [[nodiscard]] std::uint64_t alreadyDeletedSize() const { return data.alreadyDeletedSize(); }
    /// Finishes a clean-up and updates the totals: from the journal or, if that could not be
    /// written, by adding `moved` to the totals shown `before` the clean-up was opened. Any thread,
    /// while no other one reads the totals.
    void finishCleanUp(CleanUpRun& cleanUp, const StoredTotals& before, const RemovalResult& moved);

    /// The excluded files.
    [[nodiscard]] const std::vector<std::string>& exceptionArrayData() const {
        return exceptions.exceptionArrayData();
    }
    // Written in the background.
    void addExceptions(const std::vector<std::string>& paths) { exceptionChanges.add(paths); }
    void removeExceptions() { exceptionChanges.removeAll(); }

    Platform& platform;
    bool awake = false;    ///< the one-time initialisation is done
    bool exact = false;    ///< the location list is open for identical files
    bool similar = false;  ///< open for similar images; such a scan never begins
    // Marked files of the result, and their bytes.
    std::uint64_t totalSelected = 0;
    std::uint64_t totalSize = 0;
    SummariesShown summaries;
    std::int64_t similarIndex = 0;  ///< 1 after start-up; nothing reads it
    std::string currentLoggedInUser;
    DataFile data;
    ExceptionFile exceptions;
    ExceptionChanges exceptionChanges{exceptions};
};

}  // namespace tarvin
