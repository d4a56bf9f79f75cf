#include "model/file_store.h"
#include "model/modal.h"
#include "model/result_tree.h"
#include "support/recording_trash.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <memory>
#include <string>
#include <vector>

// One extension with 200,000 sets of three files, changed set by set. Besides the results, each
// test bounds the cost of the levels above the set, in CPU time of this thread, relative to the
// same work on a tenth as many sets without an extension; so neither the machine's speed nor its
// load matters. Summing over the extension for each set would take thousands of times as long.

namespace tarvin {
namespace {

constexpr std::size_t setCount = 200'000;
constexpr std::uint64_t fileBytes = 10;
constexpr double boundOnCostAboveTheSet = 20;
constexpr std::size_t setsPerLooseSet = 10;

double processorSeconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

template <typename Work>
double secondsOf(const Work& work) {
    const double start = processorSeconds();
    work();
    return processorSeconds() - start;
}

std::vector<std::shared_ptr<Set>> makeSets(std::size_t count) {
    const auto store = FileStore::create();
    const Directory* folder = store->addRoot("/r");
    std::vector<std::shared_ptr<Set>> sets;
    for (std::size_t i = 0; i < count; ++i) {
        const auto set = std::make_shared<Set>();
        for (const char* suffix : {"a", "b", "c"}) {
            const std::string name = std::to_string(i) + suffix;
            set->addFiles(
                store->share(store->addFile(folder, name, fileBytes, std::nullopt, std::nullopt)));
        }
        set->setTotalFilesInSet(2);
        set->setTotalFilesInSetSize(2 * fileBytes);
        sets.push_back(set);
    }
    return sets;
}

void fillWithCopies(RecordingTrash& trash, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        trash.addExisting(numbered("/r/", i) + "b");
        trash.addExisting(numbered("/r/", i) + "c");
    }
}

class MassOperations : public testing::Test {
 protected:
    MassOperations() {
        extension_->setSets(makeSets(setCount));
        extension_->setTotalFilesInExtension(400'000);
        extension_->setTotalFilesInExtensionSize(4'000'000);
        fill(modal_, {extension_});
    }

    /// Calls `onSetAlone` for each set without an extension, then `throughList` for each set of the
    /// extension; gives up when the latter takes too long.
    template <typename ThroughList, typename OnSetAlone>
    void expectCostOfSetsAlone(const ThroughList& throughList, const OnSetAlone& onSetAlone) {
        const double measure = secondsOf([&] {
            for (const auto& set : loose_) {
                onSetAlone(*set);
            }
        });
        const double bound = boundOnCostAboveTheSet * setsPerLooseSet * measure;
        const double start = processorSeconds();
        for (std::size_t done = 0; done < setCount; ++done) {
            throughList(extension_->sets()[done]);
            if (done % 100 == 0 && processorSeconds() - start > bound) {
                FAIL() << done << " sets took longer than " << bound << " processor seconds";
            }
        }
    }

    void markEverything() {
        modal_.markAllExtension();
        for (const auto& set : loose_) {
            set->markAllFiles();
        }
    }

    std::vector<std::shared_ptr<Set>> loose_ = makeSets(setCount / setsPerLooseSet);
    std::shared_ptr<Extensions> extension_ = std::make_shared<Extensions>("jpg");
    Modal modal_;
};

TEST_F(MassOperations, MarkingASetDoesNotDependOnTheExtensionsSize) {
    expectCostOfSetsAlone(
        [&](const auto& set) { modal_.changeStateOfExtension(extension_, set, nullptr); },
        [](Set& set) { set.markAllFiles(); });
    EXPECT_EQ(levelOf(*extension_->sets().front()), (Level{on, 2, 20, 2, 20}));
    EXPECT_EQ(levelOf(*extension_->sets().back()), (Level{on, 2, 20, 2, 20}));
    EXPECT_EQ(levelOf(*extension_), (Level{on, 400'000, 4'000'000, 400'000, 4'000'000}));
    EXPECT_EQ(levelOf(modal_), (Level{off, 400'000, 4'000'000, 400'000, 4'000'000}));
}

TEST_F(MassOperations, MarkingIsFastAgainAfterAForeignSetIsRemoved) {
    const std::vector<std::shared_ptr<Set>> own = extension_->sets();
    Extensions owner("png");
    owner.addSet(makeSet("foreign", {1, 1}));
    extension_->addSet(owner.sets()[0]);
    extension_->setSets(own);
    expectCostOfSetsAlone(
        [&](const auto& set) { modal_.changeStateOfExtension(extension_, set, nullptr); },
        [](Set& set) { set.markAllFiles(); });
    EXPECT_EQ(levelOf(modal_), (Level{off, 400'000, 4'000'000, 400'000, 4'000'000}));
}

TEST_F(MassOperations, UnmarkingASetDoesNotDependOnTheExtensionsSize) {
    markEverything();
    expectCostOfSetsAlone(
        [&](const auto& set) { modal_.changeStateOfExtension(extension_, set, nullptr); },
        [](Set& set) { set.unmarkAllFiles(); });
    EXPECT_EQ(levelOf(*extension_->sets().front()), (Level{off, 2, 20, 0, 0}));
    EXPECT_EQ(levelOf(*extension_), (Level{off, 400'000, 4'000'000, 0, 0}));
    EXPECT_EQ(levelOf(modal_), (Level{off, 400'000, 4'000'000, 0, 0}));
}

TEST_F(MassOperations, MarkingAFileDoesNotDependOnTheExtensionsSize) {
    expectCostOfSetsAlone(
        [&](const auto& set) { modal_.changeStateOfExtension(extension_, set, set->files()[2]); },
        [](Set& set) { set.changeStateOfFile(set.files()[2]); });
    EXPECT_EQ(levelOf(*extension_), (Level{on, 400'000, 4'000'000, 200'000, 2'000'000}));
    EXPECT_EQ(levelOf(modal_), (Level{off, 400'000, 4'000'000, 200'000, 2'000'000}));
}

TEST_F(MassOperations, RemovingDoesNotDependOnTheExtensionsSize) {
    markEverything();
    RecordingTrash trash;
    RecordingTrash trashForLoose;
    fillWithCopies(trash, setCount);
    fillWithCopies(trashForLoose, loose_.size());
    RemovalResult sum;
    expectCostOfSetsAlone(
        [&](const auto& set) {
            const auto removed = modal_.removeSelectedFilesInSet(set, extension_, trash);
            sum.deletedFilesCount += removed.deletedFilesCount;
            sum.deletedFilesSize += removed.deletedFilesSize;
        },
        [&](Set& set) { set.removeSelectedFilesInSet(trashForLoose); });
    EXPECT_EQ(sum, (RemovalResult{400'000, 4'000'000}));
    ASSERT_EQ(trash.moves().size(), 400'000u);
    EXPECT_EQ(trash.moves()[0], "/r/0b");
    EXPECT_EQ(trash.moves()[1], "/r/0c");
    EXPECT_EQ(trash.moves()[399'999], "/r/199999c");
    EXPECT_EQ(pathsOf(*extension_->sets().back()), (std::vector<std::string>{"/r/199999a"}));
    EXPECT_EQ(extension_->nummberOfSets(), 200'000u);
    EXPECT_EQ(levelOf(*extension_), (Level{off, 0, 0, 0, 0}));
    EXPECT_EQ(levelOf(modal_), (Level{off, 0, 0, 0, 0}));
}

TEST_F(MassOperations, ExcludingDoesNotDependOnTheExtensionsSize) {
    markEverything();
    std::vector<std::string> paths;
    expectCostOfSetsAlone(
        [&](const auto& set) {
            for (auto& path : modal_.addSelectedFilesToExceptionInSet(set, extension_)) {
                paths.push_back(std::move(path));
            }
        },
        [](Set& set) { set.addSelectedFilesInSetToException(); });
    ASSERT_EQ(paths.size(), 400'000u);
    EXPECT_EQ(paths[0], "/r/0b");
    EXPECT_EQ(paths[399'999], "/r/199999c");
    EXPECT_EQ(levelOf(*extension_), (Level{off, 400'000, 4'000'000, 0, 0}));
    EXPECT_EQ(levelOf(modal_), (Level{off, 400'000, 4'000'000, 0, 0}));
}

TEST(MassFiles, AreRemovedFromALargeSetInLinearTime) {
    // A set of 200,000 files loses every second one: with a search or a shift for each file this
    // would be 10 billion steps. Compared with the time for marking the same files.
    const auto store = FileStore::create();
    const Directory* folder = store->addRoot("/r");
    Set set;
    for (std::size_t i = 0; i < 200'000; ++i) {
        set.addFiles(store->share(
            store->addFile(folder, std::to_string(i), fileBytes, std::nullopt, std::nullopt)));
    }
    set.setTotalFilesInSet(199'999);
    set.setTotalFilesInSetSize(1'999'990);
    const auto markOdd = [&] {
        for (std::size_t i = 1; i < set.files().size(); i += 2) {
            set.changeStateOfFile(set.files()[i]);
        }
    };
    const double measure = secondsOf(markOdd);
    std::vector<std::string> paths;
    const double measured = secondsOf([&] { paths = set.addSelectedFilesInSetToException(); });
    EXPECT_LT(measured, 200 * measure);
    ASSERT_EQ(paths.size(), 100'000u);
    EXPECT_EQ(paths[99'999], "/r/199999");
    ASSERT_EQ(set.files().size(), 100'000u);
    EXPECT_EQ(set.files()[99'999]->filePath(), "/r/199998");
    EXPECT_EQ(levelOf(set), (Level{off, 199'999, 1'999'990, 0, 0}));
}

TEST(MassExtensions, AreFoundByNameInConstantTime) {
    // As many extensions as in a tree of random suffixes, each looked up as in a scan. Compared
    // with the time for creating the extensions.
    constexpr std::size_t count = 200'000;
    std::vector<std::shared_ptr<Extensions>> made;
    const double measure = secondsOf([&] {
        for (std::size_t i = 0; i < count; ++i) {
            made.push_back(std::make_shared<Extensions>(numbered("x", i)));
        }
    });
    Modal modal;
    std::size_t found = 0;
    const double measured = secondsOf([&] {
        for (const auto& extension : made) {
            found += modal.getExtensionWithName(extension->name()) != nullptr ? 1u : 0u;
            modal.addExtension(extension);
            found += modal.getExtensionWithName(extension->name()) == extension ? 1u : 0u;
        }
    });
    EXPECT_EQ(found, 200'000u);
    EXPECT_LT(measured, 200 * measure);
}

}  // namespace
}  // namespace tarvin
