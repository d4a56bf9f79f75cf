#pragma once

#include "platform/file_system.h"
#include "platform/linux/trash_mover.h"
#include "platform/trash_move.h"
#include "support/fake_platform.h"
#include "support/faulty_trash_calls.h"
#include "support/file_content.h"
#include "support/loop_volume.h"
#include "support/opened_folder.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <cstddef>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

namespace tarvin {

/// 0 if the folder does not exist.
inline std::size_t entriesIn(const std::string& folder) {
    std::error_code missing;
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder, missing)) {
        static_cast<void>(entry);
        ++count;
    }
    return count;
}

/// Sets the time zone until destruction.
class TimeZone final {
 public:
    explicit TimeZone(const char* rule) {
        ::setenv("TZ", rule, 1);  // NOLINT(concurrency-mt-unsafe)
        ::tzset();                // NOLINT(concurrency-mt-unsafe)
    }
    TimeZone(const TimeZone&) = delete;
    TimeZone& operator=(const TimeZone&) = delete;
    ~TimeZone() {
        ::unsetenv("TZ");  // NOLINT(concurrency-mt-unsafe)
        ::tzset();         // NOLINT(concurrency-mt-unsafe)
    }
};

/// Files and a home Trash in a temporary folder on one file system. The clock changes only when the
/// test advances it.
class TrashFixture : public ::testing::Test {
 protected:
    /// The temporary folder is created in `parent`.
    explicit TrashFixture(
        const std::filesystem::path& parent = std::filesystem::temp_directory_path())
        : folder_(parent) {}

    [[nodiscard]] std::string trash() const { return folder_.pathOf("home/data/Trash"); }
    [[nodiscard]] std::string trashed(const std::string& name) const {
        return trash() + "/files/" + name;
    }
    [[nodiscard]] std::string trashInfo(const std::string& name) const {
        return contentOf(trash() + "/info/" + name + ".trashinfo");
    }
    [[nodiscard]] static std::string user() { return std::to_string(::geteuid()); }

    [[nodiscard]] std::unique_ptr<TrashMover> newMover() {
        return makeTrashMover({trash(), static_cast<std::uint32_t>(::geteuid())},
                              {calls_, clock_, mountTable_});
    }

    /// Moves the file at `path` like the engine, with its folder open.
    Result<TrashPlace, TrashRefusal> move(const std::string& path) {
        const std::filesystem::path file(path);
        return mover_->move(openedFolder(file.parent_path().native()), file.filename().c_str());
    }

    std::optional<TrashRefusal> putBack(const TrashPlace& place, const std::string& path) {
        const std::filesystem::path file(path);
        const auto folder = systemFileSystem().openDirectory(file.parent_path().native());
        EXPECT_TRUE(folder.ok()) << path;
        return mover_->putBack(place, *folder, file.filename().c_str());
    }

    /// Mounts a volume for the test; false if the system does not allow it.
    bool hasVolume() {
        if (!volume_) {
            volume_.emplace();
        }
        return static_cast<bool>(*volume_);
    }

    /// Advances the clock beyond the interval of the checks.
    void letASecondPass() { clock_.advance(std::chrono::milliseconds(1'001)); }

    /// Expects a refused move that changes neither the file nor the Trash.
    TrashRefusal expectRefused(const std::string& path) { return expectRefused(path, trash()); }
    TrashRefusal expectRefused(const std::string& path, const std::string& trash) {
        const std::size_t files = entriesIn(trash + "/files");
        const std::size_t trashInfos = entriesIn(trash + "/info");
        const auto moved = move(path);
        EXPECT_FALSE(moved.ok()) << path;
        EXPECT_EQ(contentOf(path), "bytes");
        EXPECT_EQ(entriesIn(trash + "/files"), files);
        EXPECT_EQ(entriesIn(trash + "/info"), trashInfos);
        EXPECT_EQ(calls_.filesOpen(), 0U);
        return moved ? TrashRefusal{} : moved.error();
    }

    /// A file in the Trash without .trashinfo keeps its name; a moved file gets another one.
    void expectFileWithoutTrashInfoLeftAlone() {
        std::filesystem::create_directories(trash() + "/files");
        std::ofstream(trashed("a.txt")) << "orphan";
        const auto moved = move(folder_.writeFile("a.txt", "bytes"));
        ASSERT_TRUE(moved.ok());
        EXPECT_EQ(moved->name, "a.2.txt");
        EXPECT_EQ(contentOf(trashed("a.txt")), "orphan");
        EXPECT_EQ(contentOf(trashed("a.2.txt")), "bytes");
        EXPECT_EQ(entriesIn(trash() + "/info"), 1U);
    }

    TemporaryFolder folder_;
    FaultyTrashCalls calls_;
    FakeClock clock_;
    std::string mountTable_ = "/proc/self/mountinfo";
    /// Null unless needed. Declared first: an existing mover prevents unmounting.
    std::optional<LoopVolume> volume_;
    std::unique_ptr<TrashMover> mover_ = newMover();
};

}  // namespace tarvin
