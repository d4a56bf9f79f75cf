#include "controller/app_delegate.h"
#include "controller/command_line.h"
#include "controller/desktop.h"
#include "controller/recovery_task.h"
#include "controller/resource_files.h"
#include "interface/translation.h"
#include "platform/conventions.h"
#include "platform/platform.h"

#include <QApplication>
#include <QSettings>
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <span>
#include <string>
#include <system_error>

namespace {

/// Returns the exit status.
int print(const std::string& text) {
    if (std::fputs(text.c_str(), stdout) != EOF && std::fflush(stdout) == 0) {
        return 0;
    }
    std::fprintf(stderr, "%s: cannot write standard output: %s\n", tarvin::programName,
                 std::generic_category().message(errno).c_str());
    return 1;
}

/// Without a display Qt would abort the program.
bool hasDisplay() {
    constexpr std::array names{"DISPLAY", "WAYLAND_DISPLAY", "WAYLAND_SOCKET", "QT_QPA_PLATFORM"};
    return tarvin::conventions().alwaysHasDisplay ||
           std::any_of(names.begin(), names.end(),
                       [](const char* name) { return !qEnvironmentVariableIsEmpty(name); });
}

int refuseWithoutDisplay() {
    std::fprintf(stderr,
                 "%s: cannot open a window: no display (DISPLAY and WAYLAND_DISPLAY are not set)\n"
                 "'tarvin' does the same work in a terminal.\n",
                 tarvin::programName);
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

/// Returns the exit status, after all Qt objects have been destroyed.
int run(int& argc, char** argv) {
    const auto arguments = [&] {
        return std::span<const char* const>(argv, static_cast<std::size_t>(argc));
    };
    // Before QApplication, which needs a display.
    const tarvin::CommandLine withQtOptions = tarvin::readCommandLine(arguments());
    if (withQtOptions.help) {
        return print(tarvin::helpText());
    }
    if (withQtOptions.version) {
        return print(std::string(tarvin::programName) + ' ' + TARVIN_VERSION + '\n');
    }
    if (!withQtOptions.choosesDisplay && !hasDisplay()) {
        return refuseWithoutDisplay();
    }
    QCoreApplication::setOrganizationName(QStringLiteral("Tarvin Software"));
    QCoreApplication::setApplicationName(QStringLiteral("Tarvin Duplicate File Remover"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TARVIN_VERSION));
    QGuiApplication::setDesktopFileName(QString::fromLatin1(tarvin::programName));
    const QApplication application(argc, argv);
    const std::unique_ptr<QTranslator> translation = tarvin::loadTranslation(QLocale());
    std::unique_ptr<QTranslator> translationOfQt;
    if (translation) {
        QCoreApplication::installTranslator(translation.get());
        translationOfQt = tarvin::loadQtTranslation(translation->language());
    }
    if (translationOfQt) {
        QCoreApplication::installTranslator(translationOfQt.get());
    }
    // QApplication has removed its own options.
    const tarvin::CommandLine commandLine = tarvin::readCommandLine(arguments());
    if (!commandLine.unknownOption.empty()) {
        std::fputs(tarvin::unknownOptionText(commandLine.unknownOption).c_str(), stderr);
        return 2;
    }
    std::string errors;
    const auto folders = tarvin::givenFolders(commandLine.folders, errors);
    std::fputs(errors.c_str(), stderr);
    return runWindow(folders);
}

}  // namespace

int main(int argc, char** argv) {
    return tarvin::RecoveryTask::endOfProcess(run(argc, argv));
}
