#include "controller/shown_numbers.h"

#include "interface/translation.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

namespace tarvin {
namespace {

class ShownNumbersTest : public testing::Test {
 protected:
    ShownNumbersTest() { qputenv("TZ", "UTC"); }
    ~ShownNumbersTest() override {
        QLocale::setDefault(before_);
        if (translation_ != nullptr) {
            QCoreApplication::removeTranslator(translation_.get());
        }
    }

    void speakGerman() {
        translation_ = loadTranslation(QLocale(QStringLiteral("de_DE")));
        ASSERT_NE(translation_, nullptr);
        QCoreApplication::installTranslator(translation_.get());
    }

    static constexpr Timestamp moment{std::chrono::sys_days(std::chrono::year(2026) / 11 / 21) +
                                      std::chrono::hours(14) + std::chrono::minutes(32)};

 private:
    const QLocale before_;
    std::unique_ptr<QTranslator> translation_;
};

TEST_F(ShownNumbersTest, AreEnglishWhereTheWindowIs) {
    for (const char* desktop : {"C", "en_GB", "de_DE"}) {
        QLocale::setDefault(QLocale(QLatin1String(desktop)));
        EXPECT_EQ(ShownNumbers::count(1'406), QStringLiteral("1,406")) << desktop;
        EXPECT_EQ(ShownNumbers::size(157'460'000), QStringLiteral("157.46 MB")) << desktop;
        EXPECT_EQ(ShownNumbers::dateAndTime(moment), QStringLiteral("21 November 2026, 14:32"))
            << desktop;
    }
}

TEST_F(ShownNumbersTest, AreGermanWhereTheWindowIs) {
    speakGerman();
    for (const char* desktop : {"C", "en_GB", "de_DE"}) {
        QLocale::setDefault(QLocale(QLatin1String(desktop)));
        EXPECT_EQ(ShownNumbers::count(1'406), QStringLiteral("1.406")) << desktop;
        EXPECT_EQ(ShownNumbers::size(157'460'000), QStringLiteral("157,46 MB")) << desktop;
        EXPECT_EQ(ShownNumbers::dateAndTime(moment), QStringLiteral("21. November 2026, 14:32"))
            << desktop;
    }
}

TEST_F(ShownNumbersTest, AreThoseOfThePersonsCountryInTheLanguageOfTheWindow) {
    QLocale::setDefault(QLocale(QStringLiteral("en_US")));
    EXPECT_TRUE(ShownNumbers::dateAndTime(moment).startsWith(QStringLiteral("November 21, 2026, ")))
        << ShownNumbers::dateAndTime(moment).toStdString();
}

}  // namespace
}  // namespace tarvin
