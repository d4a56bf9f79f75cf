#include "controller/before_input.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QTest>
#include <QWheelEvent>
#include <memory>
#include <string>
#include <vector>

namespace tarvin {
namespace {

class BeforeInputTest : public testing::Test {
 protected:
    BeforeInputTest() {
        QObject::connect(&button_, &QPushButton::pressed, &button_,
                         [this] { happened_.emplace_back("pressed"); });
        button_.resize(50, 20);
    }

    std::vector<std::string> happened_;
    QPushButton button_;
    std::unique_ptr<BeforeInput> before_ = std::make_unique<BeforeInput>([this] {
        happened_.emplace_back("before");
        before_.reset();
    });
};

TEST_F(BeforeInputTest, ComesBeforeThePressOfAButtonAndMayEndItself) {
    QTest::mousePress(&button_, Qt::LeftButton);
    EXPECT_EQ(happened_, (std::vector<std::string>{"before", "pressed"}));
}

TEST_F(BeforeInputTest, ComesBeforeAKey) {
    QTest::keyPress(&button_, Qt::Key_Space);
    EXPECT_EQ(happened_, (std::vector<std::string>{"before", "pressed"}));
}

TEST_F(BeforeInputTest, ComesBeforeAWindowIsClosed) {
    button_.show();
    EXPECT_EQ(happened_, std::vector<std::string>());
    button_.close();
    EXPECT_EQ(happened_, std::vector<std::string>{"before"});
}

TEST_F(BeforeInputTest, DoesNotComeBeforeThePointerMovesOrTheWheelTurns) {
    QTest::mouseMove(&button_, {10, 10});
    QWheelEvent turn({10, 10}, {10, 10}, {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                     Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&button_, &turn);
    EXPECT_EQ(happened_, std::vector<std::string>());
}

}  // namespace
}  // namespace tarvin
