#include "controller/help.h"

#include "controls/hover_button.h"
#include "interface/main_window.h"

#include <QAction>
#include <QFile>
#include <QLabel>
#include <utility>

namespace tarvin {

Help::Help(MainWindow& window, Desktop& desktop, QString guide)
    : window_(window), desktop_(desktop), guide_(std::move(guide)) {
    connect(window_.buttonHelpManual, &QAbstractButton::clicked, this,
            &Help::buttonHelpManualClicked);
    connect(window_.helpMenuItem, &QAction::triggered, this, &Help::helpMenuClicked);
    connect(window_.supportMenuItem, &QAction::triggered, this, &Help::supportMenuClicked);
    connect(window_.aboutMenuItem, &QAction::triggered, this, &Help::aboutMenuClicked);
    // Items without a target are hidden.
    window_.helpMenuItem->setEnabled(!guide_.isEmpty());
    window_.supportMenuItem->setEnabled(false);
}

void Help::setUrls(const Urls& urls) {
    urlDict_ = urls;
    window_.supportMenuItem->setEnabled(!urlDict_.support.isEmpty());
}

void Help::setVersion(const QString& version) const {
    window_.aboutVersion->setText(tr("Version %1").arg(version));
}

void Help::buttonHelpManualClicked() {
    window_.popUpHelpMenu();
}

void Help::helpMenuClicked() {
    if (!guide_.isEmpty()) {
        desktop_.openPath(QFile::encodeName(guide_).toStdString());
    }
}

void Help::openURLS(const QString& url) {
    if (!url.isEmpty()) {
        desktop_.openUrl(url);
    }
}

void Help::aboutMenuClicked() {
    if (!window_.settingsWindow->isVisible()) {
        window_.showAbout();
    }
}

}  // namespace tarvin
