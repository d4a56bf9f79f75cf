#include "interface/picture_view.h"

#include "support/on_screen.h"

#include <gtest/gtest.h>

#include <QTest>

namespace tarvin {

namespace {

TEST(PictureView, AnotherImageOrBackgroundIsShown) {
    PictureView view;
    view.resize(96, 96);
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view, 20'000));
    QImage before = onScreen(view);
    const auto hasChanged = [&] {
        return QTest::qWaitFor([&] { return onScreen(view) != before && isUpToDate(view); },
                               20'000);
    };
    view.setPictureName(QStringLiteral("app_icon"));
    EXPECT_TRUE(hasChanged());
    before = onScreen(view);
    view.setBacked(true);
    EXPECT_TRUE(hasChanged());
    before = onScreen(view);
    view.setPictureName({});
    EXPECT_TRUE(hasChanged());
}

}  // namespace

}  // namespace tarvin
