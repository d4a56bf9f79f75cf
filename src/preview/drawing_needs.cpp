#include "preview/drawing_needs.h"

#include <QBuffer>
#include <QByteArray>
#include <QFont>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImageReader>
#include <QRegularExpression>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QXmlStreamReader>

namespace tarvin {

namespace {

// An image that names more is rendered with these.
constexpr qsizetype maxFamilies = 16;
constexpr qsizetype maxLetters = 4096;

/// The fonts and characters of the texts in an SVG image.
class TextNeeds final {
 public:
    explicit TextNeeds(const QByteArray& drawing) {
        QXmlStreamReader xml(drawing);
        while (!xml.atEnd()) {
            const QXmlStreamReader::TokenType token = xml.readNext();
            if (token == QXmlStreamReader::StartElement) {
                addAttributes(xml.attributes());
            } else if (token == QXmlStreamReader::Characters) {
                addStyle(xml.text().toString());
                addLetters(xml.text());
            }
        }
    }

    [[nodiscard]] const QStringList& families() const { return families_; }
    [[nodiscard]] const QString& letters() const { return letters_; }

 private:
    void addAttributes(const QXmlStreamAttributes& attributes) {
        for (const QXmlStreamAttribute& attribute : attributes) {
            if (attribute.name() == QLatin1String("font-family")) {
                addFamilies(attribute.value().toString());
            } else if (attribute.name() == QLatin1String("style")) {
                addStyle(attribute.value().toString());
            }
        }
    }

    /// Adds the fonts that a CSS text names.
    void addStyle(const QString& text) {
        static const QRegularExpression family(QStringLiteral("font(?:-family)?\\s*:([^;}]*)"));
        for (const QRegularExpressionMatch& match : family.globalMatch(text)) {
            addFamilies(match.captured(1));
        }
    }

    void addFamilies(const QString& names) {
        static const QRegularExpression quotes(QStringLiteral("[\"']"));
        for (QString name : names.split(QLatin1Char(','))) {
            name = name.remove(quotes).trimmed();
            if (!name.isEmpty() && families_.size() < maxFamilies && !families_.contains(name)) {
                families_.append(name);
            }
        }
    }

    void addLetters(QStringView text) {
        for (const char32_t letter : text.toUcs4()) {
            if (known_.size() < maxLetters && letter > U' ' && !known_.contains(letter)) {
                known_.insert(letter);
                letters_ += QString::fromUcs4(&letter, 1);
            }
        }
    }

    QStringList families_;
    QSet<char32_t> known_;
    QString letters_;
};

/// Measuring a text loads its font, and fallback fonts for characters that it lacks.
void loadFont(QFont font, const QString& letters) {
    for (const QFont::Weight weight : {QFont::Normal, QFont::Bold}) {
        for (const bool isItalic : {false, true}) {
            font.setWeight(weight);
            font.setItalic(isItalic);
            static_cast<void>(QFontMetricsF(font).horizontalAdvance(letters));
        }
    }
}

void loadFonts(const QByteArray& drawing) {
    const TextNeeds needs(drawing);
    const QString letters = QStringLiteral("Aa1") + needs.letters();
    loadFont(QGuiApplication::font(), letters);
    for (const QString& family : needs.families()) {
        loadFont(QFont(family), letters);
    }
}

/// Qt loads each plug-in to check whether it can read this.
void loadImagePlugins() {
    QByteArray nothing("none");
    QBuffer device(&nothing);
    device.open(QIODevice::ReadOnly);
    static_cast<void>(QImageReader(&device).canRead());
}

}  // namespace

void loadDrawingNeeds(const QByteArray& drawing) {
    loadImagePlugins();
    loadFonts(drawing);
}

}  // namespace tarvin
