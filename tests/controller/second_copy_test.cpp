#include "controller/single_copy.h"

#include <gtest/gtest.h>

#include <QStringList>
#include <QtGlobal>

namespace tarvin {
namespace {

/// A first copy that comes to the front and takes no folders; this one is the second.
class BusyFirstCopy final : public RunningCopies {
 public:
    Result<RunningCopy> join(CopyRequests /*requests*/) override { return RunningCopy{2}; }
    void leave() override {}
    std::vector<RunningCopy> copies() override { return {{1}, {2}}; }
    bool askToQuit(RunningCopy /*copy*/) override { return true; }
    bool bringToFront(RunningCopy /*copy*/, const std::string& /*token*/) override { return true; }
    bool openFolders(RunningCopy /*copy*/, const std::vector<std::string>& folders) override {
        offered.insert(offered.end(), folders.begin(), folders.end());
        return false;
    }

    std::vector<std::string> offered;
};

/// What Qt is asked to log while this lives. One at a time.
class Logged final {
 public:
    Logged() {
        lines.clear();
        before_ = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext&, const QString& text) { lines.append(text); });
    }
    Logged(const Logged&) = delete;
    Logged& operator=(const Logged&) = delete;
    ~Logged() { qInstallMessageHandler(before_); }

    static inline QStringList lines;

 private:
    QtMessageHandler before_ = nullptr;
};

TEST(SecondCopyTest, LogsNothingIfTheFirstTakesNoFolders) {
    BusyFirstCopy copies;
    SingleCopy copy(copies);
    const Logged logged;
    EXPECT_FALSE(copy.keepFirst({"/some/folder"}));
    EXPECT_EQ(copies.offered, std::vector<std::string>{"/some/folder"});
    EXPECT_EQ(Logged::lines, QStringList());
}

TEST(SecondCopyTest, OffersNothingIfItWasGivenNoFolders) {
    BusyFirstCopy copies;
    SingleCopy copy(copies);
    EXPECT_FALSE(copy.keepFirst({}));
    EXPECT_TRUE(copies.offered.empty());
}

}  // namespace
}  // namespace tarvin
