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
class ExceptionListPanel;
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
class RulePanel;
class Screen;
class Shortcuts;
class Spinner;
class TextBlock;
class ViewTopBar;
class WindowCovers;

/// The window of the program: the bar at the top, the screens below, and the panels over them.
/// Holds the controls and decides nothing: its owner connects their signals and sets their texts
/// and states. Main thread only.
///
/// Each public member is a control that exists as long as the window; its object name is the name
/// of the member. The controls of a screen are members of the screen.
class MainWindow final : public QWidget {
    Q_OBJECT

 public:
    /// The size of the content in the design, and the minimum.
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
    /// Opens `moreMenu`, with the functions that have no button. F10 opens it, too, except on macOS
    /// and while a panel is open. Disabled whenever Help is, and on the progress screen.
    MenuButton* const buttonMore;
    /// "Mark by Rule…", on the result screen only; its owner sets whether it is enabled. Ctrl+R
    /// triggers it, too, as Ctrl+Z does the next.
    QAction* const markByRuleItem;
    /// "Manage Exceptions…". Ctrl+Shift+E triggers it, too, while `buttonMore` is enabled and no
    /// panel is open.
    QAction* const manageExceptionsItem;
    /// "Export Results…", only on the result screen. Ctrl+E triggers it, too, while `buttonMore` is
    /// enabled and no panel is open.
    QAction* const exportResultsItem;
    /// Below the items that are only on the result screen.
    QAction* const resultItemsEnd;
    /// "Put Back Last Clean-up…". Ctrl+Z triggers it, too, while `buttonMore` is enabled and no
    /// panel is open.
    QAction* const putBackItem;
    /// Above the items that are only on the screen of the locations.
    QAction* const locationItemsBegin;
    /// "Skip Hidden Files and Folders", with a check mark; only on the screen of the locations.
    /// Unchecked at first.
    QAction* const skipHiddenItem;
    /// "Remember Scans", likewise.
    QAction* const rememberScansItem;
    /// "Scan in the Background", likewise.
    QAction* const backgroundItem;

    HoverButton* const buttonHelpManual;
    /// Shown by popUpHelpMenu().
    QMenu* const helpMenu;
    QAction* const helpMenuItem;     ///< "User Guide"; also F1, on every screen
    QAction* const supportMenuItem;  ///< "Contact Support"
    QAction* const updateMenuItem;   ///< "Check for Updates..."
    QAction* const aboutMenuItem;    ///< "About Tarvin Duplicate File Remover"

    /// The notice with one answer, used by the list and when the user closes the window during a
    /// scan.
    NoticePanel* const runningAlert;
    TextBlock* const runningAlertText;
    ButtonSettingsSaved* const runningAlertOk;
    /// "Are you sure, you want to stop this process?"
    NoticePanel* const confirmationView;
    ButtonSettingsSaved* const cancelNo;
    ButtonSettingsSaved* const cancelYes;

    /// The panels over the results, each shown by showOver() and hidden by its owner.
    InformationPanel* const informationWindow;
    ExceptionPanel* const exceptionWindow;
    DeletionPanel* const deletionPreview;
    ListPanel* const keptWindow;     ///< the files that a clean-up did not move
    ListPanel* const notReadWindow;  ///< the folders and files that a scan could not read
    ExceptionListPanel* const exceptionListWindow;
    /// The panels of "Put Back Last Clean-up…", in this order; `informationWindow` instead if there
    /// is nothing to put back or every file was put back.
    PutBackPanel* const putBackWindow;
    PutBackProgress* const putBackProgress;
    PutBackReport* const putBackReport;
    RulePanel* const markByRuleWindow;
    NoticePanel* const allCheckAlertView;
    ButtonSettingsSaved* const allCheckOk;

    AboutPanel* const windowAboutPanel;
    QLabel* const aboutVersion;
    QWidget* const settingsWindow;       ///< never shown, but its visibility is checked
    ButtonSettingsSaved* const savedOk;  ///< in `settingsWindow`
    QWidget* const progressWindow;       ///< never filled

    /// Over the list and the preview of a result; starts hidden.
    QWidget* const loadingView;
    Spinner* const loadingIndicator;

    /// Shows the screen with this identifier and focuses its first control. Ignores an unknown
    /// identifier. While the window is shown, mouse presses on the new screen are ignored for the
    /// duration of a double click, so that a double click on Scan does not also press Stop.
    void selectTabViewItem(const QString& identifier);
    /// The identifier of the current screen.
    [[nodiscard]] QString selectedTabViewItem() const;

    /// Shows a notice with its lower left corner at `origin`, counted from the lower left corner of
    /// the content in the design; in a larger window it keeps its position relative to the middle.
    /// The notice keeps the focus until it is hidden.
    void showNotice(NoticePanel* notice, QPoint origin);
    /// The same, with the upper left corner at `origin` in the list area of the locations, counted
    /// downwards.
    void showNoticeInList(NoticePanel* notice, QPoint origin);
    /// Covers the window with a new ViewTransparent, which takes all mouse events and grows with
    /// the window, and shows `panel`, one of the panels of the results, above it, with its lower
    /// left corner at `origin` as in showNotice(). The panel keeps the focus until it is hidden.
    /// While there is a cover, bar and screens ignore all input.
    void showOver(QWidget* panel, QPoint origin);
    /// The same with the geometry of the panel in the design. `across` and `down` are its behaviour
    /// when the window grows.
    void showOver(DialogPanel* panel, const QRect& design, Growth across = inMiddle,
                  Growth down = inMiddle);
    /// Shows `panel` above the present cover and hides `before`, if that is not null and shown.
    /// When `panel` is hidden, the focus returns to where it was before either was shown.
    void showInPlaceOf(DialogPanel* before, DialogPanel* panel, const QRect& design,
                       Growth across = inMiddle, Growth down = inMiddle);
    /// The covers of showOver(), and others for showInPlaceOf(). Removing them leaves the panels.
    [[nodiscard]] WindowCovers& covers() const { return *covers_; }
    /// Shows and hides `loadingView`.
    [[nodiscard]] const LoadingOverlay& loading() const { return *loading_; }

    /// Shows `windowAboutPanel` in the middle.
    void showAbout();

    /// Shows `moreMenu` below its button. Returns immediately.
    void popUpMoreMenu() const;
    /// Shows `helpMenu` below its button. Returns immediately.
    void popUpHelpMenu() const;

    /// Sets a callback that decides whether the user may close the window: windowShouldClose.
    /// Without one the window closes.
    void setClosePermission(std::function<bool()> permission);

 Q_SIGNALS:
    /// The window is about to close: windowWillClose.
    void windowWillClose();

 protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
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
