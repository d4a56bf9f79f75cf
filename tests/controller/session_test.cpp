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

using SessionOfTheProduct = ProductFixture;

TEST_F(SessionOfTheProduct, SimilarIndexIsOneFromTheStartOn) {
    make();
    EXPECT_EQ(delegate->session().similarIndex, 1);
    delegate->homeCleanup();
    EXPECT_EQ(delegate->session().similarIndex, 1);
}

}  // namespace
}  // namespace tarvin
