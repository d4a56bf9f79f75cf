#include "controller/message_boxes.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QMessageBox>
#include <QTest>
#include <vector>

namespace tarvin {
namespace {

/// The boxes of the product over a window, with what was answered.
class MessageBoxesTest : public testing::Test {
 protected:
    void SetUp() override {
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    }

    QMessageBox* show(const Alert& alert) {
        boxes.show(alert, [this](int button) { answers.push_back(button); });
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
