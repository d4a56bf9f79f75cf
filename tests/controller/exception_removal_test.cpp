#include "controller/exception_removal.h"

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

class ExceptionRemovalTest : public testing::Test {
 protected:
    ExceptionRemovalTest() {
        EXPECT_FALSE(list.addExceptions({"/a.jpg", "/b.jpg", "/c.jpg", "/d.jpg"}));
        make();
    }

    void make() {
        ends = 0;
        removal = std::make_unique<ExceptionRemoval>(list);
        QObject::connect(removal.get(), &ExceptionRemoval::over, removal.get(), [this] { ++ends; });
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
    std::unique_ptr<ExceptionRemoval> removal;
    int ends = 0;
};

TEST_F(ExceptionRemovalTest, WritesInTheBackgroundAndThenChangesMemory) {
    hold();
    removal->start({"/b.jpg"});
    EXPECT_FALSE(removal->isOver());
    EXPECT_EQ(list.exceptionArrayData(), (Paths{"/a.jpg", "/b.jpg", "/c.jpg", "/d.jpg"}));
    EXPECT_EQ(removal->remaining(), (Paths{"/a.jpg", "/c.jpg", "/d.jpg"}));
    release();
    ASSERT_TRUE(ended(1));
    EXPECT_TRUE(removal->isOver());
    EXPECT_EQ(stored(), (Paths{"/a.jpg", "/c.jpg", "/d.jpg"}));
    EXPECT_FALSE(removal->take());
    EXPECT_EQ(list.exceptionArrayData(), (Paths{"/a.jpg", "/c.jpg", "/d.jpg"}));
    EXPECT_EQ(removal->remaining(), (Paths{"/a.jpg", "/c.jpg", "/d.jpg"}));
}

TEST_F(ExceptionRemovalTest, RemovalsInQuickSuccessionAllHold) {
    hold();
    removal->start({"/a.jpg"});
    removal->start({"/c.jpg"});
    removal->start({"/d.jpg"});
    release();
    ASSERT_TRUE(ended(1));
    EXPECT_FALSE(removal->take());
    EXPECT_EQ(stored(), Paths{"/b.jpg"});
    EXPECT_EQ(list.exceptionArrayData(), Paths{"/b.jpg"});
    // A later one starts a thread again.
    removal->start({"/b.jpg"});
    ASSERT_TRUE(ended(2));
    EXPECT_EQ(stored(), Paths{});
}

TEST_F(ExceptionRemovalTest, KeepsWhatAnotherInstanceAddsMeanwhile) {
    hold();
    removal->start({"/a.jpg", "/b.jpg"});
    ASSERT_FALSE(
        writeStoredList(list.path(), PropertyList::arrayOfPaths({"/a.jpg", "/other.jpg"})));
    release();
    ASSERT_TRUE(ended(1));
    EXPECT_EQ(stored(), Paths{"/other.jpg"});
}

TEST_F(ExceptionRemovalTest, IfTheFileCannotBeWrittenNothingIsRemoved) {
    // The name of the temporary file is taken.
    folder.writeFile("exception.plist.new/x", "");
    hold();
    removal->start({"/a.jpg"});
    removal->start({"/b.jpg"});
    release();
    ASSERT_TRUE(ended(1));
    const std::optional<StoreError> failure = removal->take();
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->text, "Is a directory");
    EXPECT_FALSE(removal->take());
    EXPECT_EQ(list.exceptionArrayData(), (Paths{"/a.jpg", "/b.jpg", "/c.jpg", "/d.jpg"}));
    EXPECT_EQ(removal->remaining(), (Paths{"/a.jpg", "/b.jpg", "/c.jpg", "/d.jpg"}));
    std::filesystem::remove_all(folder.pathOf("exception.plist.new"));
    removal->start({"/a.jpg"});
    ASSERT_TRUE(ended(2));
    EXPECT_FALSE(removal->take());
    EXPECT_EQ(stored(), (Paths{"/b.jpg", "/c.jpg", "/d.jpg"}));
}

TEST_F(ExceptionRemovalTest, WaitingUpdatesMemoryAndKeepsTheFailure) {
    removal->start({"/a.jpg"});
    removal->wait();
    EXPECT_TRUE(removal->isOver());
    EXPECT_EQ(list.exceptionArrayData(), (Paths{"/b.jpg", "/c.jpg", "/d.jpg"}));
    folder.writeFile("exception.plist.new/x", "");
    removal->start({"/b.jpg"});
    removal->wait();
    EXPECT_EQ(list.exceptionArrayData(), (Paths{"/b.jpg", "/c.jpg", "/d.jpg"}));
    EXPECT_TRUE(removal->take());
}

TEST_F(ExceptionRemovalTest, TheEndOfTheProgramWaitsForTheFile) {
    removal->start({"/a.jpg", "/b.jpg", "/c.jpg"});
    removal->start({"/d.jpg"});
    removal.reset();
    EXPECT_EQ(leftThreads, 0);
    EXPECT_EQ(stored(), Paths{});
}

TEST_F(ExceptionRemovalTest, AThreadThatBlocksIsLeftBehind) {
    hold();
    removal->start({"/a.jpg"});
    removal.reset();
    EXPECT_EQ(leftThreads, 1);
    release();
    ASSERT_TRUE(waitUntil([] { return leftThreads == 0; }));
    EXPECT_EQ(stored(), (Paths{"/b.jpg", "/c.jpg", "/d.jpg"}));
    QCoreApplication::processEvents();
    EXPECT_EQ(ends, 0);
}

TEST_F(ExceptionRemovalTest, NeedsNoFolder) {
    ExceptionFile inMemory{std::nullopt};
    ASSERT_FALSE(inMemory.addExceptions({"/a.jpg", "/b.jpg"}));
    ExceptionRemoval ofMemory(inMemory);
    ofMemory.start({"/a.jpg"});
    ofMemory.wait();
    EXPECT_FALSE(ofMemory.take());
    EXPECT_EQ(inMemory.exceptionArrayData(), Paths{"/b.jpg"});
}

}  // namespace
}  // namespace tarvin
