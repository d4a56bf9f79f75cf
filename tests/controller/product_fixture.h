#pragma once

#include "controller/app_delegate.h"
#include "controller/preview_program.h"
#include "support/fake_platform.h"
#include "support/faulty_file_system.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QSettings>
#include <QTest>
#include <atomic>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {

/// Records alerts; the test presses their buttons.
class FakeAlerts final : public Alerts {
 public:
    using Alerts::show;
    Number show(const Alert& alert, std::function<void(int button)> answered) override {
        shown.push_back(alert);
        open_[shown.size()] = std::move(answered);
        return shown.size();
    }
    void withdraw(Number alert) override { open_.erase(alert); }

    /// Presses a button of the alert shown last, if it is still open.
    void press(int button) {
        if (const auto pressed = open_.extract(shown.size()); pressed && pressed.mapped()) {
            pressed.mapped()(button);
        }
    }

    /// The number of alerts neither answered nor withdrawn.
    [[nodiscard]] std::size_t open() const { return open_.size(); }

    std::vector<Alert> shown;

 private:
    std::map<Number, std::function<void(int button)>> open_;
};

/// File panels that return `choice` at once.
class FakePanels final : public FilePanels {
 public:
    void open(const OpenPanel& panel,
              std::function<void(const std::vector<std::string>& paths)> chosen) override {
        opened.push_back(panel);
        if (choice) {
            chosen(*choice);
        }
    }

    void save(const SavePanel& panel,
              std::function<void(const std::string& path, std::size_t type)> chosen) override {
        saved.push_back(panel);
        if (target) {
            chosen(*target, type);
        }
    }

    std::vector<SavePanel> saved;
    std::optional<std::string> target;  ///< of save(); nullopt: the user cancels
    std::size_t type = 0;
    std::vector<OpenPanel> opened;
    std::optional<std::vector<std::string>> choice;  ///< nullopt: the user cancels
};

class FakeDesktop final : public Desktop {
 public:
    bool openPath(const std::string& path) override {
        paths.push_back(path);
        return opensPaths;
    }
    void showInFolder(const std::string& path) override { shownInFolder.push_back(path); }
    bool openUrl(const QString& url) override {
        urls.push_back(url);
        return true;
    }
    bool startProgram(const QString& program, const QStringList& given) override {
        programs.push_back(program);
        arguments = given;
        return true;
    }

    bool opensPaths = true;  ///< false: there is no application
    std::vector<std::string> paths;
    std::vector<std::string> shownInFolder;
    QStringList urls;
    QStringList programs;
    QStringList arguments;  ///< of the last program
};

/// Blocks a thread until the test opens it. Any thread.
class Barrier final {
 public:
    ~Barrier() { open(); }
    void wait() {
        arrived_ = true;
        open_.wait(false);
    }
    void open() {
        open_ = true;
        open_.notify_all();
    }
    [[nodiscard]] bool isReached() const { return arrived_; }

 private:
    std::atomic<bool> arrived_{false};
    std::atomic<bool> open_{false};
};

/// The product with its real window on a fake platform, driven by clicks on controls, which are
/// found by their object names.
class ProductFixture : public testing::Test {
 protected:
    ProductFixture() {
        // Tests click faster than the interval, which must not make double clicks.
        QApplication::setDoubleClickInterval(0);
        platform.setUserName("me");
        platform.setApplicationSupportFolder(folder.pathOf("support"));
        platform.setUserFolder(UserFolder::desktop, folder.makeFolder("Desktop"));
        platform.setUserFolder(UserFolder::documents, folder.makeFolder("Documents"));
        platform.setUserFolder(UserFolder::pictures, folder.makeFolder("Pictures"));
        platform.setMountedVolumes({{folder.makeFolder("volume"), "ext4", VolumeKind::internal}});
    }

    ~ProductFixture() override { QApplication::setDoubleClickInterval(usualInterval); }

    /// Makes the product.
    void make() {
        delegate = std::make_unique<AppDelegate>(
            AppDelegate::Surroundings{.platform = platform,
                                      .desktop = *usedDesktop,
                                      .settings = settings,
                                      .alerts = &alerts,
                                      .panels = usedPanels,
                                      .terminate = [this] { ++terminations; },
                                      .version = QStringLiteral("1.2.3"),
                                      .urls = urls,
                                      .guide = guide,
                                      .previewProgram = previewProgram(),
                                      .updater = updater,
                                      .readUrl = readUrl,
                                      .fileCalls = *fileCalls});
    }

    /// Starts the product and waits for its window.
    void launch(const std::vector<std::string>& folders = {}) {
        start(folders);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window(), 20000));
    }

    /// Starts the product, which may exit in favour of another instance.
    void start(const std::vector<std::string>& folders = {}) {
        QCursor::setPos(-100, -100);
        make();
        delegate->applicationDidFinishLaunching(folders);
    }

    [[nodiscard]] MainWindow& window() { return delegate->window(); }
    [[nodiscard]] QString screen() { return window().selectedTabViewItem(); }

    template <class Control = QWidget>
    Control* control(const char* name) {
        auto* found = window().findChild<Control*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }

    /// A real click in the middle of a control, which must be visible and enabled.
    void click(const char* name) {
        auto* button = control(name);
        ASSERT_NE(button, nullptr);
        EXPECT_TRUE(button->isVisible()) << name;
        EXPECT_TRUE(button->isEnabled()) << name;
        QTest::mouseClick(button, Qt::LeftButton);
    }

    /// Opens a context menu with the right mouse button, at a position of `control`.
    void openMenu(QWidget* control, QPoint position, QMenu* menu) {
        QTest::mouseClick(window().windowHandle(), Qt::RightButton, {},
                          control->mapTo(&window(), position));
        ASSERT_TRUE(comesTrue([menu] { return menu->isVisible(); }));
    }

    /// A real click on an item of an open menu.
    static void choose(QMenu* menu, QAction* item) {
        ASSERT_TRUE(menu->isVisible());
        ASSERT_TRUE(item->isVisible());
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(item).center());
        EXPECT_TRUE(comesTrue([menu] { return !menu->isVisible(); }));
    }

    template <class Condition>
    [[nodiscard]] static bool comesTrue(const Condition& condition) {
        return QTest::qWaitFor(condition, 20000);
    }

    [[nodiscard]] bool comesTo(const char* identifier) {
        return comesTrue([&] { return screen() == QLatin1String(identifier); });
    }

    const int usualInterval = QApplication::doubleClickInterval();
    TemporaryFolder folder;
    FaultyFileSystem files;
    FakePlatform platform{files};
    FakeDesktop desktop;
    Desktop* usedDesktop = &desktop;
    FakeAlerts alerts;
    FakePanels panels;
    FilePanels* usedPanels = &panels;  ///< nullptr: the product's own
    QSettings settings{QString::fromStdString(folder.pathOf("settings.ini")), QSettings::IniFormat};
    QString urls;
    QString guide;
    QString updater;
    UrlReader readUrl;
    FileCalls* fileCalls = &systemFileCalls();  ///< of exported files
    int terminations = 0;
    std::unique_ptr<AppDelegate> delegate;
};

}  // namespace tarvin
