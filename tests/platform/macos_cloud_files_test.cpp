#include "platform/macos/cloud_files.h"

#include <gtest/gtest.h>

namespace tarvin::macos {
namespace {

TEST(MacCloudPlaceholder, IsAHiddenFileWithTheExtension) {
    EXPECT_TRUE(isCloudPlaceholder(".photo.jpg.icloud"));
    EXPECT_TRUE(isCloudPlaceholder(".a.icloud"));
}

TEST(MacCloudPlaceholder, IsNoOtherFile) {
    EXPECT_FALSE(isCloudPlaceholder("photo.jpg.icloud"));
    EXPECT_FALSE(isCloudPlaceholder(".photo.jpg"));
    EXPECT_FALSE(isCloudPlaceholder(".photo.icloud.jpg"));
    EXPECT_FALSE(isCloudPlaceholder(".icloud"));
    EXPECT_FALSE(isCloudPlaceholder(""));
}

}  // namespace
}  // namespace tarvin::macos
