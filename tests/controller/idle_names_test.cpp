#include "controller/result_fixture.h"
#include "controls/button_settings_saved.h"
#include "controls/spinner.h"
#include "interface/result_panels.h"

#include <QSignalSpy>

namespace tarvin {
namespace {

/// Operations without a caller or without an effect.
class IdleNames : public ThreeSetsFixture {
 protected:
    /// The visible and stored state.
    struct State {
        QImage picture;
        QModelIndex selected;
        std::uint64_t totalSelected = 0;
        std::size_t alerts = 0;
        std::size_t trashed = 0;
        QStringList storedKeys;

        bool operator==(const State&) const = default;
    };

    [[nodiscard]] State state() {
        return {window().grab().toImage(),          delegate->results().selected(),
                delegate->session().totalSelected,  alerts.shown.size(),
                platform.trash().attempts().size(), settings.allKeys()};
    }
};

TEST_F(IdleNames, TreeViewAndRightClickedChangeNothing) {
    click("markAll");
    select(0, 1);
    const State before = state();
    delegate->views().treeView();
    delegate->views().rightClicked();
    Q_EMIT delegate->rightClicked();
    QCoreApplication::processEvents();
    EXPECT_EQ(state(), before);
}

TEST_F(IdleNames, RightClickedReachesTheViews) {
    EXPECT_TRUE(QObject::disconnect(delegate.get(), &AppDelegate::rightClicked, &delegate->views(),
                                    &ResultViews::rightClicked));
}

TEST_F(IdleNames, NotifUncoversTheResult) {
    delegate->showLoading();
    ASSERT_TRUE(isCovered());
    ASSERT_TRUE(window().loadingIndicator->isAnimating());
    Q_EMIT delegate->notif();
    EXPECT_FALSE(isCovered());
    EXPECT_FALSE(window().loadingIndicator->isAnimating());
}

TEST_F(IdleNames, TheEndOfTheProgramStoresNothing) {
    click("markAll");
    const State before = state();
    const std::filesystem::path support = folder.pathOf("support");
    std::filesystem::remove_all(support);
    delegate->applicationWillTerminate();
    EXPECT_EQ(state(), before);
    EXPECT_FALSE(std::filesystem::exists(support));
    EXPECT_TRUE(QObject::disconnect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit,
                                    delegate.get(), &AppDelegate::applicationWillTerminate));
}

TEST_F(IdleNames, DeletePermanentlyDoesNothing) {
    click("markAll");
    HoverButton& button = *window().results->deletePermanently;
    ASSERT_TRUE(button.isEnabled());
    EXPECT_FALSE(button.isVisible());
    const State before = state();
    const QSignalSpy clicks(&button, &QAbstractButton::clicked);
    button.click();
    ASSERT_EQ(clicks.size(), 1);
    QCoreApplication::processEvents();
    EXPECT_EQ(state(), before);
    EXPECT_FALSE(delegate->deletion().isRunning());
}

TEST_F(IdleNames, TheSettingsAreNeverShown) {
    EXPECT_EQ(window().savedOk->title(), QStringLiteral("Ok"));
    EXPECT_EQ(window().savedOk->parentWidget(), window().settingsWindow);
    EXPECT_FALSE(window().settingsWindow->isVisible());
    EXPECT_FALSE(window().savedOk->isVisible());
}

}  // namespace
}  // namespace tarvin
