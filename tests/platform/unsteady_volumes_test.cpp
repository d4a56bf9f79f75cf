#include "platform/unsteady_volumes.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {
namespace {

using std::chrono::seconds;

FileAttributes answer(std::uint64_t inode, seconds modified, seconds changed) {
    FileAttributes attributes;
    attributes.type = EntryType::regular;
    attributes.size = 7;
    attributes.identity = {1, inode};
    attributes.modified = Timestamp(modified);
    attributes.changed = Timestamp(changed);
    return attributes;
}

/// Gives set answers about one open file, the last one again and again.
class Answers final : public FileSystem {
 public:
    explicit Answers(std::vector<Result<FileAttributes>> answers) : answers_(std::move(answers)) {}

    Result<FileAttributes> attributesOf(const Descriptor&) override {
        const std::size_t at = std::min(asked_++, answers_.size() - 1);
        return answers_[at];
    }
    [[nodiscard]] std::size_t asked() const { return asked_; }

    Result<Descriptor> openRootDirectory(const std::string&) override { return none; }
    Result<Descriptor> openDirectory(const std::string&) override { return none; }
    Result<Descriptor> openDirectoryAt(const Descriptor&, const char*) override { return none; }
    Result<bool> listEntries(const Descriptor&, EntryBlock&) override { return none; }
    Result<FileAttributes> attributesAt(const Descriptor&, const char*) override { return none; }
    Result<FileAttributes> targetAttributesAt(const Descriptor&, const char*) override {
        return none;
    }
    Result<FileAttributes> attributesAtPath(const std::string&) override { return none; }
    Result<Descriptor> openFile(const std::string&) override { return none; }
    Result<Descriptor> openFileAt(const Descriptor&, const char*) override { return none; }
    Result<Descriptor> openFolderOfFiles(const std::string&) override { return none; }
    Result<std::size_t> readAtLeast(const Descriptor&, std::uint64_t, std::span<std::byte>,
                                    std::size_t) override {
        return none;
    }
    Result<std::size_t> readCachedAt(const Descriptor&, std::uint64_t,
                                     std::span<std::byte>) override {
        return none;
    }
    void disableReadAhead(const Descriptor&) override {}
    std::optional<std::uint64_t> placeOnDevice(const Descriptor&, std::uint64_t) override {
        return std::nullopt;
    }
    void readAhead(const Descriptor&, std::uint64_t, std::uint64_t) override {}
    bool isPseudoFileSystem(std::uint64_t) override { return false; }
    std::optional<std::uint64_t> rotationalDiskOf(std::uint64_t) override { return std::nullopt; }
    std::optional<FileIdentity> homeTrash() override { return std::nullopt; }
    std::optional<FileIdentity> ownFolder() override { return std::nullopt; }
    std::size_t descriptorLimit() override { return 8; }

 protected:
    void close(int) override {}

 private:
    static constexpr SystemError none{5};

    std::vector<Result<FileAttributes>> answers_;
    std::size_t asked_ = 0;
};

bool isUnsteady(std::vector<Result<FileAttributes>> answers) {
    Answers fileSystem(std::move(answers));
    UnsteadyVolumes volumes;
    const bool said = volumes.examine(fileSystem, Descriptor(fileSystem, 3));
    EXPECT_EQ(volumes.contains(1), said);
    EXPECT_FALSE(volumes.contains(2));
    return said;
}

TEST(UnsteadyVolumes, EqualAnswersAreSteady) {
    EXPECT_FALSE(isUnsteady({answer(5, seconds(10), seconds(20))}));
}

TEST(UnsteadyVolumes, AnOpenFileKeepsItsInodeNumber) {
    EXPECT_TRUE(
        isUnsteady({answer(5, seconds(10), seconds(20)), answer(5, seconds(10), seconds(20)),
                    answer(6, seconds(10), seconds(20))}));
}

TEST(UnsteadyVolumes, TheDateOfChangeDoesNotGoBack) {
    EXPECT_TRUE(
        isUnsteady({answer(5, seconds(10), seconds(20)), answer(5, seconds(10), seconds(19))}));
}

TEST(UnsteadyVolumes, AnotherModificationIsAnotherChange) {
    EXPECT_TRUE(
        isUnsteady({answer(5, seconds(10), seconds(20)), answer(5, seconds(11), seconds(20))}));
}

TEST(UnsteadyVolumes, AFileThatIsBeingWrittenIsSteady) {
    EXPECT_FALSE(
        isUnsteady({answer(5, seconds(10), seconds(20)), answer(5, seconds(21), seconds(21)),
                    answer(5, seconds(22), seconds(22)), answer(5, seconds(23), seconds(23)),
                    answer(5, seconds(24), seconds(24)), answer(5, seconds(25), seconds(25)),
                    answer(5, seconds(26), seconds(26)), answer(5, seconds(27), seconds(27))}));
}

// As programs that copy dates do after they have written.
TEST(UnsteadyVolumes, ADateOfModificationMayBeSetBack) {
    EXPECT_FALSE(
        isUnsteady({answer(5, seconds(21), seconds(21)), answer(5, seconds(3), seconds(22))}));
}

TEST(UnsteadyVolumes, WithoutADateOfChangeDatesTellNothing) {
    FileAttributes first = answer(5, seconds(10), seconds(20));
    FileAttributes next = answer(5, seconds(11), seconds(20));
    first.changed.reset();
    next.changed.reset();
    EXPECT_FALSE(isUnsteady({first, next}));
}

TEST(UnsteadyVolumes, AsksNoFurtherOnceItKnows) {
    Answers fileSystem({answer(5, seconds(10), seconds(20)), answer(6, seconds(10), seconds(20))});
    UnsteadyVolumes volumes;
    EXPECT_TRUE(volumes.examine(fileSystem, Descriptor(fileSystem, 3)));
    EXPECT_EQ(fileSystem.asked(), 2U);
    EXPECT_TRUE(volumes.examine(fileSystem, Descriptor(fileSystem, 3)));
    EXPECT_EQ(fileSystem.asked(), 3U);
}

TEST(UnsteadyVolumes, AFailedCallTellsNothing) {
    EXPECT_FALSE(isUnsteady({SystemError{5}}));
    EXPECT_FALSE(isUnsteady({answer(5, seconds(10), seconds(20)), SystemError{5},
                             answer(6, seconds(10), seconds(20))}));
}

TEST(UnsteadyVolumes, ARenumberedFileIsNotReplaced) {
    UnsteadyVolumes volumes;
    const FileAttributes before = answer(5, seconds(10), seconds(20));
    EXPECT_FALSE(volumes.addIfRenumbered(before, before));
    EXPECT_FALSE(volumes.addIfRenumbered(before, answer(6, seconds(10), seconds(21))));
    EXPECT_FALSE(volumes.addIfRenumbered(before, answer(6, seconds(11), seconds(20))));
    FileAttributes longer = answer(6, seconds(10), seconds(20));
    longer.size = 8;
    EXPECT_FALSE(volumes.addIfRenumbered(before, longer));
    EXPECT_FALSE(volumes.contains(1));
    EXPECT_TRUE(volumes.addIfRenumbered(before, answer(6, seconds(10), seconds(20))));
    EXPECT_TRUE(volumes.contains(1));
}

TEST(UnsteadyVolumes, RealFilesAreSteady) {
    const TemporaryFolder folder;
    const std::string path = folder.writeFile("a.txt", "content");
    const Result<Descriptor> open = systemFileSystem().openFile(path);
    ASSERT_TRUE(open);
    EXPECT_FALSE(UnsteadyVolumes().examine(systemFileSystem(), *open));
}

}  // namespace
}  // namespace tarvin
