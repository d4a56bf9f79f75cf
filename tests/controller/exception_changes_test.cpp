#include "controller/exception_changes.h"

#include "controller/left_threads.h"
#include "platform/durable_file.h"
#include "store/stored_list.h"
#include "support/temporary_folder.h"
#include "support/waiting.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTest>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarvin {
namespace {

using Paths = std::vector<std::string>;

class ExceptionChangesTest : public testing::Test {
 protected:
    ExceptionChangesTest() {
        EXPECT_FALSE(list.addExceptions({"/a.jpg", "/b.jpg", "/c.jpg", "/d.jpg"}));
        make();
    }

    void make() {
        ends = 0;
        changes = std::make_unique<ExceptionChanges>(list);
        QObject::connect(changes.get(), &ExceptionChanges::over, changes.get(), [this] { ++ends; });
    }

    /// Excludes the background thread from the file; release() ends that.
    void hold() {
        lock.emplace(FolderLock::take(folder.path()));
        ASSERT_TRUE(*lock);
    }
    void release() { lock.reset(); }

    /// Waits for the signal.
    [[nodiscard]] bool ended(int times) {
        return QTest::qWaitFor([&] { return ends == times; }, 20000);
    }

    [[nodiscard]] Paths stored() const {
        ExceptionFile file(folder.path());
        EXPECT_FALSE(file.load());
        return file.exceptionArrayData();
    }

    TemporaryFolder folder;
    ExceptionFile list{folder.path()};
    std::optional<Result<FolderLock>> lock;
    std::unique_ptr<ExceptionChanges> changes;
    int ends = 0;
};

TEST_F(ExceptionChangesTest, WritesInTheBackgroundAndThenChangesMemory) {
    hold();
    changes->remove({"/b.jpg"});
    EXPECT_FALSE(changes->isOver());
    EXPECT_EQ(list.exceptionArrayData(), (Paths{"/a.jpg", "/b.jpg", "/c.jpg", "/d.jpg"}));
    EXPECT_EQ(changes->remaining(), (Paths{"/a.jpg", "/c.jpg", "/d.jpg"}));
    release();
    ASSERT_TRUE(ended(1));
    EXPECT_TRUE(changes->isOver());
    EXPECT_EQ(stored(), (Paths{"/a.jpg", "/c.jpg", "/d.jpg"}));
    EXPECT_FALSE(changes->take());
    EXPECT_EQ(list.exceptionArrayData(), (Paths{"/a.jpg", "/c.jpg", "/d.jpg"}));
    EXPECT_EQ(changes->remaining(), (Paths{"/a.jpg", "/c.jpg", "/d.jpg"}));
}

TEST_F(ExceptionChangesTest, RemovalsInQuickSuccessionAllHold) {
    hold();
    changes->remove({"/a.jpg"});
    changes->remove({"/c.jpg"});
    changes->remove({"/d.jpg"});
    release();
    ASSERT_TRUE(ended(1));
    EXPECT_FALSE(changes->take());
    EXPECT_EQ(stored(), Paths{"/b.jpg"});
    EXPECT_EQ(list.exceptionArrayData(), Paths{"/b.jpg"});
    // A later one starts a thread again.
    changes->remove({"/b.jpg"});
    ASSERT_TRUE(ended(2));
    EXPECT_EQ(stored(), Paths{});
}

TEST_F(ExceptionChangesTest, KeepsWhatAnotherInstanceAddsMeanwhile) {
    hold();
    changes->remove({"/a.jpg", "/b.jpg"});
    ASSERT_FALSE(
        writeStoredList(list.path(), PropertyList::arrayOfPaths({"/a.jpg", "/other.jpg"})));
    release();
    ASSERT_TRUE(ended(1));
    EXPECT_EQ(stored(), Paths{"/other.jpg"});
}

TEST_F(ExceptionChangesTest, IfTheFileCannotBeWrittenNothingIsRemoved) {
    // The name of the temporary file is taken.
    folder.writeFile("exception.plist.new/x", "");
    hold();
    changes->remove({"/a.jpg"});
    changes->remove({"/b.jpg"});
    release();
    ASSERT_TRUE(ended(1));
    const std::optional<StoreError> failure = changes->take();
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->text, "Is a directory");
    EXPECT_FALSE(changes->take());
    EXPECT_EQ(list.exceptionArrayData(), (Paths{"/a.jpg", "/b.jpg", "/c.jpg", "/d.jpg"}));
    EXPECT_EQ(changes->remaining(), (Paths{"/a.jpg", "/b.jpg", "/c.jpg", "/d.jpg"}));
    std::filesystem::remove_all(folder.pathOf("exception.plist.new"));
    changes->remove({"/a.jpg"});
    ASSERT_TRUE(ended(2));
    EXPECT_FALSE(changes->take());
    EXPECT_EQ(stored(), (Paths{"/b.jpg", "/c.jpg", "/d.jpg"}));
}

TEST_F(ExceptionChangesTest, AnAdditionHoldsAtOnceAndIsWrittenInTheBackground) {
    hold();
    changes->add({"/e.jpg", "/a.jpg"});
    EXPECT_FALSE(changes->isOver());
    const Paths all{"/a.jpg", "/b.jpg", "/c.jpg", "/d.jpg", "/e.jpg"};
    EXPECT_EQ(list.exceptionArrayData(), all);
    EXPECT_EQ(changes->remaining(), all);
    release();
    ASSERT_TRUE(ended(1));
    EXPECT_EQ(stored(), all);
    EXPECT_FALSE(changes->take());
    EXPECT_EQ(list.exceptionArrayData(), all);
}

TEST_F(ExceptionChangesTest, AreWrittenInTheOrderInWhichTheyWereBegun) {
    hold();
    changes->add({"/e.jpg"});
    changes->remove({"/e.jpg", "/a.jpg", "/b.jpg"});
    changes->add({"/a.jpg"});
    EXPECT_EQ(changes->remaining(), (Paths{"/a.jpg", "/c.jpg", "/d.jpg"}));
    changes->remove({"/c.jpg"});
    release();
    ASSERT_TRUE(ended(1));
    EXPECT_EQ(stored(), (Paths{"/d.jpg", "/a.jpg"}));
    EXPECT_FALSE(changes->take());
    EXPECT_EQ(list.exceptionArrayData(), (Paths{"/d.jpg", "/a.jpg"}));
}

TEST_F(ExceptionChangesTest, EmptyingTheListComesBetweenTheOthers) {
    hold();
    changes->add({"/e.jpg"});
    changes->remove({"/a.jpg"});
    changes->removeAll();
    EXPECT_EQ(list.exceptionArrayData(), Paths{});
    changes->add({"/b.jpg"});
    EXPECT_EQ(changes->remaining(), Paths{"/b.jpg"});
    release();
    ASSERT_TRUE(ended(1));
    EXPECT_EQ(stored(), Paths{"/b.jpg"});
    EXPECT_FALSE(changes->take());
    EXPECT_EQ(list.exceptionArrayData(), Paths{"/b.jpg"});
}

TEST_F(ExceptionChangesTest, AnAdditionThatFailsHoldsAndIsWrittenByTheNext) {
    folder.writeFile("exception.plist.new/x", "");
    changes->add({"/e.jpg"});
    ASSERT_TRUE(ended(1));
    EXPECT_FALSE(changes->take());
    EXPECT_EQ(list.exceptionArrayData().back(), "/e.jpg");
    EXPECT_EQ(stored(), (Paths{"/a.jpg", "/b.jpg", "/c.jpg", "/d.jpg"}));
    std::filesystem::remove_all(folder.pathOf("exception.plist.new"));
    changes->add({"/f.jpg"});
    ASSERT_TRUE(ended(2));
    EXPECT_EQ(stored(), (Paths{"/a.jpg", "/b.jpg", "/c.jpg", "/d.jpg", "/e.jpg", "/f.jpg"}));
}

TEST_F(ExceptionChangesTest, WhatIsTakenOffIsNotWrittenByALaterAddition) {
    folder.writeFile("exception.plist.new/x", "");
    changes->add({"/e.jpg", "/f.jpg"});
    changes->wait();
    std::filesystem::remove_all(folder.pathOf("exception.plist.new"));
    changes->remove({"/e.jpg"});
    changes->add({"/g.jpg"});
    changes->wait();
    EXPECT_EQ(stored(), (Paths{"/a.jpg", "/b.jpg", "/c.jpg", "/d.jpg", "/f.jpg", "/g.jpg"}));
}

/// The file is gone, so that all paths are written; one of them is still being removed in memory.
TEST_F(ExceptionChangesTest, AnAdditionWritesTheWholeListIfThereIsNone) {
    std::filesystem::remove(list.path());
    hold();
    changes->remove({"/b.jpg"});
    changes->add({"/e.jpg"});
    release();
    ASSERT_TRUE(ended(1));
    EXPECT_EQ(stored(), (Paths{"/a.jpg", "/c.jpg", "/d.jpg", "/e.jpg"}));
}

/// The file is unusable: nothing can be removed from it, and an addition writes a new one.
TEST_F(ExceptionChangesTest, AFailedRemovalDoesNotKeepAnAdditionFromBeingWritten) {
    folder.writeFile("exception.plist", "no list");
    hold();
    changes->remove({"/a.jpg"});
    changes->add({"/e.jpg"});
    changes->remove({"/b.jpg"});
    release();
    ASSERT_TRUE(ended(1));
    EXPECT_TRUE(changes->take());
    const Paths all{"/a.jpg", "/b.jpg", "/c.jpg", "/d.jpg", "/e.jpg"};
    EXPECT_EQ(stored(), all);
    EXPECT_EQ(list.exceptionArrayData(), all);
}

TEST_F(ExceptionChangesTest, TheEndOfTheProgramWaitsForAnAddition) {
    changes->add({"/e.jpg"});
    changes.reset();
    EXPECT_EQ(leftThreads, 0);
    EXPECT_EQ(stored().back(), "/e.jpg");
}

TEST_F(ExceptionChangesTest, WaitingUpdatesMemoryAndKeepsTheFailure) {
    changes->remove({"/a.jpg"});
    changes->wait();
    EXPECT_TRUE(changes->isOver());
    EXPECT_EQ(list.exceptionArrayData(), (Paths{"/b.jpg", "/c.jpg", "/d.jpg"}));
    folder.writeFile("exception.plist.new/x", "");
    changes->remove({"/b.jpg"});
    changes->wait();
    EXPECT_EQ(list.exceptionArrayData(), (Paths{"/b.jpg", "/c.jpg", "/d.jpg"}));
    EXPECT_TRUE(changes->take());
}

TEST_F(ExceptionChangesTest, TheEndOfTheProgramWaitsForTheFile) {
    changes->remove({"/a.jpg", "/b.jpg", "/c.jpg"});
    changes->remove({"/d.jpg"});
    changes.reset();
    EXPECT_EQ(leftThreads, 0);
    EXPECT_EQ(stored(), Paths{});
}

TEST_F(ExceptionChangesTest, AThreadThatBlocksIsLeftBehind) {
    hold();
    changes->remove({"/a.jpg"});
    changes.reset();
    EXPECT_EQ(leftThreads, 1);
    release();
    ASSERT_TRUE(waitUntil([] { return leftThreads == 0; }));
    EXPECT_EQ(stored(), (Paths{"/b.jpg", "/c.jpg", "/d.jpg"}));
    QCoreApplication::processEvents();
    EXPECT_EQ(ends, 0);
}

TEST_F(ExceptionChangesTest, NeedsNoFolder) {
    ExceptionFile inMemory{std::nullopt};
    ExceptionChanges ofMemory(inMemory);
    ofMemory.add({"/a.jpg", "/b.jpg"});
    ofMemory.remove({"/a.jpg"});
    ofMemory.wait();
    EXPECT_FALSE(ofMemory.take());
    EXPECT_EQ(inMemory.exceptionArrayData(), Paths{"/b.jpg"});
}

}  // namespace
}  // namespace tarvin
