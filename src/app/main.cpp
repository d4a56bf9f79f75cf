#include "controller/app_delegate.h"
#include "controller/command_line.h"
#include "controller/desktop.h"
#include "controller/recovery_task.h"
#include "controller/resource_files.h"
#include "interface/translation.h"
#include "platform/platform.h"

#include <QApplication>
#include <QSettings>
#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <span>

namespace {

constexpr const char* programName = "tarvin-duplicate-file-remover";

int refuse(const std::string& option) {
    std::fprintf(stderr, "%s: %s is no option\nTry '%s --help'.\n", programName, option.c_str(),
                 programName);
    return 2;
}

/// Qt would end the program as if it had crashed.
bool hasDisplay() {
#ifdef Q_OS_DARWIN
    return true;
#else
    constexpr std::array names{"DISPLAY", "WAYLAND_DISPLAY", "WAYLAND_SOCKET", "QT_QPA_PLATFORM"};
    return std::any_of(names.begin(), names.end(),
                       [](const char* name) { return !qEnvironmentVariableIsEmpty(name); });
#endif
}

int refuseWithoutDisplay() {
    std::fprintf(stderr,
                 "%s: there is no display to open a window on\n"
                 "'tarvin' does the same work in a terminal.\n",
                 programName);
    return 1;
}

int runWindow(const std::vector<std::string>& folders) {
    QSettings settings;
    tarvin::AppDelegate delegate(
        {.platform = tarvin::systemPlatform(),
         .desktop = tarvin::systemDesktop(),
         .settings = settings,
         .terminate = [] { QCoreApplication::exit(); },
         .version = QApplication::applicationVersion(),
         .urls = tarvin::installedResource(QStringLiteral("Urls.plist")),
         .guide = tarvin::installedResource(QStringLiteral("index.html")),
         .previewProgram = tarvin::helperProgram(QStringLiteral("tarvin-image-preview")),
         .updater = tarvin::updaterProgram(),
         .readUrl =
             tarvin::urlReaderFor(tarvin::helperProgram(QStringLiteral("tarvin-url-reader")))});
    delegate.applicationDidFinishLaunching(folders);
    return QApplication::exec();
}

/// The whole program; what it needs of Qt is gone behind it.
int run(int& argc, char** argv) {
    const auto arguments = [&] {
        return std::span<const char* const>(argv, static_cast<std::size_t>(argc));
    };
    // Before Qt, which wants a display.
    const tarvin::CommandLine asked = tarvin::readCommandLine(arguments());
    if (asked.help) {
        std::fputs(tarvin::helpText().c_str(), stdout);
        return 0;
    }
    if (asked.version) {
        std::printf("%s %s\n", programName, TARVIN_VERSION);
        return 0;
    }
    if (!asked.choosesDisplay && !hasDisplay()) {
        return refuseWithoutDisplay();
    }
    QCoreApplication::setOrganizationName(QStringLiteral("Tarvin Software"));
    QCoreApplication::setApplicationName(QStringLiteral("Tarvin Duplicate File Remover"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TARVIN_VERSION));
    QGuiApplication::setDesktopFileName(QString::fromLatin1(programName));
    const QApplication application(argc, argv);
    const std::unique_ptr<QTranslator> translation = tarvin::loadTranslation(QLocale());
    if (translation) {
        QCoreApplication::installTranslator(translation.get());
    }
    // Qt has taken its own options away.
    const tarvin::CommandLine commandLine = tarvin::readCommandLine(arguments());
    if (!commandLine.unknownOption.empty()) {
        return refuse(commandLine.unknownOption);
    }
    std::string complaints;
    const auto folders = tarvin::givenFolders(commandLine.folders, complaints);
    std::fputs(complaints.c_str(), stderr);
    return runWindow(folders);
}

}  // namespace

int main(int argc, char** argv) {
    return tarvin::RecoveryTask::endOfProcess(run(argc, argv));
}
