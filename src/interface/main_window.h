#pragma once

#include "interface/placement.h"

#include <QVector>
#include <QWidget>
#include <functional>
#include <memory>

class QAction;
class QLabel;
class QMenu;
class QStackedWidget;

namespace tarvin {

class AboutPanel;
class ButtonSettingsSaved;
class DeletionPanel;
class DialogPanel;
class ExceptionPanel;
class HomeScreen;
class HoverButton;
class InformationPanel;
class ListPanel;
class LoadingOverlay;
class LocationScreen;
class MenuButton;
class NoticePanel;
class OpenPanels;
class PressGuard;
class ProgressScreen;
class PutBackPanel;
class PutBackProgress;
class PutBackReport;
class ResultScreen;
class Screen;
class Shortcuts;
class Spinner;
class TextBlock;
class ViewTopBar;
class WindowCovers;

/// The one window of the program: the bar at the top, the screens below, and the panels that come
/// over them. Holds every control and decides nothing: who owns the window connects the controls'
/// signals and sets their texts and states. Main thread.
///
/// Each public member is a control, for as long as the window lives; its object name is the name of
/// the member. Those of a screen are members of the screen.
class MainWindow final : public QWidget {
    Q_OBJECT

 public:
    /// Of the content; also the least that the window can be made.
    static constexpr QSize designSize{1016, 531};

    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

    ViewTopBar* const topBar;
    QStackedWidget* const tabViewMain;
    HomeScreen* const home;           ///< "1"
    LocationScreen* const locations;  ///< "2"
    ProgressScreen* const progress;   ///< "5"
    ResultScreen* const results;      ///< "4"

    /// Shown by popUpMoreMenu().
    QMenu* const moreMenu;
    /// Opens it: functions without a button of their own; also F10, but for macOS, where a panel is
    /// not open. Disabled whenever Help is, and on the progress screen.
    MenuButton* const buttonMore;
    /// "Put Back Last Clean-up…"; also Ctrl+Z where the button can be pressed and no panel is open.
    QAction* const putBackItem;

    HoverButton* const buttonHelpManual;
    /// Shown by popUpHelpMenu().
    QMenu* const helpMenu;
    QAction* const helpMenuItem;     ///< "User Guide"; also F1, wherever a person is
    QAction* const supportMenuItem;  ///< "Contact Support"
    QAction* const updateMenuItem;   ///< "Check for Updates..."
    QAction* const aboutMenuItem;    ///< "About Tarvin Duplicate File Remover"

    /// The notice with one answer, for the list and for closing during a scan.
    NoticePanel* const runningAlert;
    TextBlock* const runningAlertText;
    ButtonSettingsSaved* const runningAlertOk;
    /// "Are you sure, you want to stop this process?"
    NoticePanel* const confirmationView;
    ButtonSettingsSaved* const cancelNo;
    ButtonSettingsSaved* const cancelYes;

    /// The panels of the results, each shown by showOver() and hidden by its owner.
    InformationPanel* const informationWindow;
    ExceptionPanel* const exceptionWindow;
    DeletionPanel* const deletionPreview;
    ListPanel* const keptWindow;  ///< the files that a clean-up has left where they are
    /// What "Put Back Last Clean-up…" shows, in this order; `informationWindow` if there is nothing
    /// to put back or everything came back.
    PutBackPanel* const putBackWindow;
    PutBackProgress* const putBackProgress;
    PutBackReport* const putBackReport;
    NoticePanel* const allCheckAlertView;
    ButtonSettingsSaved* const allCheckOk;

    AboutPanel* const windowAboutPanel;
    QLabel* const aboutVersion;
    QWidget* const settingsWindow;       ///< never shown; others ask whether it is visible
    ButtonSettingsSaved* const savedOk;  ///< in `settingsWindow`
    QWidget* const progressWindow;       ///< never filled

    /// Lies over the list and the preview of a result; hidden until it is shown.
    QWidget* const loadingView;
    Spinner* const loadingIndicator;

    /// Shows the screen with this identifier and gives the keyboard to its first control. An
    /// unknown identifier changes nothing. For the time of a double click the mouse presses nothing
    /// on a screen that has just come, so that a double click on Scan does not press Stop, too.
    void selectTabViewItem(const QString& identifier);
    /// The identifier of the screen that is shown.
    [[nodiscard]] QString selectedTabViewItem() const;

    /// Shows a notice with its lower left corner at `origin`, counted from the lower left of the
    /// content as the design draws it; in a larger window it keeps its place relative to the
    /// middle. The keyboard goes to its answer and stays inside until the notice is hidden.
    void showNotice(NoticePanel* notice, QPoint origin);
    /// The same, with the upper left corner at `origin` of the list area of the locations, counted
    /// downwards.
    void showNoticeInList(NoticePanel* notice, QPoint origin);
    /// Covers the whole window with a new ViewTransparent, which swallows every click meant for
    /// what lies beneath and grows with the window, and shows `panel`, one of the panels of the
    /// results, above it: with its lower left corner at `origin` as showNotice() counts it. The
    /// keyboard goes to its first answer and stays inside until the panel is hidden. Until no cover
    /// is left, bar and screens do nothing, whoever presses them.
    void showOver(QWidget* panel, QPoint origin);
    /// The same with the place of the panel in the design, from the upper left. `across` and `down`
    /// say what it does with what the window gains.
    void showOver(DialogPanel* panel, const QRect& design, Growth across = inMiddle,
                  Growth down = inMiddle);
    /// Covers the whole window as showOver() does; the panel comes by showInPlaceOf().
    void cover();
    /// Shows `panel` under the cover that is there, in the place of `before`, if that is shown. The
    /// keyboard returns to where it was before either came.
    void showInPlaceOf(DialogPanel* before, DialogPanel* panel, const QRect& design,
                       Growth across = inMiddle, Growth down = inMiddle);
    /// Takes away all covers of showOver(), or the one that came first. Panels stay.
    void removeCovers();
    void removeFirstCover();
    /// Shows and hides `loadingView`.
    [[nodiscard]] const LoadingOverlay& loading() const { return *loading_; }

    /// Shows `windowAboutPanel` in the middle.
    void showAbout();

    /// Shows `moreMenu` under its button and returns at once.
    void popUpMoreMenu() const;
    /// Shows `helpMenu` under its button and returns at once.
    void popUpHelpMenu() const;

    /// Asked when a person closes the window: windowShouldClose. Without it the window closes.
    void setClosePermission(std::function<bool()> permission);

 Q_SIGNALS:
    /// The window was allowed to close and does: windowWillClose.
    void windowWillClose();

 protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    void placeFrame();
    void makeNotices();
    void makeHelpMenu();
    void makeMoreMenu();
    void openMoreByKey() const;
    static void popUp(QMenu& menu, const QWidget& button, int minWidth);
    void orderKeyboard();
    void showPanel(QWidget* panel, const QRect& design, Growth across = inMiddle,
                   Growth down = inMiddle);
    [[nodiscard]] QVector<Screen*> screens() const;
    [[nodiscard]] Screen* currentScreen() const;

    Placement* const placement_;
    OpenPanels* const openPanels_;
    PressGuard* const pressGuard_;
    const std::unique_ptr<LoadingOverlay> loading_;
    const std::unique_ptr<WindowCovers> covers_;
    const std::unique_ptr<Shortcuts> shortcuts_;  // disabled while a panel is shown
    std::function<bool()> closePermission_;
};

}  // namespace tarvin
