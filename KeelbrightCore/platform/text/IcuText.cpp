#include "KeelbrightCore/platform/text/IcuText.h"

#include <QLocale>
#include <algorithm>

namespace keelbright {

namespace {

#ifndef __APPLE__

/// The user's setting for dates and times: the first of these variables that holds anything.
QByteArray dateSetting()
{
    for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"}) {
        if (QByteArray setting = qgetenv(variable); !setting.isEmpty())
            return setting;
    }
    return {};
}

/// The script that a name like "sr_RS.UTF-8@latin" ends with.
QByteArray scriptOf(const QByteArray& setting)
{
    const QByteArray modifier = setting.mid(setting.indexOf('@') + 1);
    if (modifier == "latin")
        return "Latn";
    if (modifier == "cyrillic")
        return "Cyrl";
    return modifier == "devanagari" ? "Deva" : QByteArray();
}

/// ICU's locale for a name like "de_AT.UTF-8"; American English for the locale of machines.
icu::Locale fromSetting(const QByteArray& setting)
{
    const auto isPartOfName = [](char byte) { return byte != '.' && byte != '@'; };
    const QByteArray name(setting.cbegin(), std::find_if_not(setting.cbegin(), setting.cend(), isPartOfName) -
                                                setting.cbegin());
    if (name.isEmpty() || name == "C" || name == "POSIX")
        return icu::Locale::getUS();
    QByteArray tag = name;
    if (const QByteArray script = scriptOf(setting); !script.isEmpty())
        tag.insert(tag.contains('_') ? tag.indexOf('_') : tag.size(), '_' + script);
    const icu::Locale locale = icu::Locale::createCanonical(tag.constData());
    return locale.isBogus() ? icu::Locale::getUS() : locale;
}

#endif

} // namespace

QString fromIcu(const icu::UnicodeString& text)
{
    return QString(reinterpret_cast<const QChar*>(text.getBuffer()), text.length());
}

icu::UnicodeString toIcu(const QString& text)
{
    return {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<int32_t>(text.size())};
}

icu::Locale defaultIcuLocale()
{
    const QLocale locale;
    if (locale.language() == QLocale::C)
        return icu::Locale::getUS();
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale result = icu::Locale::forLanguageTag(locale.bcp47Name().toStdString(), status);
    return U_SUCCESS(status) ? result : icu::Locale::getUS();
}

icu::Locale dateIcuLocale()
{
#ifndef __APPLE__
    if (QLocale() == QLocale::system())
        return fromSetting(dateSetting());
#endif
    return defaultIcuLocale();
}

} // namespace keelbright
