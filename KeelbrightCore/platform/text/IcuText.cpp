#include "KeelbrightCore/platform/text/IcuText.h"

#include <QLocale>

namespace keelbright {

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

} // namespace keelbright
