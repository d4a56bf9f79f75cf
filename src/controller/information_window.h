#pragma once

#include "controller/information.h"

#include <QObject>
#include <QString>

namespace tarvin {

class DialogPanel;
class MainWindow;

/// Shows results and notices in the information panel, over the covered screen. Owned by
/// AppDelegate. Main thread only.
class InformationWindow final : public QObject {
    Q_OBJECT

 public:
    /// `window` must outlive this object.
    explicit InformationWindow(MainWindow& window);

    /// Fills the panel and shows it. No image is shown if there is none named `informationImage`.
    void setInformationWindowWithInformationHeader(const QString& informationHeader,
                                                   const QString& duplicatesCount,
                                                   const QString& duplicatesSize,
                                                   const QString& otherInfomration,
                                                   const QString& informationImage,
                                                   const QString& actionButtonTitle);
    /// The same, with `keptLine`.
    void setInformationWindow(const Information& information);
    void showInformationWindow();
    /// Replaces a panel, if that is shown, and keeps its cover.
    void showInPlaceOf(DialogPanel& panel);
    void setInformationWindowInPlaceOf(DialogPanel& panel, const Information& information);
    /// Closes the panel; the action of its button.
    void okInformationWindow();

 Q_SIGNALS:
    /// The panel was closed by its button.
    void closed();

 private:
    void fill(const Information& information) const;

    MainWindow& window_;
};

}  // namespace tarvin
