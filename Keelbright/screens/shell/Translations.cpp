#include "Keelbright/screens/shell/Translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

/// The texts in the sources are English, and the locale of machines is "C".
bool isEnglish(const QString& language)
{
    const QString code = language.section(u'-', 0, 0);
    return code == "en"_L1 || code == "C"_L1;
}

} // namespace

Translations::Translations(const QStringList& languages)
    : m_language(u"en"_s)
{
    for (const QString& language : languages) {
        if (isEnglish(language))
            return;
        if (load(language))
            return;
    }
}

Translations::~Translations()
{
    QCoreApplication::removeTranslator(&m_texts);
    QCoreApplication::removeTranslator(&m_textsOfQt);
}

bool Translations::load(const QString& language)
{
    // Qt takes the file of "de" for "de_AT" if there is no other.
    const QString name = QString(language).replace(u'-', u'_');
    if (!m_texts.load(u"keelbright_"_s + name, u":/translations"_s))
        return false;
    m_language = m_texts.language();
    QCoreApplication::installTranslator(&m_texts);
    if (m_textsOfQt.load(u"qtbase_"_s + name, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&m_textsOfQt);
    return true;
}

} // namespace keelbright
