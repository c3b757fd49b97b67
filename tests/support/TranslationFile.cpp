#include "tests/support/TranslationFile.h"

#include <QFile>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

TranslationFile::TranslationFile(const QString& language)
{
    QFile file(QStringLiteral(KEELBRIGHT_TRANSLATIONS "/keelbright_%1.ts").arg(language));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(file.fileName());
    QXmlStreamReader xml(&file);
    QString english;
    bool hasForms = false;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == "source"_L1)
            english = xml.readElementText();
        else if (xml.name() == "message"_L1)
            hasForms = xml.attributes().hasAttribute("numerus"_L1);
        else if (xml.name() == (hasForms ? "numerusform"_L1 : "translation"_L1))
            m_translations.insert(english, xml.readElementText());
    }
    EXPECT_FALSE(xml.hasError()) << qPrintable(xml.errorString());
}

bool TranslationFile::isTranslation(const QString& text, const QString& english) const
{
    return m_translations.contains(english, text);
}

bool TranslationFile::isCut(const QString& text) const
{
    const qsizetype end = text.indexOf(u'…');
    if (end < 2)
        return false;
    const QString start = text.first(end);
    bool isStart = false;
    for (const QString& translation : m_translations) {
        if (translation == text)
            return false;
        isStart = isStart || translation.startsWith(start);
    }
    return isStart;
}

QSet<QString> TranslationFile::words() const
{
    QSet<QString> words;
    for (const QString& translation : m_translations)
        words.unite(wordsIn(translation));
    return words;
}

QSet<QString> TranslationFile::wordsIn(const QString& text)
{
    static const QRegularExpression whole(u"(?<![\\p{L}…])\\p{L}{2,}(?![\\p{L}…])"_s);
    QSet<QString> words;
    QRegularExpressionMatchIterator matches = whole.globalMatch(QString(text).remove(u'&'));
    while (matches.hasNext())
        words.insert(matches.next().captured().toLower());
    return words;
}

} // namespace keelbright::testing
