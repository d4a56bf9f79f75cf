#include "interface/translation.h"

#include "controls/hover_button.h"
#include "controls/look.h"
#include "interface/main_window.h"
#include "interface/translated_languages.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QGlyphRun>
#include <QRegularExpression>
#include <QTextLayout>
#include <QXmlStreamReader>
#include <map>

namespace tarvin {

namespace {

/// One text of a file of translations.
struct Entry {
    QString key;  ///< context, text and comment: what a translation is found by
    QString source;
    bool hasPlurals = false;
    bool isFinished = false;
    QStringList forms;  ///< the translation, or its plural forms
};

struct TranslationFile {
    QString language;
    std::vector<Entry> entries;

    [[nodiscard]] std::string keys() const {
        QString keys;
        for (const Entry& entry : entries) {
            keys += entry.key + QLatin1Char('\n');
        }
        return keys.toStdString();
    }

    /// The translations, or their plural forms, each with the text that it translates.
    [[nodiscard]] std::vector<std::pair<QString, QString>> pairs() const {
        std::vector<std::pair<QString, QString>> pairs;
        for (const Entry& entry : entries) {
            for (const QString& form : entry.forms) {
                if (entry.isFinished) {
                    pairs.emplace_back(entry.source, form);
                }
            }
        }
        return pairs;
    }
};

void readTranslation(QXmlStreamReader& reader, Entry& entry) {
    entry.isFinished = !reader.attributes().hasAttribute(QStringLiteral("type"));
    if (!entry.hasPlurals) {
        entry.forms.push_back(reader.readElementText());
        return;
    }
    while (reader.readNextStartElement()) {
        entry.forms.push_back(reader.readElementText());
    }
}

Entry readEntry(QXmlStreamReader& reader, const QString& context) {
    Entry entry;
    entry.hasPlurals = reader.attributes().value(QStringLiteral("numerus")) == QLatin1String("yes");
    entry.key = context;
    while (reader.readNextStartElement()) {
        if (reader.name() == QLatin1String("translation")) {
            readTranslation(reader, entry);
            continue;
        }
        const bool isSource = reader.name() == QLatin1String("source");
        const QString text = reader.readElementText();
        entry.key += QLatin1String(" | ") + text;
        if (isSource) {
            entry.source = text;
        }
    }
    return entry;
}

TranslationFile readTranslations(const QString& name) {
    QFile file(QStringLiteral(TARVIN_TRANSLATIONS "/") + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(file.fileName());
    QXmlStreamReader reader(&file);
    TranslationFile read;
    QString context;
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        if (reader.name() == QLatin1String("TS")) {
            read.language = reader.attributes().value(QStringLiteral("language")).toString();
        } else if (reader.name() == QLatin1String("name")) {
            context = reader.readElementText();
        } else if (reader.name() == QLatin1String("message")) {
            read.entries.push_back(readEntry(reader, context));
        }
    }
    EXPECT_FALSE(reader.hasError()) << qPrintable(reader.errorString());
    return read;
}

/// The placeholders of a text in alphabetical order: "%1", "%2", "%n".
QStringList placeholders(const QString& text) {
    static const QRegularExpression placeholder(QStringLiteral("%L?(?:[0-9]+|n)"));
    QStringList found;
    for (auto match = placeholder.globalMatch(text); match.hasNext();) {
        found.push_back(match.next().captured());
    }
    found.sort();
    return found;
}

/// The white space before and after a text, and the number of its lines.
std::tuple<QString, QString, qsizetype> layoutOf(const QString& text) {
    static const QRegularExpression before(QStringLiteral("^\\s*"));
    static const QRegularExpression after(QStringLiteral("\\s*$"));
    return {before.match(text).captured(), after.match(text).captured(),
            text.count(QLatin1Char('\n')) + 1};
}

/// How a text ends, if the end says what follows.
enum class Ending { none, ellipsis, colon, question };

Ending endingOf(const QString& text) {
    if (text.endsWith(QLatin1String("...")) || text.endsWith(QChar(0x2026))) {
        return Ending::ellipsis;
    }
    constexpr char16_t wideColon = 0xFF1A;
    constexpr char16_t wideQuestionMark = 0xFF1F;
    if (text.endsWith(QLatin1Char(':')) || text.endsWith(QChar(wideColon))) {
        return Ending::colon;
    }
    if (text.endsWith(QLatin1Char('?')) || text.endsWith(QChar(wideQuestionMark))) {
        return Ending::question;
    }
    return Ending::none;
}

/// How many plural forms a language has in files of translations; 0 if nobody has counted them.
qsizetype pluralForms(QLocale::Language language) {
    static const std::map<QLocale::Language, qsizetype> forms{
        {QLocale::Chinese, 1},  {QLocale::French, 2},     {QLocale::German, 2},
        {QLocale::Japanese, 1}, {QLocale::Portuguese, 2}, {QLocale::Spanish, 2}};
    const auto found = forms.find(language);
    return found == forms.end() ? 0 : found->second;
}

/// The parameter is a language.
class TranslationsTest : public testing::TestWithParam<std::string> {
 protected:
    TranslationsTest()
        : language(QString::fromStdString(GetParam())),
          file(readTranslations(QStringLiteral("tarvin_%1.ts").arg(language))),
          translator(loadTranslation(QLocale(language))) {}

    /// A text of the window as the program has it.
    [[nodiscard]] QString text(const char* context, const char* source) const {
        return translator->translate(context, source);
    }

    QString language;
    TranslationFile file;
    std::unique_ptr<QTranslator> translator;
};

TEST_P(TranslationsTest, HaveTheTextsOfTheTemplateAndNoOthers) {
    const TranslationFile all = readTranslations(QStringLiteral("tarvin.ts"));

    EXPECT_GT(all.entries.size(), 200U);
    EXPECT_EQ(file.keys(), all.keys());
}

TEST_P(TranslationsTest, AreFinished) {
    for (const Entry& entry : file.entries) {
        EXPECT_TRUE(entry.isFinished) << qPrintable(entry.key);
        for (const QString& form : entry.forms) {
            EXPECT_FALSE(form.trimmed().isEmpty()) << qPrintable(entry.key);
        }
    }
}

TEST_P(TranslationsTest, HaveEveryPluralForm) {
    for (const Entry& entry : file.entries) {
        EXPECT_EQ(entry.forms.size(),
                  entry.hasPlurals ? pluralForms(QLocale(language).language()) : 1)
            << qPrintable(entry.key);
    }
}

TEST_P(TranslationsTest, KeepThePlaceholders) {
    for (const auto& [source, translation] : file.pairs()) {
        EXPECT_EQ(placeholders(translation), placeholders(source)) << qPrintable(source);
    }
}

TEST_P(TranslationsTest, KeepTheLinesAndTheSpacesAround) {
    for (const auto& [source, translation] : file.pairs()) {
        EXPECT_EQ(layoutOf(translation), layoutOf(source)) << qPrintable(source);
    }
}

TEST_P(TranslationsTest, EndInAnEllipsisAColonOrAQuestionMarkIfTheTextDoes) {
    for (const auto& [source, translation] : file.pairs()) {
        EXPECT_EQ(endingOf(translation), endingOf(source)) << qPrintable(source);
    }
}

TEST_P(TranslationsTest, NameTheButtonsByTheirTitles) {
    ASSERT_NE(translator, nullptr);
    EXPECT_TRUE(
        text("tarvin::LocationTexts", "Select the check box and click 'Scan' button to proceed.")
            .contains(text("tarvin::LocationScreen", "Scan")));
    EXPECT_TRUE(text("tarvin::ResultTexts",
                     "The selected files will be excluded from all future scans. Press \"OK\" to "
                     "exclude.")
                    .contains(text("tarvin::ExceptionPanel", "Ok"), Qt::CaseInsensitive));
}

TEST_P(TranslationsTest, AreSpokenWhereTheyAreAskedFor) {
    EXPECT_EQ(file.language, language);
    ASSERT_NE(translator, nullptr);
    EXPECT_EQ(translator->language(), language);
    EXPECT_EQ(translator->translate("tarvin::ShownNumbers", "en",
                                    "the code of the language of these texts"),
              language);
    QCoreApplication::installTranslator(translator.get());
    {
        const MainWindow window;
        EXPECT_EQ(window.buttonHelpManual->text(), text("tarvin::MainWindow", "Help"));
    }
    QCoreApplication::removeTranslator(translator.get());
}

/// A glyph of number 0 is the box of a character that no font has.
TEST_P(TranslationsTest, AreWrittenInCharactersOfTheFonts) {
    for (const auto& [source, translation] : file.pairs()) {
        QTextLayout layout(QString(translation).remove(QLatin1Char('\n')), look::font(13));
        layout.beginLayout();
        layout.createLine();
        layout.endLayout();
        for (const QGlyphRun& run : layout.glyphRuns()) {
            EXPECT_FALSE(run.glyphIndexes().contains(0)) << qPrintable(translation);
        }
    }
}

TEST_P(TranslationsTest, HaveTheTextsOfQtBesideThem) {
    const auto ofQt = loadQtTranslation(language);

    ASSERT_NE(ofQt, nullptr);
    const QString cancel = ofQt->translate("QPlatformTheme", "Cancel");
    EXPECT_FALSE(cancel.isEmpty());
    EXPECT_NE(cancel, QStringLiteral("Cancel"));
}

INSTANTIATE_TEST_SUITE_P(Languages, TranslationsTest, testing::ValuesIn(translatedLanguages()),
                         [](const auto& tested) { return tested.param; });

struct Choice {
    const char* locale;
    const char* language;
};

void expectChoices(std::initializer_list<Choice> choices) {
    for (const Choice& choice : choices) {
        const auto translator = loadTranslation(QLocale(QLatin1String(choice.locale)));
        const QString language = translator == nullptr ? QString() : translator->language();
        EXPECT_EQ(language, QLatin1String(choice.language)) << choice.locale;
    }
}

TEST(TranslationTest, IsThatOfTheLanguageInEveryCountry) {
    expectChoices({{"de_DE", "de"},
                   {"de_AT", "de"},
                   {"fr_FR", "fr"},
                   {"fr_CA", "fr"},
                   {"es_ES", "es"},
                   {"es_MX", "es"},
                   {"ja_JP", "ja"},
                   {"pt_BR", "pt_BR"},
                   {"pt_PT", "pt_BR"}});
}

TEST(TranslationTest, OfChineseIsThatOfItsScript) {
    expectChoices({{"zh_CN", "zh_CN"}, {"zh_SG", "zh_CN"}, {"zh_TW", ""}, {"zh_HK", ""}});
}

/// Columns of file properties are aligned with two spaces or more.
TEST(TranslationTest, OfFrenchHasNoBreakBeforePunctuation) {
    static const QRegularExpression broken(QStringLiteral("[^ ] [:;!?\\x{BB}]|\\x{AB} "));
    for (const auto& [source, translation] :
         readTranslations(QStringLiteral("tarvin_fr.ts")).pairs()) {
        EXPECT_FALSE(translation.contains(broken)) << qPrintable(translation);
    }
}

TEST(TranslationTest, OfEnglishAndOfOtherLanguagesIsNone) {
    expectChoices({{"en_GB", ""}, {"en_US", ""}, {"nl_NL", ""}, {"C", ""}});
}

TEST(TranslationTest, OfQtIsNoneForALanguageThatQtLacks) {
    EXPECT_EQ(loadQtTranslation(QStringLiteral("cy")), nullptr);
}

}  // namespace

}  // namespace tarvin
