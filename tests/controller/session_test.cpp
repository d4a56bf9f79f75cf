#include "controller/session.h"

#include "controller/product_fixture.h"

namespace tarvin {
namespace {

TEST(SessionTest, GetUserNameAsksThePlatformEachTime) {
    FakePlatform platform;
    const Session session(platform);
    EXPECT_EQ(session.getUserName(), std::nullopt);
    platform.setUserName("ann");
    EXPECT_EQ(session.getUserName(), "ann");
}

TEST(SessionTest, AppSupportPathIsTheFolderOfBothStoredFiles) {
    const TemporaryFolder folder;
    FakePlatform platform;
    EXPECT_EQ(Session(platform).appSupportPath(), std::nullopt);
    platform.setApplicationSupportFolder(folder.pathOf("support"));
    const Session session(platform);
    EXPECT_EQ(session.appSupportPath(), folder.pathOf("support"));
    EXPECT_EQ(session.data.dataPath(), folder.pathOf("support/data.plist"));
    EXPECT_EQ(session.exceptions.path(), folder.pathOf("support/exception.plist"));
}

TEST(SessionTest, LoadDataFileSetsTheUserFirst) {
    FakePlatform platform;
    platform.setUserName("ann");
    Session session(platform);
    EXPECT_EQ(session.currentLoggedInUser, "");
    session.loadDataFile();
    EXPECT_EQ(session.currentLoggedInUser, "ann");
}

/// Two windows of one user, of which each knows the exceptions list as it was at its start.
class TwoSessions : public testing::Test {
 protected:
    using Paths = std::vector<std::string>;

    TwoSessions() {
        {
            Session before(platform_);
            before.addExceptions({"/a", "/b", "/c"});
        }
        one.loadDataFile();
        other.loadDataFile();
    }

    static void add(Session& session, const Paths& paths) {
        session.addExceptions(paths);
        session.exceptionChanges.wait();
    }

    static void takeOff(Session& session, const Paths& paths) {
        session.exceptionChanges.remove(paths);
        session.exceptionChanges.wait();
    }

    [[nodiscard]] Paths stored() const { return readExceptionFile(one.exceptions.path()).paths; }

 private:
    FakePlatform& platform() {
        platform_.setApplicationSupportFolder(folder_.pathOf("support"));
        return platform_;
    }

    TemporaryFolder folder_;
    FakePlatform platform_;

 protected:
    Session one{platform()};
    Session other{platform()};
};

TEST_F(TwoSessions, KeepTheExceptionsThatTheOtherAdds) {
    add(one, {"/one"});
    add(other, {"/other"});
    add(one, {"/one more"});
    EXPECT_EQ(stored(), (Paths{"/a", "/b", "/c", "/one", "/other", "/one more"}));
}

TEST_F(TwoSessions, DoNotAddAgainWhatTheOtherHasTakenOff) {
    takeOff(one, {"/b"});
    add(other, {"/other"});
    EXPECT_EQ(stored(), (Paths{"/a", "/c", "/other"}));
    takeOff(other, {"/a", "/b"});
    EXPECT_EQ(stored(), (Paths{"/c", "/other"}));
    add(one, {"/one"});
    EXPECT_EQ(stored(), (Paths{"/c", "/other", "/one"}));
}

TEST_F(TwoSessions, KeepWhatTheOtherAddsAfterTheListWasEmptied) {
    one.removeExceptions();
    one.exceptionChanges.wait();
    EXPECT_EQ(stored(), Paths());
    add(other, {"/other"});
    EXPECT_EQ(stored(), (Paths{"/other"}));
}

using SessionOfTheProduct = ProductFixture;

TEST_F(SessionOfTheProduct, SimilarIndexIsOneFromTheStartOn) {
    make();
    EXPECT_EQ(delegate->session().similarIndex, 1);
    delegate->homeCleanup();
    EXPECT_EQ(delegate->session().similarIndex, 1);
}

}  // namespace
}  // namespace tarvin
