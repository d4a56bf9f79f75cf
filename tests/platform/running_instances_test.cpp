#include "platform/posix/running_instances.h"

#include "platform/durable_file.h"
#include "support/file_tree.h"
#include "support/waiting.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <vector>

namespace tarvin {
namespace {

/// An instance that records its requests. One process may have several.
class Instance final {
 public:
    explicit Instance(std::vector<std::string> folders,
                      std::chrono::milliseconds forOthers = std::chrono::seconds(5))
        : instances_(makeRunningInstances(std::move(folders), forOthers)),
          joined_(instances_->join({.quit = [this] { ++quits_; },
                                    .comeToFront =
                                        [this](const std::string& token) {
                                            const std::lock_guard lock(mutex_);
                                            tokens_.push_back(token);
                                        },
                                    .openFolders =
                                        [this](const std::vector<std::string>& folders) {
                                            const std::lock_guard lock(mutex_);
                                            opened_.insert(opened_.end(), folders.begin(),
                                                           folders.end());
                                        }})) {}
    Instance(const Instance&) = delete;
    Instance& operator=(const Instance&) = delete;
    ~Instance() { instances_->leave(); }

    [[nodiscard]] bool hasJoined() const { return joined_.ok(); }
    [[nodiscard]] int error() const { return joined_ ? 0 : joined_.error().code; }
    /// 0 if it has not joined.
    [[nodiscard]] std::uint64_t number() const { return joined_ ? joined_->number : 0; }
    [[nodiscard]] RunningInstance self() const { return {number()}; }
    RunningInstances& instances() { return *instances_; }
    std::vector<std::uint64_t> numbers() {
        std::vector<std::uint64_t> numbers;
        for (const RunningInstance instance : instances_->instances()) {
            numbers.push_back(instance.number);
        }
        return numbers;
    }

    [[nodiscard]] int quits() const { return quits_; }
    [[nodiscard]] std::vector<std::string> tokens() const {
        const std::lock_guard lock(mutex_);
        return tokens_;
    }
    [[nodiscard]] std::vector<std::string> opened() const {
        const std::lock_guard lock(mutex_);
        return opened_;
    }

 private:
    std::atomic<int> quits_ = 0;
    mutable std::mutex mutex_;
    std::vector<std::string> tokens_;  // guarded by mutex_
    std::vector<std::string> opened_;  // guarded by mutex_
    std::unique_ptr<RunningInstances> instances_;
    Result<RunningInstance> joined_;
};

using Numbers = std::vector<std::uint64_t>;

class RunningInstancesTest : public ::testing::Test {
 protected:
    [[nodiscard]] std::set<std::string> files() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
            names.insert(entry.path().filename().native());
        }
        return names;
    }

    FileTree tree_;
    const std::string folder_ = tree_.pathOf("meeting");
    const std::vector<std::string> folders_{folder_};
};

class MeetingPlace : public RunningInstancesTest {};

TEST_F(RunningInstancesTest, AreNoneBeforeThisOneJoins) {
    const auto instances = makeRunningInstances(folders_);
    EXPECT_TRUE(instances->instances().empty());
    EXPECT_FALSE(instances->askToQuit({1}));
    EXPECT_FALSE(instances->bringToFront({1}, {}));
    instances->leave();
}

TEST_F(RunningInstancesTest, BeginWithNumberOne) {
    Instance only(folders_);
    EXPECT_EQ(only.number(), 1u);
    EXPECT_EQ(only.numbers(), Numbers{1});
}

TEST_F(RunningInstancesTest, AreInTheOrderOfTheirStart) {
    Instance first(folders_);
    Instance second(folders_);
    Instance third(folders_);
    for (Instance* instance : {&first, &second, &third}) {
        EXPECT_EQ(instance->numbers(), (Numbers{1, 2, 3}));
    }
    EXPECT_EQ(third.number(), 3u);
}

TEST_F(RunningInstancesTest, AreInTheOrderOfTheirStartBeyondNine) {
    std::vector<std::unique_ptr<Instance>> many;
    Numbers expected;
    for (std::uint64_t number = 1; number <= 12; ++number) {
        many.push_back(std::make_unique<Instance>(folders_));
        expected.push_back(number);
    }
    EXPECT_EQ(many.back()->numbers(), expected);
}

TEST_F(RunningInstancesTest, OmitThoseThatHaveLeft) {
    Instance first(folders_);
    Instance second(folders_);
    first.instances().leave();
    EXPECT_EQ(second.numbers(), Numbers{2});
    EXPECT_TRUE(first.numbers().empty());
    EXPECT_FALSE(second.instances().bringToFront({1}, {}));
}

TEST_F(RunningInstancesTest, AreNumberedAfterAllThatRun) {
    Instance first(folders_);
    auto second = std::make_unique<Instance>(folders_);
    Instance third(folders_);
    second.reset();
    const Instance fourth(folders_);
    EXPECT_EQ(fourth.number(), 4u);
    EXPECT_EQ(first.numbers(), (Numbers{1, 3, 4}));
}

TEST_F(RunningInstancesTest, RemoveTheirFiles) {
    {
        const Instance instance(folders_);
    }
    EXPECT_EQ(files(), std::set<std::string>{});
}

TEST_F(RunningInstancesTest, AreAskedToQuitOneByOne) {
    Instance first(folders_);
    Instance second(folders_);
    Instance third(folders_);
    EXPECT_TRUE(first.instances().askToQuit(second.self()));
    EXPECT_TRUE(waitUntil([&] { return second.quits() == 1; }));
    EXPECT_EQ(first.quits(), 0);
    EXPECT_EQ(third.quits(), 0);
}

TEST_F(RunningInstancesTest, OmitThoseAskedToQuit) {
    Instance first(folders_);
    Instance second(folders_);
    Instance third(folders_);
    EXPECT_TRUE(third.instances().askToQuit(second.self()));
    ASSERT_TRUE(waitUntil([&] { return second.quits() == 1; }));
    EXPECT_EQ(third.numbers(), (Numbers{1, 3}));
    EXPECT_FALSE(third.instances().askToQuit(second.self()));
    // It still runs, and its number is not reused.
    Instance fourth(folders_);
    EXPECT_EQ(fourth.number(), 4u);
}

TEST_F(RunningInstancesTest, CanSendRequestsToThemselves) {
    Instance instance(folders_);
    EXPECT_TRUE(instance.instances().askToQuit(instance.self()));
    EXPECT_TRUE(waitUntil([&] { return instance.quits() == 1; }));
}

TEST_F(RunningInstancesTest, AreRaisedWithTheActivationToken) {
    Instance first(folders_);
    Instance second(folders_);
    EXPECT_TRUE(second.instances().bringToFront(first.self(), "token 1"));
    EXPECT_TRUE(second.instances().bringToFront(first.self(), {}));
    // Too long for a token.
    EXPECT_TRUE(second.instances().bringToFront(first.self(), std::string(5000, 't')));
    ASSERT_TRUE(waitUntil([&] { return first.tokens().size() == 3; }));
    EXPECT_EQ(first.tokens(), (std::vector<std::string>{"token 1", "", ""}));
    EXPECT_EQ(first.quits(), 0);
}

TEST_F(RunningInstancesTest, PassFoldersOn) {
    Instance first(folders_);
    Instance second(folders_);
    const std::vector<std::string> folders{"/a b", "/line\nbreak", "/not UTF-8 \xff", "/a b"};
    EXPECT_TRUE(second.instances().openFolders(first.self(), folders));
    EXPECT_TRUE(second.instances().openFolders(first.self(), {}));
    EXPECT_TRUE(second.instances().openFolders(first.self(), {"/last"}));
    ASSERT_TRUE(waitUntil([&] { return first.opened().size() == 5; }));
    EXPECT_EQ(first.opened(), (std::vector<std::string>{"/a b", "/line\nbreak", "/not UTF-8 \xff",
                                                        "/a b", "/last"}));
    EXPECT_EQ(first.quits(), 0);
}

TEST_F(RunningInstancesTest, PassMoreFoldersThanOneMessageHolds) {
    Instance first(folders_);
    Instance second(folders_);
    std::vector<std::string> folders;
    for (char name = 'a'; name < 'i'; ++name) {
        folders.push_back('/' + std::string(1000, name));
    }
    EXPECT_TRUE(second.instances().openFolders(first.self(), folders));
    ASSERT_TRUE(waitUntil([&] { return first.opened().size() == folders.size(); }));
    EXPECT_EQ(first.opened(), folders);
}

TEST_F(RunningInstancesTest, ReportAFolderThatIsNotPassedOn) {
    Instance first(folders_);
    Instance second(folders_);
    const std::string longest = '/' + std::string(4089, 'a');
    EXPECT_TRUE(second.instances().openFolders(first.self(), {longest}));
    EXPECT_FALSE(second.instances().openFolders(first.self(), {longest + 'a', "/b"}));
    ASSERT_TRUE(waitUntil([&] { return first.opened().size() == 2; }));
    EXPECT_EQ(first.opened(), (std::vector<std::string>{longest, "/b"}));
    EXPECT_FALSE(second.instances().openFolders({99}, {"/b"}));
}

TEST_F(MeetingPlace, IsMadeForTheUserAlone) {
    const Instance instance(folders_);
    EXPECT_EQ(std::filesystem::status(folder_).permissions(), std::filesystem::perms(0700));
}

TEST_F(MeetingPlace, RemovesFilesOfCrashedInstances) {
    ASSERT_EQ(::mkdir(folder_.c_str(), 0700), 0);
    tree_.writeFile("meeting/copy-1.lock");
    tree_.makeSocket("meeting/copy-1.socket");
    tree_.makeSocket("meeting/copy-4.socket");
    tree_.writeFile("meeting/copy-18446744073709551615.lock");
    Instance instance(folders_);
    EXPECT_EQ(instance.numbers(), Numbers{1});
    EXPECT_EQ(files(), (std::set<std::string>{"copy-1.lock", "copy-1.socket"}));
}

TEST_F(MeetingPlace, KeepsOtherFiles) {
    ASSERT_EQ(::mkdir(folder_.c_str(), 0700), 0);
    const std::set<std::string> others{"copy-.lock", "copy-1.txt", "copy-x.lock", "notes",
                                       "copy-99999999999999999999.lock"};
    for (const std::string& name : others) {
        tree_.writeFile("meeting/" + name);
    }
    {
        const Instance instance(folders_);
    }
    EXPECT_EQ(files(), others);
}

TEST_F(MeetingPlace, MayHoldWhatCannotBeRemoved) {
    ASSERT_EQ(::mkdir(folder_.c_str(), 0700), 0);
    tree_.makeFolder("meeting/copy-1.lock");
    tree_.makeFolder("meeting/copy-2.socket");
    tree_.makePipe("meeting/copy-3.lock");
    const Instance instance(folders_);
    EXPECT_EQ(instance.error(), EADDRINUSE);
    std::filesystem::remove(tree_.pathOf("meeting/copy-2.socket"));
    Instance next(folders_);
    EXPECT_EQ(next.numbers(), Numbers{2});
}

TEST_F(MeetingPlace, MayLieDeep) {
    const std::string deep = tree_.makeFolder(std::string(150, 'd') + '/' + std::string(150, 'e'));
    Instance first({deep + "/meeting"});
    Instance second({deep + "/meeting"});
    EXPECT_TRUE(second.instances().askToQuit(first.self()));
    EXPECT_TRUE(waitUntil([&] { return first.quits() == 1; }));
}

TEST_F(MeetingPlace, IsNotOneThatOthersMayEnter) {
    for (const mode_t mode : {0777U, 0750U, 0705U, 0701U}) {
        tree_.makeFolder("meeting");
        ASSERT_EQ(::chmod(folder_.c_str(), mode), 0);
        const Instance instance(folders_);
        EXPECT_EQ(instance.error(), EACCES) << mode;
        EXPECT_EQ(files(), std::set<std::string>{}) << mode;
    }
}

TEST_F(MeetingPlace, IsNotOneOfSomebodyElse) {
    std::string foreign = "/usr";
    if (::geteuid() == 0) {
        foreign = tree_.makeFolder("foreign");
        ASSERT_EQ(::chmod(foreign.c_str(), 0700), 0);
        ASSERT_EQ(::chown(foreign.c_str(), 65534, 65534), 0);
    }
    const Instance instance({foreign});
    EXPECT_EQ(instance.error(), EACCES);
}

TEST_F(MeetingPlace, IsNotBehindALink) {
    ASSERT_EQ(::mkdir(tree_.pathOf("real").c_str(), 0700), 0);
    tree_.makeLink("meeting", "real");
    const Instance instance(folders_);
    EXPECT_FALSE(instance.hasJoined());
    EXPECT_TRUE(std::filesystem::is_empty(tree_.pathOf("real")));
}

TEST_F(MeetingPlace, IsTheNextIfOneCannotBeUsed) {
    tree_.writeFile("file");
    // In the last one no file can be created.
    for (const std::string& useless :
         {tree_.pathOf("missing/meeting"), tree_.pathOf("file"), std::string("/proc/self/fd")}) {
        Instance instance({useless, folder_});
        EXPECT_EQ(instance.numbers(), Numbers{1}) << useless;
        EXPECT_EQ(files().size(), 2u) << useless;
    }
}

TEST_F(MeetingPlace, MayBeNowhere) {
    Instance nowhere({});
    EXPECT_FALSE(nowhere.hasJoined());
    Instance instance({tree_.pathOf("missing/meeting"), "/proc/self/fd"});
    EXPECT_FALSE(instance.hasJoined());
    EXPECT_TRUE(instance.numbers().empty());
    EXPECT_EQ(keepFirstInstanceOnly(instance.instances(), {}), std::nullopt);
}

TEST_F(MeetingPlace, IsNotWaitedForLongerThanAsked) {
    constexpr std::chrono::milliseconds briefly{20};
    Instance first(folders_, briefly);
    const auto held = FolderLock::take(folder_);
    ASSERT_TRUE(held);
    // Another free folder is not used: the others would not be in it.
    const auto begin = std::chrono::steady_clock::now();
    const Instance second({folder_, tree_.pathOf("free")}, briefly);
    EXPECT_EQ(second.error(), EBUSY);
    EXPECT_EQ(first.numbers(), Numbers{1});
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
}

TEST_F(MeetingPlace, MayVanishWhileInstancesRun) {
    Instance instance(folders_);
    std::filesystem::remove_all(folder_);
    EXPECT_TRUE(instance.numbers().empty());
    EXPECT_FALSE(instance.instances().askToQuit(instance.self()));
    EXPECT_EQ(keepFirstInstanceOnly(instance.instances(), {}), std::nullopt);
}

}  // namespace
}  // namespace tarvin
