#pragma once

#include <QString>
#include <unicode/locid.h>
#include <unicode/unistr.h>

namespace keelbright {

// Shared by the units that use ICU. Internal to the platform folder.

[[nodiscard]] QString fromIcu(const icu::UnicodeString& text);
[[nodiscard]] icu::UnicodeString toIcu(const QString& text);
/// The default locale; American English for the C locale, which is for machines.
[[nodiscard]] icu::Locale defaultIcuLocale();
/// The locale of dates: what the user chose for dates and times (LC_TIME), which brings its calendar and
/// its hours and may be another than that of the words. Where the program has set a default locale
/// itself, that one.
[[nodiscard]] icu::Locale dateIcuLocale();

} // namespace keelbright
