#include "controller/rule_texts.h"

#include <gtest/gtest.h>

#include <QLocale>

namespace tarvin {
namespace {

class RuleTextsTest : public testing::Test {
 protected:
    RuleTextsTest() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }
    ~RuleTextsTest() override { QLocale::setDefault(QLocale::c()); }

    static std::string outcome(std::uint64_t files, std::uint64_t sets) {
        return RuleTexts::outcome({files, 157'460'000, sets, 0}).toStdString();
    }
};

TEST_F(RuleTextsTest, TheOutcomeHasSingularAndPlural) {
    EXPECT_EQ(outcome(0, 0), "No files will be marked.");
    EXPECT_EQ(outcome(1, 1), "1 file (157.46 MB) will be marked in 1 set.");
    EXPECT_EQ(outcome(2, 1), "2 files (157.46 MB) will be marked in 1 set.");
    EXPECT_EQ(outcome(1406, 812), "1,406 files (157.46 MB) will be marked in 812 sets.");
}

TEST_F(RuleTextsTest, BlockedSetsAndEarlierMarksShareALine) {
    EXPECT_EQ(RuleTexts::blocked(0, false).toStdString(), "");
    EXPECT_EQ(RuleTexts::blocked(1, false).toStdString(), "1 set has no copy that may be marked.");
    EXPECT_EQ(RuleTexts::blocked(1203, true).toStdString(),
              "1,203 sets have no copy that may be marked. Earlier marks are replaced.");
    EXPECT_EQ(RuleTexts::blocked(0, true).toStdString(), "Earlier marks are replaced.");
}

TEST_F(RuleTextsTest, TheOtherTextsAreExact) {
    EXPECT_EQ(RuleTexts::counting().toStdString(), "Counting…");
    EXPECT_EQ(RuleTexts::noFolder().toStdString(), "No preferred folder yet.");
    EXPECT_EQ(RuleTexts::gone(QStringLiteral("/a")).toStdString(), "/a (not there now)");
}

}  // namespace
}  // namespace tarvin
