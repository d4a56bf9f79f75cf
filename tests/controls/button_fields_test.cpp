#include "controls/button_hover_complex.h"
#include "controls/button_hover_simple.h"
#include "controls/button_settings_saved.h"
#include "controls/control_fixture.h"
#include "controls/hover_button.h"

#include <gtest/gtest.h>

#include <QTest>

namespace tarvin {
namespace {

constexpr QRect buttonFieldsGeometry(20, 20, 120, 40);

/// Counts the paint events of a widget, which must outlive it.
class Paintings final : public QObject {
 public:
    explicit Paintings(QWidget* widget) { widget->installEventFilter(this); }

    [[nodiscard]] int count() const { return count_; }

 protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        count_ += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

 private:
    int count_ = 0;
};

TEST(ButtonFields, ButtonIDIsKept) {
    ButtonHoverSimple simple;
    EXPECT_EQ(simple.buttonID(), 0);
    simple.setButtonID(-7);
    EXPECT_EQ(simple.buttonID(), -7);
    ButtonHoverComplex complex;
    EXPECT_EQ(complex.buttonID(), 0);
    complex.setButtonID(2'147'483'647);
    EXPECT_EQ(complex.buttonID(), 2'147'483'647);
}

TEST(ButtonFields, HoveringChangesTheLookOfAnAnswer) {
    ControlFixture fixture;
    auto& answer = fixture.add<ButtonSettingsSaved>(buttonFieldsGeometry);
    EXPECT_FALSE(answer.hovering());
    EXPECT_THAT(fixture.at(20, 40), IsRgb(53, 152, 252));
    answer.setHovering(true);
    EXPECT_TRUE(answer.hovering());
    EXPECT_THAT(fixture.at(20, 40), IsRgb(126, 180, 234));
    answer.setHovering(false);
    EXPECT_THAT(fixture.at(20, 40), IsRgb(53, 152, 252));
}

TEST(ButtonFields, SettingHoveringDoesNotFadeAButton) {
    HoverButton button;
    ButtonHoverComplex tile;
    for (PaintedButton* each :
         {static_cast<PaintedButton*>(&button), static_cast<PaintedButton*>(&tile)}) {
        each->setHovering(true);
        EXPECT_TRUE(each->hovering());
        EXPECT_EQ(each->alpha(), 1.0);
    }
}

TEST(ButtonFields, SettingHoveringOrMouseDownRepaints) {
    ControlFixture fixture;
    auto& tile = fixture.add<ButtonHoverComplex>(buttonFieldsGeometry);
    const Paintings paintings(&tile);
    const auto comeTo = [&](int count) {
        return QTest::qWaitFor([&] { return paintings.count() >= count; }, 20'000);
    };
    tile.update();
    ASSERT_TRUE(comeTo(1));
    QCoreApplication::processEvents();
    const int before = paintings.count();
    tile.setMouseDown(true);
    EXPECT_TRUE(tile.mouseDown());
    EXPECT_TRUE(comeTo(before + 1));
    tile.setMouseDown(false);
    EXPECT_FALSE(tile.mouseDown());
    EXPECT_TRUE(comeTo(before + 2));
    tile.setHovering(true);
    EXPECT_TRUE(comeTo(before + 3));
}

}  // namespace
}  // namespace tarvin
