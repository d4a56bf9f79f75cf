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

    void speak(const char* language) {
        if (translation_ != nullptr) {
            QCoreApplication::removeTranslator(translation_.get());
        }
        translation_ = loadTranslation(QLocale(QLatin1String(language)));
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

TEST_F(ShownNumbersTest, RoundedSizesHaveOneDecimalFromMegabytes) {
    const auto text = [](std::uint64_t bytes) {
        return ShownNumbers::roundedSize(bytes).toStdString();
    };
    EXPECT_EQ(text(0), "0 KB");
    EXPECT_EQ(text(1'600), "2 KB");
    EXPECT_EQ(text(999'499), "999 KB");
    EXPECT_EQ(text(999'500), "1.0 MB");
    EXPECT_EQ(text(157'460'000), "157.5 MB");
    EXPECT_EQ(text(999'949'999), "999.9 MB");
    EXPECT_EQ(text(999'950'000), "1.0 GB");
    EXPECT_EQ(text(12'400'000'000), "12.4 GB");
    EXPECT_EQ(text(5'000'000'000'000), "5,000.0 GB");
    speak("de_DE");
    EXPECT_EQ(text(12'400'000'000), "12,4 GB");
    EXPECT_EQ(text(5'000'000'000'000), "5.000,0 GB");
}

TEST_F(ShownNumbersTest, AreGermanWhereTheWindowIs) {
    speak("de_DE");
    for (const char* desktop : {"C", "en_GB", "de_DE"}) {
        QLocale::setDefault(QLocale(QLatin1String(desktop)));
        EXPECT_EQ(ShownNumbers::count(1'406), QStringLiteral("1.406")) << desktop;
        EXPECT_EQ(ShownNumbers::size(157'460'000), QStringLiteral("157,46 MB")) << desktop;
        EXPECT_EQ(ShownNumbers::dateAndTime(moment), QStringLiteral("21. November 2026, 14:32"))
            << desktop;
    }
}

TEST_F(ShownNumbersTest, AreThoseOfEachLanguage) {
    struct Expected {
        const char* language;
        const char* count;
        const char* size;
        const char* date;
    };
    for (const Expected& expected :
         {Expected{"es", "12.345", "157,46 MB", "21 de noviembre de 2026, 14:32"},
          Expected{"fr", "12\u202F345", "157,46 MB", "21 novembre 2026 à 14:32"},
          Expected{"ja", "12,345", "157.46 MB", "2026年11月21日 14:32"},
          Expected{"pt_BR", "12.345", "157,46 MB", "21 de novembro de 2026, 14:32"},
          Expected{"zh_CN", "12,345", "157.46 MB", "2026年11月21日 14:32"}}) {
        speak(expected.language);
        EXPECT_EQ(ShownNumbers::count(12'345).toStdString(), expected.count);
        EXPECT_EQ(ShownNumbers::size(157'460'000).toStdString(), expected.size);
        EXPECT_EQ(ShownNumbers::dateAndTime(moment).toStdString(), expected.date);
    }
}

TEST_F(ShownNumbersTest, AreThoseOfThePersonsCountryInTheLanguageOfTheWindow) {
    QLocale::setDefault(QLocale(QStringLiteral("en_US")));
    EXPECT_TRUE(ShownNumbers::dateAndTime(moment).startsWith(QStringLiteral("November 21, 2026, ")))
        << ShownNumbers::dateAndTime(moment).toStdString();
}

TEST_F(ShownNumbersTest, ShortSizesHaveTwoDigitsBelowTen) {
    EXPECT_EQ(ShownNumbers::shortSize(0), "0.0 KB");
    EXPECT_EQ(ShownNumbers::shortSize(400), "0.4 KB");
    EXPECT_EQ(ShownNumbers::shortSize(7'149'999), "7.1 MB");
    EXPECT_EQ(ShownNumbers::shortSize(7'150'000), "7.2 MB");
    EXPECT_EQ(ShownNumbers::shortSize(9'949'999'999), "9.9 GB");
}

TEST_F(ShownNumbersTest, ShortSizesAreWholeFromTenOn) {
    EXPECT_EQ(ShownNumbers::shortSize(9'950), "10 KB");
    EXPECT_EQ(ShownNumbers::shortSize(19'480'000), "19 MB");
    EXPECT_EQ(ShownNumbers::shortSize(181'500'000), "182 MB");
    EXPECT_EQ(ShownNumbers::shortSize(5'000'400'000'000), "5000 GB");
    EXPECT_EQ(ShownNumbers::shortSize(18'446'744'073'709'551'615U), "18446744074 GB");
}

TEST_F(ShownNumbersTest, ShortSizesTakeTheUnitOfTheRoundedNumber) {
    EXPECT_EQ(ShownNumbers::shortSize(999'499), "999 KB");
    EXPECT_EQ(ShownNumbers::shortSize(999'500), "1.0 MB");
    EXPECT_EQ(ShownNumbers::shortSize(999'500'000), "1.0 GB");
}

TEST_F(ShownNumbersTest, ShortSizesAreGermanWhereTheWindowIs) {
    speak("de_DE");
    EXPECT_EQ(ShownNumbers::shortSize(7'100'000), "7,1 MB");
    EXPECT_EQ(ShownNumbers::shortSize(19'480'000), "19 MB");
}

}  // namespace
}  // namespace tarvin
