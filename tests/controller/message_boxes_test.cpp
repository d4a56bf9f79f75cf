#include "controller/message_boxes.h"

#include "controller/information.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <vector>

namespace tarvin {
namespace {

/// The product's message boxes over a window, with their answers.
class MessageBoxesTest : public testing::Test {
 protected:
    void SetUp() override {
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    }

    QMessageBox* show(const Alert& alert) {
        number = boxes.show(alert, [this](int button) { answers.push_back(button); });
        auto* box = window.findChild<QMessageBox*>();
        EXPECT_NE(box, nullptr);
        EXPECT_TRUE(QTest::qWaitForWindowExposed(box));
        return box;
    }

    [[nodiscard]] bool boxIsGone() {
        return QTest::qWaitFor([this] { return window.findChild<QMessageBox*>() == nullptr; });
    }

    const Alert question{QStringLiteral("Question"),
                         QStringLiteral("Really?"),
                         {QStringLiteral("Yes"), QStringLiteral("No")},
                         1};
    QWidget window;
    MessageBoxes boxes{&window};
    Alerts::Number number = 0;  // of the last
    std::vector<int> answers;
};

TEST_F(MessageBoxesTest, ShowTheTextsAndTheButtons) {
    const QMessageBox* box = show(noticeOf(QStringLiteral("No <b>Folders</b>.")));
    EXPECT_EQ(box->text(), QStringLiteral("Tarvin Duplicate File Remover"));
    EXPECT_EQ(box->informativeText(), QStringLiteral("No <b>Folders</b>."));
    EXPECT_EQ(box->textFormat(), Qt::PlainText);
    ASSERT_EQ(box->buttons().size(), 1);
    EXPECT_EQ(box->buttons().first()->text(), QStringLiteral("Ok"));
    EXPECT_FALSE(box->iconPixmap().isNull());
}

TEST_F(MessageBoxesTest, AnswerWithThePressedButton) {
    for (const int escape : {0, 1, 2}) {
        const Alert choice{QStringLiteral("Choice"),
                           QStringLiteral("Which?"),
                           {QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")},
                           escape};
        for (const int pressed : {0, 1, 2}) {
            const QMessageBox* box = show(choice);
            for (QAbstractButton* button : box->buttons()) {
                if (button->text() == choice.buttons[pressed]) {
                    QTest::mouseClick(button, Qt::LeftButton);
                }
            }
            ASSERT_TRUE(boxIsGone());
        }
    }
    EXPECT_EQ(answers, (std::vector<int>{0, 1, 2, 0, 1, 2, 0, 1, 2}));
}

TEST_F(MessageBoxesTest, TakeEscForTheHarmlessButton) {
    QTest::keyClick(show(question), Qt::Key_Escape);
    ASSERT_TRUE(boxIsGone());
    EXPECT_EQ(answers, std::vector<int>{1});
}

TEST_F(MessageBoxesTest, OfYesAndNoTakeEnterAndEscForNo) {
    for (const Alert& alert : {stopDeletionAlert(), removeExceptionsAlert()}) {
        ASSERT_EQ(alert.buttons, (QStringList{QStringLiteral("YES"), QStringLiteral("NO")}));
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
            QMessageBox* box = show(alert);
            EXPECT_EQ(box->defaultButton()->text(), QStringLiteral("NO"));
            answers.clear();
            QTest::keyClick(box, key);
            ASSERT_TRUE(boxIsGone());
            EXPECT_EQ(answers, std::vector<int>{1}) << key;
        }
    }
}

TEST_F(MessageBoxesTest, CloseWithoutAnAnswerWhenWithdrawn) {
    show(question);
    boxes.withdraw(number);
    EXPECT_TRUE(boxIsGone());
    EXPECT_TRUE(answers.empty());
    EXPECT_TRUE(window.isEnabled());
}

TEST_F(MessageBoxesTest, OfOneThatIsWithdrawnTheOtherStays) {
    show(question);
    const Alerts::Number first = number;
    QMessageBox* second = nullptr;
    boxes.show(noticeOf(QStringLiteral("No Folders.")),
               [this](int button) { answers.push_back(button + 10); });
    for (auto* box : window.findChildren<QMessageBox*>()) {
        second = box->informativeText() == QStringLiteral("No Folders.") ? box : second;
    }
    boxes.withdraw(first);
    ASSERT_TRUE(
        QTest::qWaitFor([this] { return window.findChildren<QMessageBox*>().size() == 1; }));
    boxes.withdraw(first);
    boxes.withdraw(0);
    QTest::keyClick(second, Qt::Key_Escape);
    EXPECT_TRUE(boxIsGone());
    EXPECT_EQ(answers, std::vector<int>{10});
}

TEST_F(MessageBoxesTest, TakeTheirClosingForTheHarmlessButton) {
    show(question)->close();
    ASSERT_TRUE(boxIsGone());
    show(noticeOf(QStringLiteral("No Folders.")))->close();
    ASSERT_TRUE(boxIsGone());
    EXPECT_EQ(answers, (std::vector<int>{1, 0}));
}

TEST_F(MessageBoxesTest, NeedNoListener) {
    boxes.show(question);
    window.findChild<QMessageBox*>()->close();
    EXPECT_TRUE(boxIsGone());
}

}  // namespace
}  // namespace tarvin
