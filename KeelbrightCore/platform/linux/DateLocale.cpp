#include "KeelbrightCore/platform/text/IcuText.h"

#include <QLocale>
#include <algorithm>

namespace keelbright {

namespace {

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

} // namespace

icu::Locale dateIcuLocale()
{
    return QLocale() == QLocale::system() ? fromSetting(dateSetting()) : defaultIcuLocale();
}

} // namespace keelbright
