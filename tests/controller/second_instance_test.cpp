#include "controller/single_instance.h"
#include "support/logged.h"

#include <gtest/gtest.h>

namespace tarvin {
namespace {

/// A first instance that raises its window and takes no folders; this one is the second.
class BusyFirstInstance final : public RunningInstances {
 public:
    Result<RunningInstance> join(InstanceRequests /*requests*/) override {
        return RunningInstance{2};
    }
    void leave() override {}
    std::vector<RunningInstance> instances() override { return {{1}, {2}}; }
    bool askToQuit(RunningInstance /*instance*/) override { return true; }
    bool bringToFront(RunningInstance /*instance*/, const std::string& /*token*/) override {
        return true;
    }
    bool openFolders(RunningInstance /*instance*/,
                     const std::vector<std::string>& folders) override {
        offered.insert(offered.end(), folders.begin(), folders.end());
        return false;
    }

    std::vector<std::string> offered;
};

TEST(SecondInstanceTest, LogsNothingIfTheFirstTakesNoFolders) {
    BusyFirstInstance instances;
    SingleInstance instance(instances);
    const Logged logged;
    EXPECT_FALSE(instance.keepFirst({"/some/folder"}));
    EXPECT_EQ(instances.offered, std::vector<std::string>{"/some/folder"});
    EXPECT_EQ(Logged::lines, QStringList());
}

TEST(SecondInstanceTest, OffersNothingIfItWasGivenNoFolders) {
    BusyFirstInstance instances;
    SingleInstance instance(instances);
    EXPECT_FALSE(instance.keepFirst({}));
    EXPECT_TRUE(instances.offered.empty());
}

}  // namespace
}  // namespace tarvin
