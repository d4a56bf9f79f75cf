#pragma once

#include "scan/scan_run.h"
#include "store/scan_memory.h"
#include "support/comparison_fixture.h"
#include "support/fake_platform.h"
#include "support/faulty_file_system.h"
#include "support/file_tree.h"
#include "support/pairwise_finder.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tarvin {

/// A tree, and scans of it that use one memory.
class RememberedScan : public testing::Test {
 protected:
    using Names = std::vector<std::string>;
    using NameSets = std::vector<Names>;

    class SilentScan final : public ScanObserver {};

    struct Outcome {
        NameSets sets;
        Names opened;  ///< names of the files that were opened
        UnreadableReport unreadable;
        MemoryReport memory;
    };

    using Preparation = std::function<void(FaultyFileSystem&)>;

    /// Scans with the memory, and checks that all files are counted.
    Outcome scan(const Preparation& prepare = {}) {
        FaultyFileSystem fileSystem;
        if (isVolumeNamed_) {
            fileSystem.setVolumeName(volume_);
        }
        fileSystem.setListingOrder(ListingOrder::sorted);
        if (prepare) {
            prepare(fileSystem);
        }
        FakePlatform platform(fileSystem);
        platform.clock().set(now_);
        SilentScan observer;
        ScanRun::Settings settings;
        settings.workers = {2, 4};
        ScanRun run(platform, observer, settings);
        if (remembers_) {
            run.setMemory(memory_.path());
        }
        run.start({{tree_.path(), "", "", true, true}}, {});
        run.waitForMemory();
        EXPECT_EQ(run.bytesCompared().done, run.bytesCompared().total);
        std::uint64_t collected = 0;
        for (const Category category : allCategories) {
            collected += run.result().collected(category);
        }
        EXPECT_EQ(run.processed(), collected);
        Outcome outcome{
            setsOf(*run.result().modal), {}, run.result().unreadable, run.memoryReport()};
        for (const std::string& path : openedFiles(fileSystem)) {
            outcome.opened.push_back(path.substr(tree_.path().size() + 1));
        }
        return outcome;
    }

    /// The paths of the files that were opened, without the memory, which is read ahead.
    [[nodiscard]] Names openedFiles(const FaultyFileSystem& fileSystem) const {
        Names paths = fileSystem.openedFiles();
        std::erase(paths, memoryPath());
        return paths;
    }

    Outcome scanWithoutMemory() {
        remembers_ = false;
        Outcome outcome = scan();
        remembers_ = true;
        return outcome;
    }

    [[nodiscard]] NameSets setsOf(const Modal& modal) const {
        NameSets all;
        for (const PlainExtension& extension : plainResultOf(modal)) {
            for (const auto& set : extension.sets) {
                Names& names = all.emplace_back();
                for (const std::string& path : set) {
                    names.push_back(path.substr(tree_.path().size() + 1));
                }
            }
        }
        return all;
    }

    void write(const std::string& name, std::size_t size, std::uint64_t seed) const {
        tree_.writeFile(name, noise(size, seed));
    }
    [[nodiscard]] std::string pathOf(const std::string& name) const { return tree_.pathOf(name); }
    [[nodiscard]] std::string memoryPath() const { return ScanMemory::pathIn(memory_.path()); }

    FileTree tree_;
    TemporaryFolder memory_;
    bool isVolumeNamed_ = true;  // if not, volumes have their real names
    std::optional<std::string> volume_ = "volume";
    // The files are new, so their dates have settled an hour from now.
    Timestamp now_ = systemClock().now() + std::chrono::hours(1);
    bool remembers_ = true;
};

}  // namespace tarvin
