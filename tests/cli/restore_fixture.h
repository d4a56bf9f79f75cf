#pragma once

#include "cli/program_run.h"
#include "cli/result_json.h"
#include "platform/file_system.h"
#include "support/file_content.h"
#include "support/temporary_folder.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {

/// Photos and a separate home with its Trash; files are cleaned up and put back.
class RestoreFixture : public testing::Test {
 protected:
    /// A file's content and date.
    struct Entry {
        std::string content;
        std::filesystem::file_time_type date;

        bool operator==(const Entry&) const = default;
    };
    using Tree = std::map<std::string, Entry>;

    [[nodiscard]] ProgramSetting setting() const {
        return {.environment = {{"XDG_DATA_HOME", folder_.pathOf("data")}, {"TZ", "XYZ-5:30"}}};
    }

    // NOLINTNEXTLINE(modernize-use-nodiscard)
    ProgramResult tarvin(const ProgramRun::Words& arguments) const {
        return runTarvin(arguments, setting());
    }

    /// "tarvin restore --yes".
    [[nodiscard]] ProgramResult restore(ProgramRun::Words more = {}) const {
        more.insert(more.begin(), {"restore", "--yes"});
        return tarvin(more);
    }

    [[nodiscard]] Json restoreAsJson(ProgramRun::Words more = {}) const {
        more.insert(more.end(), {"--format", "json"});
        return parsedJson(restore(more).output);
    }

    [[nodiscard]] std::string photos() const { return folder_.pathOf("photos"); }
    [[nodiscard]] std::string trash() const { return folder_.pathOf("data/Trash"); }

    [[nodiscard]] std::string journal() const {
        return folder_.pathOf(
            "data/Tarvin Software/Tarvin Duplicate File Remover/clean-ups.sqlite");
    }

    /// Writes files with the same bytes and different dates.
    void writeEqual(const std::vector<std::string>& names,
                    const std::string& content = "equal file") const {
        int day = 0;
        for (const std::string& name : names) {
            const std::string path = folder_.writeFile("photos/" + name, content);
            std::filesystem::last_write_time(
                path, std::filesystem::file_time_type::clock::now() - std::chrono::days(++day));
        }
    }

    /// Cleans up; returns the paths of the moved files, in order.
    // NOLINTNEXTLINE(modernize-use-nodiscard)
    std::vector<std::string> clean() const {
        const ProgramResult result = tarvin({"clean", "--yes", "--format", "json", photos()});
        EXPECT_EQ(result.status, 0) << result.errors;
        std::vector<std::string> moved;
        const Json json = parsedJson(result.output);
        for (const Json& file : json["files"]) {
            moved.push_back(file["filePath"]);
        }
        return moved;
    }

    /// All files below a folder.
    [[nodiscard]] static Tree treeOf(const std::string& folder) {
        Tree tree;
        std::error_code missing;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder, missing)) {
            if (entry.is_regular_file()) {
                tree[entry.path()] = {contentOf(entry.path()), entry.last_write_time()};
            }
        }
        return tree;
    }

    [[nodiscard]] std::size_t trashed() const { return treeOf(trash() + "/files").size(); }
    [[nodiscard]] std::size_t trashInfos() const { return treeOf(trash() + "/info").size(); }

    void expectTotals(std::size_t count) const {
        const std::string text = tarvin({"totals"}).output;
        EXPECT_TRUE(text.starts_with("Files cleaned so far: " + std::to_string(count) + " ("))
            << text;
    }

    /// Sets the version of the journal's schema to one of a newer program.
    void makeJournalNewer() const {
        std::fstream file(journal(), std::ios::in | std::ios::out | std::ios::binary);
        // The last of the four bytes of the user version in the header of a database.
        file.seekp(63);
        file.put(9);
    }

    /// Locks the journal as a process does that writes to it through SQLite, until the result is
    /// destroyed. Not open if that fails.
    [[nodiscard]] Descriptor lockedJournal() const {
        Descriptor file(systemFileSystem(), ::open(journal().c_str(), O_RDWR | O_CLOEXEC));
        struct flock whole{};
        whole.l_type = F_WRLCK;
        whole.l_whence = SEEK_SET;
        whole.l_start = 0x40000000;
        whole.l_len = 512;
        return ::fcntl(file.number(), F_SETLK, &whole) == 0 ? std::move(file) : Descriptor();
    }

    TemporaryFolder folder_;
};

constexpr const char* nothingYet =
    "There is nothing to put back.\nNothing has been cleaned up yet.\n";
constexpr const char* allIsBack =
    "There is nothing to put back.\nThe last clean-up has been put back already.\n";
constexpr const char* noneInTrash =
    "There is nothing to put back.\nIts files are no longer in the Trash.\n";

}  // namespace tarvin
