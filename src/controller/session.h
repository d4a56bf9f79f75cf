#pragma once

#include "clean/clean_up_run.h"
#include "model/set.h"
#include "platform/platform.h"
#include "store/data_file.h"
#include "store/exception_file.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tarvin {

/// Which summaries of a result have been shown already.
struct SummariesShown {
    bool allTabInfo = false;
    bool imageTabInfo = false;
    bool videoTabInfo = false;
    bool audioTabInfo = false;
    bool docsTabInfo = false;
    bool othrTabInfo = false;

    bool operator==(const SummariesShown&) const = default;
};

/// What the tasks of the window share. Main thread.
struct Session {
    /// `platform` outlives the session.
    explicit Session(Platform& thePlatform);

    /// The short name of the user; none if the system does not know it.
    [[nodiscard]] std::optional<std::string> getUserName() const { return platform.userName(); }
    /// The folder of both stored files; none without a home folder. It need not exist.
    [[nodiscard]] std::optional<std::string> appSupportPath() const {
        return platform.applicationSupportFolder();
    }

    /// Sets the user's name and reads both stored files. What cannot be read counts as empty.
    void loadDataFile();

    // What is in memory holds while the program runs, whether or not it can be written, also
    // without a home folder to write to.

    [[nodiscard]] std::int64_t alreadyDeletedCount() const { return data.alreadyDeletedCount(); }
    [[nodiscard]] std::uint64_t alreadyDeletedSize() const { return data.alreadyDeletedSize(); }
    /// Ends a clean-up and counts what it has moved: as the journal has it or, where that could not
    /// be written, `moved` on top of the totals that were shown `before` the clean-up was opened.
    /// Any thread, while no other asks for totals.
    void finishCleanUp(CleanUpRun& cleanUp, const StoredTotals& before, const RemovalResult& moved);

    /// The files that no scan takes.
    [[nodiscard]] const std::vector<std::string>& exceptionArrayData() const {
        return exceptions.exceptionArrayData();
    }
    void addExceptions(const std::vector<std::string>& paths);
    void removeExceptions();

    Platform& platform;
    bool awake = false;    ///< what is done once has been done
    bool exact = false;    ///< looks for identical files
    bool similar = false;  ///< looks for similar images: a scan that is marked and never begins
    /// Marked files of the result and their bytes.
    std::uint64_t totalSelected = 0;
    std::uint64_t totalSize = 0;
    SummariesShown summaries;
    std::int64_t similarIndex = 0;  ///< 1 once the program has begun; nothing reads it
    std::string currentLoggedInUser;
    DataFile data;
    ExceptionFile exceptions;
};

}  // namespace tarvin
