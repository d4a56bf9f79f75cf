#include "controller/file_dialogs.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <QFileDialog>
#include <QListView>
#include <QTest>

namespace tarvin {
namespace {

/// The dialogs of the product over a window, answered as a person would.
class FileDialogsTest : public testing::Test {
 protected:
    FileDialogsTest() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

    void SetUp() override {
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    }

    QFileDialog* open(const OpenPanel& panel) {
        dialogs.open(panel, [this](const std::vector<std::string>& paths) {
            ++answers;
            chosen = paths;
        });
        auto* dialog = window.findChild<QFileDialog*>();
        EXPECT_NE(dialog, nullptr);
        return dialog;
    }

    const OpenPanel folders{.canChooseDirectories = true, .allowedFileTypes = {}};
    const OpenPanel photos{.canChooseDirectories = false,
                           .allowedFileTypes = {QStringLiteral("jpg"), QStringLiteral("cr2")}};
    TemporaryFolder folder;
    QWidget window;
    FileDialogs dialogs{&window};
    std::vector<std::string> chosen;
    int answers = 0;
};

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

TEST_F(FileDialogsTest, AnswerWithThePathsThatAreThere) {
    const std::string path = folder.makeFolder("M\xC3\xBCsik");
    QFileDialog* dialog = open(folders);
    Q_EMIT dialog->filesSelected(
        {QString::fromStdString(path), QString::fromStdString(folder.pathOf("M\xEF\xBF\xBD"))});
    EXPECT_EQ(chosen, std::vector<std::string>{path});
}

TEST_F(FileDialogsTest, AnswerNothingWhenTheyAreLeft) {
    open(photos)->reject();
    EXPECT_TRUE(QTest::qWaitFor([this] { return window.findChild<QFileDialog*>() == nullptr; }));
    EXPECT_EQ(answers, 0);
}

}  // namespace
}  // namespace tarvin
