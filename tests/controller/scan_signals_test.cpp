#include "controller/product_fixture.h"
#include "controls/elided_label.h"
#include "interface/progress_screen.h"

#include <QLabel>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QThread>

namespace tarvin {
namespace {

/// The signals of a scan in the product.
class ScanSignals : public ProductFixture {
 protected:
    void SetUp() override {
        folder.writeFile("photos/a.jpg", "equal");
        folder.writeFile("photos/b.jpg", "equal");
        launch({folder.pathOf("photos")});
    }
};

TEST_F(ScanSignals, ReachTheProductOnTheMainThread) {
    std::vector<QThread*> threads;
    const auto note = [&threads] { threads.push_back(QThread::currentThread()); };
    QObject::connect(&delegate->scan(), &ScanTask::finished, note);
    QObject::connect(&delegate->views(), &ResultViews::shown, note);
    click("findDuplicateExact");
    ASSERT_TRUE(comesTo("4"));
    EXPECT_EQ(threads, std::vector<QThread*>(2, QCoreApplication::instance()->thread()));
}

TEST_F(ScanSignals, WaitForTheEventLoop) {
    const QSignalSpy finished(&delegate->scan(), &ScanTask::finished);
    click("findDuplicateExact");
    delegate->scan().run().wait();
    EXPECT_TRUE(delegate->scan().run().exactScanCompleted());
    EXPECT_EQ(finished.size(), 0);
    EXPECT_EQ(screen(), QStringLiteral("5"));
    ASSERT_TRUE(comesTo("4"));
    EXPECT_EQ(finished.size(), 1);
}

TEST_F(ScanSignals, FindTheFirstPageOfTheProgressScreen) {
    QStackedWidget& pages = *window().progress->exactSimilarTabView;
    pages.addWidget(new QWidget);
    pages.setCurrentIndex(1);
    click("findDuplicateExact");
    EXPECT_EQ(pages.currentIndex(), 0);
    ASSERT_TRUE(comesTo("4"));
}

TEST_F(ScanSignals, UpdateTextFieldShowsTheElapsedTime) {
    delegate->scan().updateTextField("01:02:03");
    EXPECT_EQ(window().progress->textelapse->text(), QStringLiteral("Elapsed Time: 01:02:03"));
}

}  // namespace
}  // namespace tarvin
