// Operates the product's window with a large result, and measures the delay of each user action,
// the memory of each row of its views, and the longest stall of the main thread while files are
// deleted.

#include "controls/button_hover_simple.h"
#include "controls/button_settings_saved.h"
#include "controls/hover_button.h"
#include "controls/menu_button.h"
#include "controls/radio_button.h"
#include "controls/tab_button.h"
#include "equal_files.h"
#include "heartbeat.h"
#include "interface/exception_list_panel.h"
#include "interface/file_menu.h"
#include "interface/home_screen.h"
#include "interface/list_table.h"
#include "interface/location_screen.h"
#include "interface/main_window.h"
#include "interface/result_panels.h"
#include "interface/result_screen.h"
#include "interface/result_table.h"
#include "interface/result_tree_view.h"
#include "interface/rule_panel.h"
#include "interface/search_field.h"
#include "interface/text_block.h"
#include "paint_watch.h"
#include "product.h"
#include "scenario.h"
#include "switched_platform.h"
#include "view_memory.h"
#include "work_folder.h"

#include <CLI/CLI.hpp>

#include <QAction>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>
#include <array>
#include <atomic>
#include <cstdio>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace tarvin::bench {

namespace {

// Milliseconds.
constexpr double openingGoal = 300;
constexpr double markAllGoal = 100;
constexpr double markByRuleGoal = 150;
constexpr double menuGoal = 50;
constexpr double toggleGoal = 16;
constexpr double tabGoal = 150;
constexpr double frameGoal = 1000.0 / 60;
constexpr double stallGoal = 50;
constexpr double searchGoal = 50;
constexpr double removalGoal = 50;
constexpr double additionGoal = 50;
constexpr double noGoal = 0;
constexpr double bytesGoal = 64;  // a row

constexpr int times = 10;    // of each action by a click
constexpr int frames = 200;  // of each way to scroll
constexpr std::uint64_t deletedFiles = 100'000;
constexpr std::size_t exceptions = 300'000;
constexpr std::chrono::milliseconds anInstant{1};
constexpr std::chrono::milliseconds aMoment{100};
constexpr std::chrono::milliseconds longPause{2000};

struct ResultsOptions {
    std::string work = "/var/tmp";
    std::string tree;  ///< a tree that is there, if not empty
    EqualFiles result{.sets = 200'000, .files = 500'000, .extensions = 20};
    int rounds = 3;
};

/// The measurements of one step.
struct Step {
    std::string name;
    double goal = noGoal;
    std::vector<double> delays;  ///< from the click to the painted effect, milliseconds
};

/// Records on a background thread when a scan's comparison ends: the main thread is notified later,
/// which is a part of the delay.
class ComparisonEnd final {
 public:
    /// Requires that the scan has begun.
    explicit ComparisonEnd(ScanRun& run)
        : thread_([this, &run] {
              while (run.scanning()) {
                  std::this_thread::sleep_for(std::chrono::microseconds(200));
              }
              end_ = SteadyClock::now();
          }) {}
    ComparisonEnd(const ComparisonEnd&) = delete;
    ComparisonEnd& operator=(const ComparisonEnd&) = delete;
    ~ComparisonEnd() {
        if (thread_.joinable()) {
            thread_.join();
        }
    }

    [[nodiscard]] SteadyClock::time_point wait() {
        thread_.join();
        return end_;
    }

 private:
    SteadyClock::time_point end_;
    std::thread thread_;
};

void clickAt(QWidget* widget, const QPoint& position) {
    for (const auto& [type, buttons] :
         {std::pair(QEvent::MouseButtonPress, Qt::MouseButtons(Qt::LeftButton)),
          std::pair(QEvent::MouseButtonRelease, Qt::MouseButtons())}) {
        QMouseEvent event(type, position, widget->mapToGlobal(QPointF(position)), Qt::LeftButton,
                          buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(widget, &event);
    }
}

/// Whether the files of the tree may be moved to the Trash.
enum class TreeIs : std::uint8_t { ours, theUsers };

/// Repeats the way through a result.
class ResultScenario final {
 public:
    ResultScenario(Heartbeat& heartbeat, std::string tree, TreeIs treeIs)
        : heartbeat_(heartbeat), tree_(std::move(tree)), treeIs_(treeIs) {}

    bool run(int rounds) {
        if (!product_.comes()) {
            return false;
        }
        Product::rest(aMoment);
        for (int round = 0; round < rounds; ++round) {
            if (!open()) {
                return false;
            }
            countRows();
            markAndUnmark("mark all", "unmark all");
            toggle();
            if (!markByRule() || !openMenus() || !useFileMenu()) {
                return false;
            }
            showTabs();
            scroll("a frame, expanded, by wheel", "a frame, expanded, by scroll bar");
            collapse();
            scroll("a frame, collapsed, by wheel", "a frame, collapsed, by scroll bar");
            markAndUnmark("mark all, collapsed", "unmark all, collapsed");
            expand();
            if (round == 0) {
                memory_ = memoryOfViews(product_.delegate().scan().run().result().modal);
            }
            platform_.setTrashFree(true);
            if (!remove("deletion, a Trash that costs nothing") || !goHome()) {
                return false;
            }
        }
        return removeReally() && useExceptions();
    }

    /// Last, because it removes the files.
    bool removeReally() {
        if (treeIs_ == TreeIs::theUsers) {
            return true;
        }
        platform_.setTrashFree(false);
        return open() && remove("deletion, the real Trash") && goHome();
    }

    [[nodiscard]] bool report() const {
        std::printf("%llu files in %zu sets of %zu extensions\n",
                    static_cast<unsigned long long>(files_), sets_, extensions_);
        std::printf(
            "Time from the click to the painted result, ms; and the longest stall of the main\n"
            "thread (work between two waits of its event loop), with its CPU time, its wait for a\n"
            "CPU and its longest handler:\n");
        std::printf("  %-36s %5s %8s %8s %8s %8s\n", "", "times", "median", "maximum", "goal",
                    "stall");
        bool reached = true;
        for (const Step& step : steps_) {
            reached = report(step) && reached;
        }
        std::printf(
            "Memory of the views: %.1f bytes a row of the outline, %.1f of the file list"
            " (%zu rows each); at most %.0f\n",
            memory_.outline, memory_.files, memory_.rows, bytesGoal);
        reached = reached && memory_.outline <= bytesGoal && memory_.files <= bytesGoal;
        for (const std::string& line : removed_) {
            std::printf("%s\n", line.c_str());
        }
        std::printf("%s\n", reached ? "all reached" : "NOT ALL REACHED");
        return reached;
    }

 private:
    MainWindow& window() { return product_.window(); }
    ResultTreeView& outline() { return *window().results->OView2; }
    ResultTable& table() { return *window().results->resultTable; }
    Results& results() { return product_.delegate().results(); }

    Step& step(const std::string& name, double goal) {
        const auto known = std::find_if(steps_.begin(), steps_.end(),
                                        [&name](const Step& other) { return other.name == name; });
        if (known != steps_.end()) {
            return *known;
        }
        steps_.push_back({name, goal, {}});
        return steps_.back();
    }

    /// Runs an action as a separate event and waits until its effect is painted.
    template <class Action>
    bool measure(const std::string& name, double goal, PaintWatch& answer, Action action) {
        heartbeat_.enter(name);
        SteadyClock::time_point begin;
        bool begun = false;
        product_.act([&] {
            answer.forget();
            begun = true;
            begin = SteadyClock::now();
            action();
        });
        const bool came = Product::until([&] { return begun && answer.isPainted(); });
        step(name, goal).delays.push_back(milliseconds(SteadyClock::now() - begin));
        return came;
    }

    void rest(std::chrono::milliseconds time) {
        Product::rest(time);
        // A button may be disabled until the marks are there, and rows may be missing.
        static_cast<void>(Product::until(
            [this] { return !results().isMarking() && !outline().isExpandingAll(); }));
        heartbeat_.enter("");
    }

    bool open() {
        bool begun = false;
        result_.forget();
        heartbeat_.enter("");
        product_.act([&] {
            product_.delegate().locations().openWith({tree_});
            window().locations->findDuplicateExact->click();
            begun = true;
        });
        if (!Product::until([&] { return begun; })) {
            return false;
        }
        ComparisonEnd end(product_.delegate().scan().run());
        const std::string name = "the result opens";
        heartbeat_.enter(name);
        const QString screen = window().results->identifier();
        const bool came =
            Product::until([&] { return product_.isOn(screen) && result_.isPainted(); });
        const SteadyClock::time_point shown = SteadyClock::now();
        step(name, openingGoal).delays.push_back(milliseconds(shown - end.wait()));
        rest(aMoment);
        return came && acknowledge();
    }

    /// Closes the summary.
    bool acknowledge() {
        if (!window().informationWindow->isVisible()) {
            return true;
        }
        product_.click(window().informationWindow->scanInforOKBtn);
        return Product::until([this] { return !window().informationWindow->isVisible(); });
    }

    void countRows() {
        const Modal& modal = results().list();
        files_ = product_.delegate().scan().run().processed();
        extensions_ = modal.extensionCount();
        sets_ = 0;
        for (const auto& extension : modal.extensions()) {
            sets_ += extension->sets().size();
        }
    }

    void markAndUnmark(const char* mark, const char* unmark) {
        for (int turn = 0; turn < times; ++turn) {
            measure(mark, markAllGoal, outlinePaint_,
                    [this] { window().results->markAll->click(); });
            rest(aMoment);
            measure(unmark, markAllGoal, outlinePaint_,
                    [this] { window().results->unMarkAll->click(); });
            rest(aMoment);
        }
    }

    /// From the press of Mark until the marks are painted; before, the rule has been counted.
    bool markByRule() {
        RulePanel& panel = *window().markByRuleWindow;
        for (int turn = 0; turn < times; ++turn) {
            product_.act([this] { window().markByRuleItem->trigger(); });
            bool came = Product::until([&] { return panel.isVisible(); });
            // Another rule than before, or nothing would change.
            panel.rules()[turn % 2]->click();
            rest(aMoment);
            came = came && Product::until([&] { return panel.ruleMark->isEnabled(); });
            rest(aMoment);
            came = came && measure("mark by rule", markByRuleGoal, outlinePaint_,
                                   [&] { panel.ruleMark->click(); });
            rest(aMoment);
            if (!came || panel.isVisible()) {
                return false;
            }
        }
        product_.click(window().results->unMarkAll);
        rest(aMoment);
        return true;
    }

    bool openMenus() {
        PaintWatch more(window().moreMenu);
        FileMenu& fileMenu = *window().results->fileMenu;
        PaintWatch file(&fileMenu);
        const QPoint row =
            table().visualRect(results().files().index(1, ResultTable::ButtonCell)).center();
        for (int turn = 0; turn < 2 * times; ++turn) {
            bool came = measure("the More menu opens", menuGoal, more,
                                [this] { window().buttonMore->click(); });
            window().moreMenu->close();
            rest(aMoment);
            // The menu looks for a file to mark in the same folder: with all marked, in every set.
            const bool isMarked = turn % 2 == 1;
            product_.click(isMarked ? window().results->markAll : window().results->unMarkAll);
            rest(aMoment);
            const char* const name =
                isMarked ? "the menu of a file opens, all marked" : "the menu of a file opens";
            came = came && measure(name, menuGoal, file, [&] {
                       QContextMenuEvent event(QContextMenuEvent::Mouse, row,
                                               table().viewport()->mapToGlobal(row));
                       QCoreApplication::sendEvent(table().viewport(), &event);
                   });
            fileMenu.close();
            rest(aMoment);
            if (!came) {
                return false;
            }
        }
        product_.click(window().results->unMarkAll);
        rest(aMoment);
        return true;
    }

    /// One file of the first set, and all of its folder; then the marks of an extension.
    bool useFileMenu() {
        FileMenu& menu = *window().results->fileMenu;
        product_.act([this] { outline().selectSet(results().tree().indexOfSet(0, 0)); });
        rest(aMoment);
        bool came = true;
        for (int turn = 0; turn < times; ++turn) {
            product_.act([this, turn] { table().selectFile(turn % 2); });
            rest(aMoment);
            came = came && measure("only this file stays", noGoal, outlinePaint_,
                                   [&] { menu.keepItem->trigger(); });
            rest(aMoment);
            came = came && measure("the files of its folder are marked", noGoal, outlinePaint_,
                                   [&] { menu.markFolderItem->trigger(); });
            rest(aMoment);
            came = came && measure("an extension is toggled then", noGoal, outlinePaint_, [this] {
                       clickAt(outline().viewport(), boxOf(results().tree().indexOfExtension(0)));
                   });
            rest(aMoment);
            product_.click(window().results->unMarkAll);
            rest(aMoment);
        }
        return came;
    }

    /// Types words into the search of a large exceptions list, and takes files off it.
    bool useExceptions() {
        std::vector<std::string> paths;
        paths.reserve(exceptions);
        for (std::size_t number = 0; number < exceptions; ++number) {
            paths.push_back(tree_ + "/Pictures/20" + std::to_string(number % 30) + " Reise Küste/" +
                            "IMG_" + std::to_string(number) + ".jpg");
        }
        // Writing the list is not an action of the user: its stall is of no step.
        heartbeat_.enter("");
        static_cast<void>(product_.delegate().session().exceptions.addExceptions(paths));
        rest(aMoment);
        const ExceptionListPanel& panel = *window().exceptionListWindow;
        PaintWatch answer(panel.exceptionTable->viewport());
        bool came = addExceptions();
        const std::size_t all = product_.delegate().session().exceptionArrayData().size();
        came = came && measure("the exceptions open", openingGoal, answer,
                               [this] { window().manageExceptionsItem->trigger(); });
        came = came && Product::until([&] { return panel.exceptionRemoveMissing->isEnabled(); });
        rest(aMoment);
        for (const char* text : {"kuste/img_29999", "jpg", "no such name"}) {
            for (const QChar typed : QString::fromLatin1(text)) {
                came = came && measure("a key in the search of exceptions", searchGoal, answer,
                                       [&] { panel.exceptionSearch->insert(typed); });
                rest(aMoment);
            }
            came = came && measure("the search of exceptions is cleared", searchGoal, answer,
                                   [&] { panel.exceptionSearch->clear(); });
            rest(aMoment);
        }
        for (int turn = 0; turn < times; ++turn) {
            product_.act([&] { panel.exceptionTable->selectRow(turn); });
            rest(aMoment);
            came = came && measure("an exception is removed", removalGoal, answer,
                                   [&] { panel.exceptionRemove->click(); });
            // Until memory has changed, too, which is a stall of this step.
            const std::size_t left = all - static_cast<std::size_t>(turn) - 1;
            came = came && Product::until([&] {
                       return product_.delegate().session().exceptionArrayData().size() == left;
                   });
            rest(aMoment);
        }
        product_.click(panel.exceptionClose);
        return came;
    }

    /// Adds files to the large list, one at a time. Measures how long the main thread is busy.
    bool addExceptions() {
        const std::string name = "an exception is added";
        Session& session = product_.delegate().session();
        bool came = true;
        for (int turn = 0; came && turn < times; ++turn) {
            bool isAdded = false;
            heartbeat_.enter(name);
            product_.act([&] {
                const SteadyClock::time_point begin = SteadyClock::now();
                session.addExceptions({tree_ + "/added " + std::to_string(turn) + ".jpg"});
                step(name, additionGoal).delays.push_back(milliseconds(SteadyClock::now() - begin));
                isAdded = true;
            });
            came = Product::until([&] { return isAdded && session.exceptionChanges.isOver(); });
            rest(aMoment);
        }
        return came;
    }

    QPoint nameOf(const QModelIndex& row) {
        constexpr int inside = 5;
        const QRect area = outline().visualRect(row.siblingAtColumn(ResultTreeView::name));
        return {area.left() + inside, area.center().y()};
    }

    QPoint boxOf(const QModelIndex& row) {
        return outline().visualRect(row.siblingAtColumn(ResultTreeView::check)).center();
    }

    void toggle() {
        // Sets distributed over the list.
        for (int turn = 0; turn < times; ++turn) {
            const int extension = static_cast<int>(extensions_ - 1) * turn / times;
            const QModelIndex above = results().tree().indexOfExtension(extension);
            const int set = (results().tree().rowCount(above) - 1) * turn / times;
            const QModelIndex row = results().tree().indexOfSet(extension, set);
            outline().scrollTo(row);
            rest(aMoment);
            measure("a set is selected", noGoal, tablePaint_,
                    [&] { clickAt(outline().viewport(), nameOf(row)); });
            rest(aMoment);
            for (int twice = 0; twice < 2; ++twice) {
                measure("a file is toggled", toggleGoal, tablePaint_, [this] {
                    const QModelIndex box = results().files().index(1, ResultTable::ButtonCell);
                    clickAt(table().viewport(), table().visualRect(box).center());
                });
                rest(aMoment);
            }
            for (int twice = 0; twice < 2; ++twice) {
                measure("a set is toggled", noGoal, outlinePaint_,
                        [&] { clickAt(outline().viewport(), boxOf(row)); });
                rest(aMoment);
            }
        }
        outline().scrollToTop();
        for (int turn = 0; turn < times; ++turn) {
            measure("an extension is toggled", noGoal, outlinePaint_, [this] {
                clickAt(outline().viewport(), boxOf(results().tree().indexOfExtension(0)));
            });
            rest(aMoment);
        }
    }

    void showTabs() {
        ResultScreen& screen = *window().results;
        const std::array<std::pair<ResultView, QAbstractButton*>, 6> tabs{
            {{ResultView::image, screen.imageButton},
             {ResultView::video, screen.videoButton},
             {ResultView::audio, screen.audioButton},
             {ResultView::documents, screen.documentButton},
             {ResultView::other, screen.otherButton},
             {ResultView::all, screen.allButton}}};
        for (int turn = 0; turn < times; ++turn) {
            for (const auto& [view, button] : tabs) {
                if (view != ResultView::all && results().filesOf(view) == 0) {
                    continue;
                }
                measure(view == ResultView::all ? "the tab of all" : "the tab of a category",
                        tabGoal, outlinePaint_, [chosen = button] { chosen->click(); });
                rest(aMoment);
                if (!acknowledge()) {
                    return;
                }
            }
        }
    }

    void scroll(const char* byWheel, const char* byBar) {
        constexpr int wheelStep = 60;  // pixels
        for (int frame = 1; frame <= frames; ++frame) {
            scrollTo(byWheel, frame * wheelStep);
        }
        const std::int64_t end = outline().verticalScrollBar()->maximum();
        for (int frame = 0; frame <= frames; ++frame) {
            scrollTo(byBar, static_cast<int>(end * frame / frames));
        }
        rest(aMoment);
    }

    void scrollTo(const char* name, int value) {
        QScrollBar& bar = *outline().verticalScrollBar();
        if (value <= bar.maximum() && value != bar.value()) {
            measure(name, frameGoal, outlinePaint_, [&bar, value] { bar.setValue(value); });
            Product::rest(anInstant);
        }
    }

    void collapse() {
        measure("an extension is collapsed", noGoal, outlinePaint_, [this] {
            outline().scrollToTop();
            outline().setExpanded(results().tree().indexOfExtension(0), false);
        });
        rest(aMoment);
        outline().collapseAll();
        rest(aMoment);
    }

    void expand() {
        outline().scrollToTop();
        outline().expandAll();
        rest(aMoment);
        outline().collapse(results().tree().indexOfExtension(0));
        rest(aMoment);
        measure("an extension is expanded", noGoal, outlinePaint_,
                [this] { outline().setExpanded(results().tree().indexOfExtension(0), true); });
        rest(aMoment);
    }

    /// Marks whole extensions, until enough files are marked.
    void markForDeletion() {
        constexpr std::size_t few = 1000;
        if (extensions_ > few) {
            window().results->markAll->click();
            return;
        }
        for (int row = 0; row < static_cast<int>(extensions_) &&
                          results().list().totalFilesSelected() < deletedFiles;
             ++row) {
            Q_EMIT outline().checkBoxClicked(results().tree().indexOfExtension(row));
        }
    }

    bool remove(const std::string& name) {
        product_.act([this] { markForDeletion(); });
        rest(aMoment);
        const std::uint64_t marked = results().list().totalFilesSelected();
        heartbeat_.enter(name);
        const SteadyClock::time_point begin = SteadyClock::now();
        product_.click(window().results->finishButton);
        const bool ended =
            Product::until([this] { return window().informationWindow->isVisible(); });
        const double seconds = milliseconds(SteadyClock::now() - begin) / 1000;
        Product::rest(aMoment);
        step(name, stallGoal).delays.clear();
        removed_.push_back(name + ": " + std::to_string(marked) + " marked, " +
                           window().informationWindow->scanInfoCount->text().toStdString() + ", " +
                           std::to_string(seconds) + " s");
        heartbeat_.enter("");
        return ended && acknowledge();
    }

    bool goHome() {
        heartbeat_.enter("home from the result");
        step("home from the result", noGoal);
        product_.click(window().results->buttonHomePage);
        const bool came =
            Product::until([this] { return product_.isOn(window().home->identifier()); });
        Product::rest(longPause);
        heartbeat_.enter("");
        return came;
    }

    [[nodiscard]] Stall stallOf(const std::string& name) const {
        const auto& known = heartbeat_.steps();
        const auto found =
            std::find_if(known.begin(), known.end(),
                         [&name](const Heartbeat::Step& other) { return other.name == name; });
        return found == known.end() ? Stall() : found->longest;
    }

    [[nodiscard]] bool report(const Step& step) const {
        const Stall stall = stallOf(step.name);
        const double worst = step.delays.empty() ? stall.wall : most(step.delays);
        const bool reached = step.goal == noGoal || worst <= step.goal;
        std::printf("  %-36s", step.name.c_str());
        if (step.delays.empty()) {
            std::printf("%24s", "");
        } else {
            std::printf(" %5zu %8.1f %8.1f", step.delays.size(), median(step.delays), worst);
        }
        if (step.goal == noGoal) {
            std::printf("%9s", "");
        } else {
            std::printf(" %8.1f", step.goal);
        }
        std::printf(" %8.1f  ran %.1f, waited %.1f; %.1f in %s%s\n", stall.wall, stall.processor,
                    stall.queued, stall.handler, stall.what.c_str(),
                    reached ? "" : "  NOT REACHED");
        return reached;
    }

    Heartbeat& heartbeat_;
    const std::string tree_;
    const TreeIs treeIs_;
    SwitchedPlatform platform_;
    Product product_{platform_};
    PaintWatch result_{product_.window().results->OView2->viewport()};
    PaintWatch outlinePaint_{product_.window().results->OView2->viewport()};
    PaintWatch tablePaint_{product_.window().results->resultTable->viewport()};
    std::vector<Step> steps_;
    std::vector<std::string> removed_;
    ViewMemory memory_;
    std::uint64_t files_ = 0;
    std::size_t sets_ = 0;
    std::size_t extensions_ = 0;
};

}  // namespace

}  // namespace tarvin::bench

int main(int argc, char** argv) {
    using namespace tarvin::bench;
    CLI::App app("Measures the response times of the window with a large result.");
    ResultsOptions options;
    app.add_option("--sets", options.result.sets, "number of sets")->check(CLI::PositiveNumber);
    app.add_option("--files", options.result.files, "number of files in all sets");
    app.add_option("--extensions", options.result.extensions, "number of extensions")
        ->check(CLI::PositiveNumber);
    app.add_option("--rounds", options.rounds, "number of results")->check(CLI::PositiveNumber);
    app.add_option("--work", options.work, "folder for the files and the private home");
    app.add_option("--tree", options.tree,
                   "a tree to scan instead, whose files stay: the real Trash is not measured");
    CLI11_PARSE(app, argc, argv);

    const WorkFolder work(options.work);
    if (!options.tree.empty()) {
        return runScenario<ResultScenario>(argc, argv, options.work, options.tree, options.rounds,
                                           TreeIs::theUsers);
    }
    if (!writeEqualFiles(work.pathOf("tree"), options.result)) {
        std::fputs("The files could not be written.\n", stderr);
        return 1;
    }
    return runScenario<ResultScenario>(argc, argv, options.work, work.pathOf("tree"),
                                       options.rounds, TreeIs::ours);
}
