#include "controller/file_dialogs.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTest>
#include <QTimer>
#include <algorithm>

namespace tarvin {
namespace {

/// The product's dialogs over a window, operated by keyboard and mouse.
class FileDialogsTest : public testing::Test {
 protected:
    using Paths = std::vector<std::string>;

    FileDialogsTest() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

    void SetUp() override {
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    }

    QFileDialog* open(const OpenPanel& panel) {
        dialogs.open(panel, [this](const Paths& paths) {
            ++answers;
            chosen = paths;
        });
        auto* dialog = window.findChild<QFileDialog*>();
        EXPECT_NE(dialog, nullptr);
        EXPECT_TRUE(QTest::qWaitForWindowExposed(dialog));
        dialog->setDirectory(QString::fromStdString(folder.path()));
        return dialog;
    }

    /// Types a name, key by key, and presses Return.
    static void type(QFileDialog* dialog, const std::string& name) {
        auto* edit = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        ASSERT_NE(edit, nullptr);
        edit->setFocus();
        edit->clear();
        for (const QChar letter : QString::fromStdString(name)) {
            QTest::sendKeyEvent(QTest::Click, edit, Qt::Key_unknown, QString(letter), {});
        }
        QTest::keyClick(edit, Qt::Key_Return);
    }

    [[nodiscard]] bool isGone() {
        return QTest::qWaitFor([this] { return window.findChild<QFileDialog*>() == nullptr; },
                               20000);
    }

    [[nodiscard]] static QString hintOf(const QFileDialog& dialog) {
        const auto* hint = dialog.findChild<QLabel*>(QStringLiteral("hint"));
        return hint != nullptr && hint->isVisible() ? hint->text() : QString();
    }

    /// The text of the box over `parent`, which is closed.
    static QString answerBox(const QWidget& parent) {
        auto* box = parent.findChild<QMessageBox*>();
        if (box == nullptr) {
            return {};
        }
        const QString text = box->informativeText();
        box->close();
        return text;
    }

    const OpenPanel folders{.canChooseDirectories = true, .allowedFileTypes = {}};
    const OpenPanel photos{.canChooseDirectories = false,
                           .allowedFileTypes = {QStringLiteral("jpg"), QStringLiteral("cr2")}};
    TemporaryFolder folder;
    QWidget window;
    FileDialogs dialogs{&window};
    Paths chosen;
    int answers = 0;
};

TEST_F(FileDialogsTest, BeginAsSheetsOnTheWindow) {
    for (const OpenPanel& panel : {folders, photos}) {
        QFileDialog* dialog = open(panel);
        EXPECT_EQ(dialog->parentWidget(), &window);
        EXPECT_EQ(dialog->windowModality(), Qt::WindowModal);
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_EQ(answers, 0);
        dialog->reject();
        ASSERT_TRUE(isGone());
    }
}

TEST_F(FileDialogsTest, ForFoldersOfferFoldersAndSeveralOfThem) {
    const QFileDialog* dialog = open(folders);
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Add Folders"));
    EXPECT_EQ(dialog->fileMode(), QFileDialog::Directory);
    EXPECT_TRUE(dialog->testOption(QFileDialog::ShowDirsOnly));
    EXPECT_EQ(dialog->findChild<QListView*>(QStringLiteral("listView"))->selectionMode(),
              QAbstractItemView::ExtendedSelection);
}

TEST_F(FileDialogsTest, ForPhotosOfferFilesOfTheTypesInAnySpelling) {
    const QFileDialog* dialog = open(photos);
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Add Photos"));
    EXPECT_EQ(dialog->fileMode(), QFileDialog::ExistingFiles);
    EXPECT_EQ(dialog->nameFilters(),
              QStringList{QStringLiteral("Photos (*.[jJ][pP][gG] *.[cC][rR]2)")});
}

TEST_F(FileDialogsTest, AnswerWithAPathThatWasTypedInFull) {
    const std::string path = folder.makeFolder("albums/summer");
    folder.makeFolder("albums/winter");
    QFileDialog* dialog = open(folders);
    type(dialog, path);
    ASSERT_TRUE(isGone());
    EXPECT_EQ(chosen, Paths{path});
}

/// Qt also selects the folders above it if its field does not have the focus.
TEST_F(FileDialogsTest, AnswerWithAPathAndNotWithTheFoldersAboveIt) {
    const std::string path = folder.makeFolder("albums/summer/june");
    for (const char* shown : {"", "albums", "albums/summer", "albums/summer/june"}) {
        QFileDialog* dialog = open(folders);
        dialog->setDirectory(QString::fromStdString(folder.pathOf(shown)));
        auto* edit = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        dialog->findChild<QListView*>(QStringLiteral("listView"))->setFocus();
        for (const std::string& step : {std::string("/"), folder.path(), folder.pathOf("albums"),
                                        folder.pathOf("albums/summer"), path}) {
            edit->setText(QString::fromStdString(step));
        }
        static_cast<QDialog*>(dialog)->accept();
        ASSERT_TRUE(isGone());
        EXPECT_EQ(chosen, Paths{path}) << shown;
    }
}

TEST_F(FileDialogsTest, AnswerWithAPathBesideTheFolderThatIsShown) {
    const std::string path = folder.makeFolder("albums/summer");
    const std::string shown = folder.makeFolder("shown/inner");
    QFileDialog* dialog = open(folders);
    dialog->setDirectory(QString::fromStdString(folder.pathOf("shown")));
    auto* edit = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    dialog->findChild<QListView*>(QStringLiteral("listView"))->setFocus();
    edit->setText(QString::fromStdString(folder.pathOf("shown")));
    edit->setText(QString::fromStdString(path));
    static_cast<QDialog*>(dialog)->accept();
    ASSERT_TRUE(isGone());
    EXPECT_EQ(chosen, Paths{path});
}

TEST_F(FileDialogsTest, AnswerWithANameInTheFolderThatIsShown) {
    const std::string path = folder.makeFolder("M\xC3\xBCsik");
    type(open(folders), "M\xC3\xBCsik");
    ASSERT_TRUE(isGone());
    EXPECT_EQ(chosen, Paths{path});
}

TEST_F(FileDialogsTest, AnswerWithTheFolderThatIsShownIfNothingElseIsChosen) {
    QFileDialog* dialog = open(folders);
    static_cast<QDialog*>(dialog)->accept();
    ASSERT_TRUE(isGone());
    EXPECT_EQ(chosen, Paths{folder.path()});
}

TEST_F(FileDialogsTest, AnswerWithTheRootAlone) {
    type(open(folders), "/");
    ASSERT_TRUE(isGone());
    EXPECT_EQ(chosen, Paths{"/"});
}

TEST_F(FileDialogsTest, AnswerWithSeveralFolders) {
    const Paths paths{folder.makeFolder("a"), folder.makeFolder("b")};
    QFileDialog* dialog = open(folders);
    auto* list = dialog->findChild<QListView*>(QStringLiteral("listView"));
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return list->model()->rowCount(list->rootIndex()) == 2; }, 20000));
    list->selectAll();
    static_cast<QDialog*>(dialog)->accept();
    ASSERT_TRUE(isGone());
    std::sort(chosen.begin(), chosen.end());
    EXPECT_EQ(chosen, paths);
}

TEST_F(FileDialogsTest, ForPhotosTakeATypedNameOfTheTypes) {
    const std::string photo = folder.writeFile("sea.JPG", "x");
    type(open(photos), "sea.JPG");
    ASSERT_TRUE(isGone());
    EXPECT_EQ(chosen, Paths{photo});
}

TEST_F(FileDialogsTest, ForPhotosRefuseATypedNameOfAnotherType) {
    folder.writeFile("letter.txt", "x");
    folder.writeFile("letter", "x");
    QFileDialog* dialog = open(photos);
    for (const char* name : {"letter.txt", "letter"}) {
        type(dialog, name);
        EXPECT_EQ(answerBox(*dialog),
                  QStringLiteral("Only photos of these types can be added: jpg, cr2."));
        EXPECT_TRUE(dialog->isVisible());
    }
    EXPECT_EQ(answers, 0);
}

TEST_F(FileDialogsTest, SayThatOtherNamesCanBeDropped) {
    QFileDialog* dialog = open(folders);
    EXPECT_EQ(hintOf(*dialog),
              QStringLiteral("Folders not shown here can be dropped onto the list."));
    dialog->reject();
    ASSERT_TRUE(isGone());
    EXPECT_EQ(hintOf(*open(photos)),
              QStringLiteral("Photos not shown here can be dropped onto the list."));
}

TEST_F(FileDialogsTest, SayNothingAboutDroppingWhereNothingMayBeDropped) {
    const OpenPanel panel{
        .canChooseDirectories = true, .allowedFileTypes = {}, .mayBeDropped = false};
    QFileDialog* dialog = open(panel);
    EXPECT_EQ(hintOf(*dialog), QString());
    dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))
        ->setText(QStringLiteral("caf\uFFFD"));
    Q_EMIT dialog->accepted();
    EXPECT_EQ(answerBox(window), QStringLiteral("Some of the chosen items cannot be added here."));
}

/// A native dialog may return such a URL.
TEST_F(FileDialogsTest, SayThatWhatCannotBeNamedCanBeDropped) {
    QFileDialog* dialog = open(photos);
    dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))
        ->setText(QStringLiteral("caf\uFFFD.jpg"));
    Q_EMIT dialog->accepted();
    EXPECT_EQ(chosen, Paths());
    EXPECT_EQ(answerBox(window),
              QStringLiteral("Some of the chosen items cannot be added here. Please drop them onto "
                             "the list."));
}

TEST_F(FileDialogsTest, ForPhotosTakeNoOtherTypeFromADialogOfTheDesktop) {
    folder.writeFile("letter.txt", "x");
    QFileDialog* dialog = open(photos);
    dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))
        ->setText(QStringLiteral("letter.txt"));
    Q_EMIT dialog->accepted();
    EXPECT_EQ(answers, 1);
    EXPECT_EQ(chosen, Paths());
}

TEST_F(FileDialogsTest, ReturnNothingIfCancelled) {
    open(photos)->reject();
    EXPECT_TRUE(isGone());
    EXPECT_EQ(answers, 0);
}

/// The panel that chooses a file to write.
class SaveDialogTest : public FileDialogsTest {
 protected:
    QFileDialog* save() {
        dialogs.save({.title = QStringLiteral("Export Results"),
                      .fileName = QStringLiteral("Duplicate files"),
                      .types = {{QStringLiteral("CSV"), QStringLiteral("csv")},
                                {QStringLiteral("JSON"), QStringLiteral("json")}}},
                     [this](const std::string& path, std::size_t type) {
                         ++answers;
                         chosen = {path};
                         chosenType = type;
                     });
        auto* dialog = window.findChild<QFileDialog*>();
        EXPECT_NE(dialog, nullptr);
        EXPECT_TRUE(QTest::qWaitForWindowExposed(dialog));
        dialog->setDirectory(QString::fromStdString(folder.path()));
        return dialog;
    }

    /// Accepts a dialog as one of the desktop: without Qt's own question and completion.
    static void acceptAsDesktop(QFileDialog* dialog, const std::string& name) {
        auto* edit = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        const QSignalBlocker blocker(edit);
        edit->setText(QString::fromStdString(name));
        Q_EMIT dialog->accepted();
    }

    static void press(const QWidget& parent, const char* title) {
        auto* box = parent.findChild<QMessageBox*>();
        ASSERT_NE(box, nullptr);
        for (QAbstractButton* button : box->buttons()) {
            if (button->text().remove(QLatin1Char('&')) == QLatin1String(title)) {
                button->click();
                return;
            }
        }
        ADD_FAILURE() << title;
    }

    std::size_t chosenType = 99;
};

TEST_F(SaveDialogTest, SuggestsTheNameAndTheTypes) {
    QFileDialog* dialog = save();
    EXPECT_EQ(dialog->parentWidget(), &window);
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Export Results"));
    EXPECT_EQ(dialog->acceptMode(), QFileDialog::AcceptSave);
    EXPECT_EQ(dialog->nameFilters(),
              (QStringList{QStringLiteral("CSV (*.csv)"), QStringLiteral("JSON (*.json)")}));
    EXPECT_EQ(dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text(),
              QStringLiteral("Duplicate files.csv"));
}

TEST_F(SaveDialogTest, AnswersWithTheNameAndItsExtension) {
    type(save(), "sets");
    ASSERT_TRUE(isGone());
    EXPECT_EQ(chosen, Paths{folder.pathOf("sets.csv")});
    EXPECT_EQ(chosenType, 0U);
    type(save(), "v1.2");
    ASSERT_TRUE(isGone());
    EXPECT_EQ(chosen, Paths{folder.pathOf("v1.2")});
    EXPECT_EQ(chosenType, 0U);
}

TEST_F(SaveDialogTest, TheExtensionFollowsTheTypeAndTheTypeTheExtension) {
    QFileDialog* dialog = save();
    auto* edit = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    edit->setText(QStringLiteral("mine.csv"));
    dialog->selectNameFilter(QStringLiteral("JSON (*.json)"));
    Q_EMIT dialog->filterSelected(QStringLiteral("JSON (*.json)"));
    EXPECT_EQ(edit->text(), QStringLiteral("mine.json"));
    type(dialog, "other");
    ASSERT_TRUE(isGone());
    EXPECT_EQ(chosen, Paths{folder.pathOf("other.json")});
    EXPECT_EQ(chosenType, 1U);
    type(save(), "typed.JSON");
    ASSERT_TRUE(isGone());
    EXPECT_EQ(chosen, Paths{folder.pathOf("typed.JSON")});
    EXPECT_EQ(chosenType, 1U);
}

TEST_F(SaveDialogTest, QtsOwnAsksOnceAboutTheNameWithItsExtension) {
    folder.writeFile("sets.csv", "old");
    QFileDialog* dialog = save();
    QString asked;
    // Qt's question is modal: it is answered from its own event loop.
    QTimer::singleShot(0, dialog, [&] {
        ASSERT_TRUE(QTest::qWaitFor([&] { return dialog->findChild<QMessageBox*>() != nullptr; }));
        auto* box = dialog->findChild<QMessageBox*>();
        asked = box->text();
        box->button(QMessageBox::Yes)->click();
    });
    type(dialog, "sets");
    ASSERT_TRUE(isGone());
    EXPECT_TRUE(asked.contains(QStringLiteral("sets.csv"))) << asked.toStdString();
    EXPECT_EQ(window.findChild<QMessageBox*>(), nullptr);
    EXPECT_EQ(chosen, Paths{folder.pathOf("sets.csv")});
}

TEST_F(SaveDialogTest, ADialogOfTheDesktopIsFollowedByAQuestionIfTheExtensionWasMissing) {
    folder.writeFile("sets.csv", "old");
    acceptAsDesktop(save(), "sets");
    EXPECT_EQ(answers, 0);
    ASSERT_NE(window.findChild<QMessageBox*>(), nullptr);
    EXPECT_EQ(window.findChild<QMessageBox*>()->informativeText(),
              QStringLiteral("sets.csv already exists. Do you want to replace it?"));
    press(window, "Replace");
    EXPECT_EQ(chosen, Paths{folder.pathOf("sets.csv")});
    EXPECT_EQ(chosenType, 0U);
}

TEST_F(SaveDialogTest, AReplacementThatIsNotWantedIsNoAnswer) {
    folder.writeFile("sets.csv", "old");
    acceptAsDesktop(save(), "sets");
    press(window, "Cancel");
    EXPECT_EQ(answers, 0);
}

TEST_F(SaveDialogTest, ADialogOfTheDesktopHasAskedAboutTheNameThatItReturns) {
    folder.writeFile("sets.csv", "old");
    acceptAsDesktop(save(), "sets.csv");
    EXPECT_EQ(window.findChild<QMessageBox*>(), nullptr);
    EXPECT_EQ(chosen, Paths{folder.pathOf("sets.csv")});
    EXPECT_EQ(answers, 1);
}

TEST_F(SaveDialogTest, ReturnsNothingIfCancelled) {
    save()->reject();
    EXPECT_TRUE(isGone());
    EXPECT_EQ(answers, 0);
}

}  // namespace
}  // namespace tarvin
