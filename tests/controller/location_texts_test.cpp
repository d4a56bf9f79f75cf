#include "controller/location_texts.h"

#include <gtest/gtest.h>

namespace tarvin {
namespace {

TEST(LocationTexts, SayWhatWasNotAdded) {
    EXPECT_EQ(LocationTexts::notice(LocationNotice::fileAlreadyAdded), "File already added.");
    EXPECT_EQ(LocationTexts::notice(LocationNotice::unsupportedFile), "Unsupported file.");
    EXPECT_EQ(LocationTexts::notice(LocationNotice::imageAlreadyAdded), "Image already added.");
    EXPECT_EQ(LocationTexts::notice(LocationNotice::folderAlreadyAdded), "Folder already added.");
    EXPECT_TRUE(LocationTexts::notice(LocationNotice::none).isEmpty());
}

TEST(LocationTexts, AreTheHeadersOfBothModes) {
    EXPECT_EQ(LocationTexts::header(false), "Select Drive");
    EXPECT_EQ(LocationTexts::header(true), "Select Folders (Double click to go deeper)");
    EXPECT_EQ(LocationTexts::checkHeader(), "Scan");
}

TEST(LocationTexts, AreThoseOfADoubleClick) {
    EXPECT_EQ(LocationTexts::proceedWithScan(),
              "Select the check box and click 'Scan' button to proceed.");
    EXPECT_EQ(LocationTexts::noFolders(), "No Folders.");
}

TEST(LocationTexts, NameTheCheckBoxes) {
    EXPECT_EQ(LocationTexts::checkBoxName("100%1 photos"), "Scan this location: 100%1 photos");
}

}  // namespace
}  // namespace tarvin
