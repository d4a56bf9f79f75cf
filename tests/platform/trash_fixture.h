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

/// 0 if there is no such folder.
inline std::size_t entriesIn(const std::string& folder) {
    std::error_code missing;
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder, missing)) {
        static_cast<void>(entry);
        ++count;
    }
    return count;
}

/// The local time of a test's own, for its time.
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

/// Files and a home Trash of the test's own, on one file system. The clock stands still until the
/// test moves it.
class TrashFixture : public ::testing::Test {
 protected:
    /// `parent` is the folder that the test's own is made in.
    explicit TrashFixture(
        const std::filesystem::path& parent = std::filesystem::temp_directory_path())
        : folder_(parent) {}

    [[nodiscard]] std::string trash() const { return folder_.pathOf("home/data/Trash"); }
    [[nodiscard]] std::string trashed(const std::string& name) const {
        return trash() + "/files/" + name;
    }
    [[nodiscard]] std::string note(const std::string& name) const {
        return contentOf(trash() + "/info/" + name + ".trashinfo");
    }
    [[nodiscard]] static std::string user() { return std::to_string(::geteuid()); }

    [[nodiscard]] std::unique_ptr<TrashMover> newMover() {
        return makeTrashMover({trash(), static_cast<std::uint32_t>(::geteuid())},
                              {calls_, clock_, mountTable_});
    }

    /// Moves the file at `path` as the engine would: its folder is open.
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

    /// Whether the test has a volume of its own: asks for it, which the machine may not allow.
    bool hasVolume() {
        if (!volume_) {
            volume_.emplace();
        }
        return static_cast<bool>(*volume_);
    }

    /// What follows happens later than the Trash is trusted unseen.
    void letASecondPass() { clock_.advance(std::chrono::milliseconds(1'001)); }

    /// The move is refused and nothing has changed: the file is whole, the Trash has no word of it.
    TrashRefusal expectRefused(const std::string& path) { return expectRefused(path, trash()); }
    TrashRefusal expectRefused(const std::string& path, const std::string& trash) {
        const std::size_t files = entriesIn(trash + "/files");
        const std::size_t notes = entriesIn(trash + "/info");
        const auto moved = move(path);
        EXPECT_FALSE(moved.ok()) << path;
        EXPECT_EQ(contentOf(path), "bytes");
        EXPECT_EQ(entriesIn(trash + "/files"), files);
        EXPECT_EQ(entriesIn(trash + "/info"), notes);
        EXPECT_EQ(calls_.filesOpen(), 0U);
        return moved ? TrashRefusal{} : moved.error();
    }

    /// A file in the Trash that has no note keeps its name, and what is moved gets another one.
    void expectFileWithoutNoteLeftAlone() {
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
    /// None unless the test needs one. A mover keeps it from being unmounted, so it comes first.
    std::optional<LoopVolume> volume_;
    std::unique_ptr<TrashMover> mover_ = newMover();
};

}  // namespace tarvin
