#pragma once

#include "controller/information.h"

#include <QObject>
#include <QString>

namespace tarvin {

class DialogPanel;
class MainWindow;

/// The window in which the product says what has come of something, over the covered screen. Owned
/// by AppDelegate; main thread.
class InformationWindow final : public QObject {
    Q_OBJECT

 public:
    /// `window` outlives it.
    explicit InformationWindow(MainWindow& window);

    /// Fills the window and shows it. `informationImage` is the name of a drawing; without one of
    /// that name its place stays empty.
    void setInformationWindowWithInformationHeader(const QString& informationHeader,
                                                   const QString& duplicatesCount,
                                                   const QString& duplicatesSize,
                                                   const QString& otherInfomration,
                                                   const QString& informationImage,
                                                   const QString& actionButtonTitle);
    /// The same, with a line about the files that were left if there is one.
    void setInformationWindow(const Information& information);
    void showInformationWindow();
    /// Shows it in the place of a panel, if that is shown, under the cover that is there.
    void showInPlaceOf(DialogPanel& panel);
    void setInformationWindowInPlaceOf(DialogPanel& panel, const Information& information);
    /// The button of the window.
    void okInformationWindow();

 Q_SIGNALS:
    /// It was answered and is gone.
    void closed();

 private:
    void fill(const Information& information) const;

    MainWindow& window_;
};

}  // namespace tarvin
