#include "product.h"

#include "controller/desktop.h"
#include "controller/resource_files.h"
#include "interface/main_window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTimer>
#include <QWindow>
#include <utility>

namespace tarvin::bench {

namespace {

constexpr std::chrono::minutes maxWait{10};

}  // namespace

void usePlatformOfMeasurement() {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
}

void nameTheProduct() {
    QCoreApplication::setOrganizationName(QStringLiteral("Tarvin Software"));
    QCoreApplication::setApplicationName(QStringLiteral("Tarvin Duplicate File Remover"));
}

Product::Product(Platform& platform) {
    delegate_ = std::make_unique<AppDelegate>(
        AppDelegate::Surroundings{.platform = platform,
                                  .desktop = systemDesktop(),
                                  .settings = settings_,
                                  .terminate = [] {},
                                  .version = QStringLiteral("0"),
                                  .urls = installedResource(QStringLiteral("Urls.plist"))});
    delegate_->applicationDidFinishLaunching();
    hand_.setSingleShot(true);
    QObject::connect(&hand_, &QTimer::timeout, delegate_.get(),
                     [this] { std::exchange(action_, {})(); });
}

Product::~Product() = default;

bool Product::comes() {
    return until([this] {
        const QWindow* const handle = window().windowHandle();
        return handle != nullptr && handle->isExposed();
    });
}

bool Product::isOn(const QString& screen) {
    return window().selectedTabViewItem() == screen;
}

void Product::act(std::function<void()> action) {
    action_ = std::move(action);
    hand_.start();
}

void Product::click(QAbstractButton* button) {
    act([button] { button->click(); });
}

bool Product::until(const std::function<bool()>& condition) {
    QTimer deadline;
    deadline.setSingleShot(true);
    deadline.start(maxWait);
    while (!condition()) {
        if (!deadline.isActive()) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

void Product::rest(std::chrono::milliseconds time) {
    QTimer alarm;
    alarm.setSingleShot(true);
    alarm.start(time);
    static_cast<void>(until([&alarm] { return !alarm.isActive(); }));
}

}  // namespace tarvin::bench
