#pragma once

#include "controller/file_panels.h"
#include "controller/results.h"
#include "controller/rule_choice.h"
#include "controller/rule_count.h"
#include "controller/rule_folders.h"
#include "platform/platform.h"

#include <QObject>
#include <QPointer>
#include <QSettings>
#include <QTimer>
#include <QWidget>
#include <chrono>
#include <optional>

namespace tarvin {

class FolderList;
class MainWindow;
class RulePanel;

/// "Mark by Rule…": the panel with the rule, the folders and the live count, and the marking of the
/// list in view. Rule and folders are kept in the settings, from each change on. Owned by
/// AppDelegate. Main thread only.
class MarkByRuleTask final : public QObject {
    Q_OBJECT

 public:
    /// The arguments must outlive this object, and the platform a thread that is left behind
    /// (RuleCount).
    MarkByRuleTask(Results& results, MainWindow& window, FilePanels& panels, QSettings& settings,
                   Platform& platform);
    ~MarkByRuleTask() override;

    /// Shows the panel. Does nothing without sets, or while the panel is shown.
    void open();
    void cancel();
    /// Marks by the rule and closes the panel; does nothing if it would mark no file. While the
    /// count of a change is not on the screen yet, waits for it, and marks only if it says the same
    /// as the screen. The panel stays until the marks are there.
    void mark();

    /// The rule and the folders on the screen.
    [[nodiscard]] RuleChoice choice() const;

 private:
    using SteadyTime = std::chrono::steady_clock::time_point;

    void connectPanel();
    void connectList(FolderList& list, RuleFolders& folders);
    void addFolders(FolderList& list, RuleFolders& folders);
    void removeFolder(FolderList& list, RuleFolders& folders);
    void moveFolder(int by);
    void showChoice(const RuleChoice& choice);
    void showStates();
    void choiceChanged();
    void tick();
    [[nodiscard]] bool isOver(SteadyTime since, std::chrono::milliseconds span) const;
    void showCount(const CountedRule& counted);
    void showFolders();
    void showOutcome(const QString& outcome, const QString& blocked, bool canMark);
    void store();
    void endCounting();
    void close();

    Results& results_;
    MainWindow& window_;
    RulePanel& panel_;
    FilePanels& panels_;
    QSettings& settings_;
    Clock& clock_;
    RuleFolders preferred_;
    RuleFolders protected_;
    RuleCount count_;
    QTimer ticks_;  // while a count is running or wanted, or a folder is looked for
    std::optional<SteadyTime> started_;  // the last count
    SteadyTime changed_;                 // the choice
    bool isWanted_ = false;              // the choice has changed since the last start
    bool marksWhenCounted_ = false;
    bool closesWhenMarked_ = false;
    bool replacesMarks_ = false;
    std::optional<CountedRule> counted_;  // of the choice on the screen
    QPointer<QWidget> focusedForMark_;    // has the focus that Mark had before it was disabled
};

}  // namespace tarvin
