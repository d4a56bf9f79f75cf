#include "model/deletion_walk.h"

#include "model/file_store.h"
#include "model/marking.h"
#include "support/recording_trash.h"
#include "support/waiting.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <cstdint>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace tarvin {
namespace {

using Paths = std::vector<std::string>;

/// A list of extensions with sets of files of ten bytes, named "/EXTENSION/SET/NUMBER". All exist
/// for the fake Trash.
class Deletion : public ::testing::Test {
 protected:
    std::shared_ptr<Extensions> addExtension(const std::string& name,
                                             const std::vector<std::size_t>& setSizes) {
        auto extension = std::make_shared<Extensions>(name);
        modal_.addExtension(extension);
        for (const std::size_t size : setSizes) {
            auto set = std::make_shared<Set>();
            const std::string folder =
                "/" + name + "/" + std::to_string(extension->nummberOfSets());
            for (std::size_t number = 0; number < size; ++number) {
                const std::string path = folder + "/" + std::to_string(number);
                set->addFiles(FileStore::standalone(path, 10));
                trash_.addExisting(path);
            }
            set->setTotalFilesInSet(size - 1);
            set->setTotalFilesInSetSize(10 * (size - 1));
            extension->addSet(set);
            extension->setTotalFilesInExtension(extension->totalFilesInExtension() + size - 1);
            extension->setTotalFilesInExtensionSize(extension->totalFilesInExtensionSize() +
                                                    10 * (size - 1));
        }
        modal_.calculateTotalFilesAndSize();
        return extension;
    }

    void mark(const std::shared_ptr<Extensions>& extension, std::size_t set, std::size_t file) {
        const std::shared_ptr<Set> of = extension->sets()[set];
        modal_.changeStateOfExtension(extension, of, of->files()[file]);
    }

    RemovalResult run(DeletionWalk::BeforeSet beforeSet = {}) {
        DeletionWalk walk(modal_, trash_, control_, std::move(beforeSet));
        return walk.run();
    }

    /// A walk on its own thread that is paused once, when the set with that number (from zero) is
    /// begun. Stopped on destruction.
    class PausingWalk final {
     public:
        PausingWalk(Deletion& test, std::size_t point)
            : control_(test.control_),
              walk_(test.modal_, test.trash_, test.control_,
                    [this, point](const Set&, const DeletionWalk::Progress&) { begin(point); }),
              runner_([this] { moved_ = walk_.run(); }) {}
        PausingWalk(const PausingWalk&) = delete;
        PausingWalk& operator=(const PausingWalk&) = delete;
        ~PausingWalk() {
            control_.stop();
            wait();
        }

        /// Returns false if the pause has not stopped the walk in time.
        [[nodiscard]] bool waitUntilAsleep() const {
            return waitUntil([this] { return thread_ != 0 && isAsleep(thread_); });
        }
        [[nodiscard]] std::size_t begun() const { return begun_; }
        RemovalResult wait() {
            if (runner_.joinable()) {
                runner_.join();
            }
            return moved_;
        }

     private:
        void begin(std::size_t point) {
            if (begun_++ == point) {
                control_.setPauseDeletion(true);
                thread_ = ::gettid();
            }
        }

        DeletionControl& control_;
        std::atomic<std::size_t> begun_{0};
        std::atomic<pid_t> thread_{0};
        DeletionWalk walk_;
        RemovalResult moved_;  // the runner's until it is joined
        std::thread runner_;   // last, because it uses the members above
    };

    Modal modal_;
    RecordingTrash trash_;
    DeletionControl control_;
};

TEST_F(Deletion, MovesTheMarkedFilesInTheirOrder) {
    const auto jpg = addExtension("jpg", {3, 2});
    const auto txt = addExtension("txt", {2});
    modal_.markAllExtension();
    EXPECT_EQ(run(), (RemovalResult{4, 40}));
    EXPECT_EQ(trash_.moves(), (Paths{"/jpg/0/1", "/jpg/0/2", "/jpg/1/1", "/txt/0/1"}));
    EXPECT_EQ(jpg->nummberOfSets(), 2U);
    EXPECT_EQ(jpg->sets()[0]->files().size(), 1U);
    EXPECT_EQ(modal_.totalFiles(), 0U);
    EXPECT_EQ(modal_.totalFilesSelected(), 0U);
}

TEST_F(Deletion, TwoMarkedOfThreeLeaveOne) {
    const auto jpg = addExtension("jpg", {3});
    mark(jpg, 0, 0);
    mark(jpg, 0, 2);
    EXPECT_EQ(run(), (RemovalResult{2, 20}));
    ASSERT_EQ(jpg->sets()[0]->files().size(), 1U);
    EXPECT_EQ(jpg->sets()[0]->files()[0]->filePath(), "/jpg/0/1");
}

TEST_F(Deletion, MovesNothingIfNothingIsMarked) {
    addExtension("jpg", {3});
    EXPECT_EQ(run(), RemovalResult{});
    EXPECT_TRUE(trash_.attempts().empty());
}

TEST_F(Deletion, SkipsAMissingFileAndKeepsItMarked) {
    const auto jpg = addExtension("jpg", {3});
    modal_.markAllExtension();
    trash_.vanish("/jpg/0/1");
    EXPECT_EQ(run(), (RemovalResult{1, 10}));
    EXPECT_EQ(jpg->sets()[0]->files().size(), 2U);
    EXPECT_EQ(jpg->sets()[0]->files()[1]->state(), CheckState::on);
    EXPECT_EQ(modal_.totalFilesSelected(), 1U);
}

TEST_F(Deletion, SkipsFilesThatTheTrashRefuses) {
    const auto jpg = addExtension("jpg", {101});
    modal_.markAllExtension();
    for (int number = 2; number <= 100; number += 2) {
        trash_.refuse("/jpg/0/" + std::to_string(number));
    }
    EXPECT_EQ(run(), (RemovalResult{50, 500}));
    EXPECT_EQ(jpg->sets()[0]->files().size(), 51U);
    EXPECT_EQ(modal_.totalFilesSelected(), 50U);
}

TEST_F(Deletion, SkipsASetThatIsOffEvenIfAllFilesAreMarked) {
    const auto jpg = addExtension("jpg", {2, 2});
    mark(jpg, 0, 0);
    mark(jpg, 0, 1);  // changeStateOfExtension() allows marking the last one
    mark(jpg, 1, 1);
    ASSERT_EQ(jpg->sets()[0]->setsState(), CheckState::off);
    EXPECT_EQ(run(), (RemovalResult{1, 10}));
    EXPECT_EQ(trash_.moves(), (Paths{"/jpg/1/1"}));
}

TEST_F(Deletion, SkipsAnExtensionThatIsOff) {
    const auto jpg = addExtension("jpg", {2});
    mark(jpg, 0, 0);
    mark(jpg, 0, 1);
    ASSERT_EQ(jpg->extensionState(), CheckState::off);
    EXPECT_EQ(run(), RemovalResult{});
}

TEST_F(Deletion, MovesAllFilesOfASetThatIsOnIncludingAMarkedFirstFile) {
    const auto jpg = addExtension("jpg", {3});
    mark(jpg, 0, 0);
    modal_.changeStateOfExtension(jpg, jpg->sets()[0], nullptr);
    EXPECT_EQ(run(), (RemovalResult{3, 30}));
    EXPECT_TRUE(jpg->sets()[0]->files().empty());
}

TEST_F(Deletion, IndicatorCountsSetsOfOneFile) {
    const auto jpg = addExtension("jpg", {2, 3, 2});
    mark(jpg, 0, 1);
    mark(jpg, 2, 1);
    run();
    mark(jpg, 1, 1);
    std::vector<std::uint64_t> seen;
    run([&seen](const Set&, const DeletionWalk::Progress& progress) {
        seen.push_back(progress.indicator);
    });
    EXPECT_EQ(seen, (std::vector<std::uint64_t>{1}));
}

TEST_F(Deletion, FinalIndicatorIncludesSetsAfterTheLastOneBegun) {
    const auto jpg = addExtension("jpg", {2, 2, 2});
    modal_.markAllExtension();
    run();
    addExtension("mp3", {2});
    mark(modal_.extensions()[1], 0, 1);
    const auto txt = addExtension("txt", {1, 2});
    mark(txt, 1, 0);
    std::vector<DeletionWalk::Progress> seen;
    DeletionWalk walk(
        modal_, trash_, control_,
        [&seen](const Set&, const DeletionWalk::Progress& progress) { seen.push_back(progress); });
    walk.run();
    seen.push_back(walk.progress());
    EXPECT_EQ(seen, (std::vector<DeletionWalk::Progress>{{0, 0, 0}, {1, 1, 10}, {1, 2, 20}}));
}

TEST_F(Deletion, ReportsProgressBeforeEachSet) {
    addExtension("jpg", {3, 2, 4});
    modal_.markAllExtension();
    std::vector<DeletionWalk::Progress> seen;
    run([&seen](const Set&, const DeletionWalk::Progress& progress) { seen.push_back(progress); });
    EXPECT_EQ(seen, (std::vector<DeletionWalk::Progress>{{0, 0, 0}, {0, 2, 20}, {0, 3, 30}}));
}

TEST_F(Deletion, StopEndsItAfterTheCurrentSet) {
    addExtension("jpg", {3, 2});
    addExtension("txt", {2});
    modal_.markAllExtension();
    EXPECT_EQ(run([this](const Set&, const DeletionWalk::Progress&) { control_.stop(); }),
              (RemovalResult{2, 20}));
    EXPECT_EQ(modal_.totalFilesSelected(), 2U);
}

TEST_F(Deletion, StopHoldsForAllLaterWalks) {
    addExtension("jpg", {3});
    modal_.markAllExtension();
    control_.stop();
    EXPECT_EQ(run(), RemovalResult{});
    EXPECT_EQ(run(), RemovalResult{});
    EXPECT_EQ(modal_.totalFilesSelected(), 2U);
}

TEST_F(Deletion, PauseHoldsItBeforeTheNextSet) {
    addExtension("jpg", {2, 2});
    modal_.markAllExtension();
    PausingWalk walk(*this, 0);
    ASSERT_TRUE(walk.waitUntilAsleep());
    EXPECT_EQ(walk.begun(), 1U);
    control_.setPauseDeletion(false);
    EXPECT_EQ(walk.wait(), (RemovalResult{2, 20}));
}

TEST_F(Deletion, StopDuringAPauseBeforeASetStillMovesThatSet) {
    addExtension("jpg", {2, 2, 2});
    modal_.markAllExtension();
    PausingWalk walk(*this, 0);
    ASSERT_TRUE(walk.waitUntilAsleep());
    control_.stop();
    EXPECT_EQ(walk.wait(), (RemovalResult{2, 20}));
}

TEST_F(Deletion, AbandonDuringAPauseBeforeASetSkipsThatSet) {
    addExtension("jpg", {2, 2, 2});
    modal_.markAllExtension();
    PausingWalk walk(*this, 0);
    ASSERT_TRUE(walk.waitUntilAsleep());
    control_.abandon();
    EXPECT_EQ(walk.wait(), (RemovalResult{1, 10}));
    EXPECT_EQ(run(), RemovalResult{});
}

TEST_F(Deletion, StopDuringAPauseBeforeAnExtensionSkipsItsSets) {
    addExtension("jpg", {2});
    addExtension("txt", {2, 2});
    modal_.markAllExtension();
    PausingWalk walk(*this, 0);
    ASSERT_TRUE(walk.waitUntilAsleep());
    control_.stop();
    EXPECT_EQ(walk.wait(), (RemovalResult{1, 10}));
}

TEST_F(Deletion, PauseHoldsItBeforeAnExtensionThatIsOff) {
    const auto jpg = addExtension("jpg", {2});
    addExtension("txt", {2});
    mark(jpg, 0, 1);
    PausingWalk walk(*this, 0);
    ASSERT_TRUE(walk.waitUntilAsleep());
    control_.setPauseDeletion(false);
    EXPECT_EQ(walk.wait(), (RemovalResult{1, 10}));
}

TEST_F(Deletion, StopBeforeAnExtensionEndsIt) {
    addExtension("jpg", {2});
    addExtension("txt", {2});
    modal_.markAllExtension();
    EXPECT_EQ(run([this](const Set&, const DeletionWalk::Progress&) { control_.stop(); }),
              (RemovalResult{1, 10}));
}

/// Six extensions of five sets of two files, all marked: thirty sets. The flags are checked once
/// after each set, and twice after the last set of an extension.
class DeletionAtEachPoint : public Deletion, public ::testing::WithParamInterface<std::size_t> {
 protected:
    static constexpr std::size_t sets = 30;

    void SetUp() override {
        for (const char* name : {"a", "b", "c", "d", "e", "f"}) {
            addExtension(name, {2, 2, 2, 2, 2});
        }
        modal_.markAllExtension();
    }

    [[nodiscard]] static std::size_t setsBegunAt(std::size_t point) { return point + 1; }
    [[nodiscard]] static bool isLastOfExtension(std::size_t point) { return point % 5 == 4; }

    void expectMoved(const RemovalResult& moved, std::size_t count) const {
        EXPECT_EQ(moved, (RemovalResult{count, 10 * count}));
        EXPECT_EQ(trash_.moves().size(), count);
        EXPECT_EQ(modal_.totalFilesSelected(), sets - count);
    }
};

TEST_P(DeletionAtEachPoint, CanBeStopped) {
    std::size_t begun = 0;
    const RemovalResult moved = run([&](const Set&, const DeletionWalk::Progress&) {
        if (begun++ == GetParam()) {
            control_.stop();
        }
    });
    expectMoved(moved, setsBegunAt(GetParam()));
}

TEST_P(DeletionAtEachPoint, CanBePausedAndResumed) {
    PausingWalk walk(*this, GetParam());
    ASSERT_TRUE(walk.waitUntilAsleep());
    EXPECT_EQ(walk.begun(), setsBegunAt(GetParam()));
    control_.setPauseDeletion(false);
    expectMoved(walk.wait(), sets);
}

TEST_P(DeletionAtEachPoint, CanBePausedAndStopped) {
    PausingWalk walk(*this, GetParam());
    ASSERT_TRUE(walk.waitUntilAsleep());
    control_.stop();
    // During a pause before a set that set is still moved; before an extension none is.
    expectMoved(walk.wait(), setsBegunAt(GetParam()) + (isLastOfExtension(GetParam()) ? 0 : 1));
}

// After the last set the flags are not checked.
INSTANTIATE_TEST_SUITE_P(Points, DeletionAtEachPoint, ::testing::Range<std::size_t>(0, 29));

TEST_F(Deletion, PauseDuringTheLastSetHasNoEffect) {
    addExtension("jpg", {2});
    modal_.markAllExtension();
    EXPECT_EQ(
        run([this](const Set&, const DeletionWalk::Progress&) { control_.setPauseDeletion(true); }),
        (RemovalResult{1, 10}));
}

using ExceptionBatch = Deletion;

TEST_F(ExceptionBatch, RemovesTheMarkedFiles) {
    const auto jpg = addExtension("jpg", {3, 2});
    const auto txt = addExtension("txt", {2});
    mark(jpg, 0, 2);
    mark(txt, 0, 0);
    EXPECT_EQ(takeOutMarkedFiles(modal_), (Paths{"/jpg/0/2", "/txt/0/0"}));
    EXPECT_EQ(jpg->sets()[0]->files().size(), 2U);
    EXPECT_EQ(modal_.totalFilesSelected(), 0U);
    EXPECT_EQ(modal_.totalFiles(), 4U);
}

TEST_F(ExceptionBatch, RequiresMarkedFiles) {
    EXPECT_FALSE(mayAddExceptions(modal_));
    const auto jpg = addExtension("jpg", {2});
    EXPECT_FALSE(mayAddExceptions(modal_));
    mark(jpg, 0, 1);
    EXPECT_TRUE(mayAddExceptions(modal_));
    modal_.setTotalFiles(0);
    EXPECT_FALSE(mayAddExceptions(modal_));
}

TEST(ExceptionList, CanBeClearedUnlessEmpty) {
    EXPECT_FALSE(mayRemoveExceptions({}));
    EXPECT_TRUE(mayRemoveExceptions({"/a.jpg"}));
}

TEST_F(ExceptionBatch, WithNothingMarkedChangesNothing) {
    const auto jpg = addExtension("jpg", {2});
    EXPECT_EQ(takeOutMarkedFiles(modal_), Paths{});
    EXPECT_EQ(jpg->sets()[0]->files().size(), 2U);
}

TEST_F(ExceptionBatch, SkipsSetsThatAreOff) {
    const auto jpg = addExtension("jpg", {2, 2});
    mark(jpg, 0, 0);
    mark(jpg, 0, 1);
    mark(jpg, 1, 1);
    EXPECT_EQ(takeOutMarkedFiles(modal_), (Paths{"/jpg/1/1"}));
}

}  // namespace
}  // namespace tarvin
