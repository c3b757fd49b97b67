#pragma once

#include <QDateTime>
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
#include <QTimeZone>
#endif

namespace keelbright {

/// Universal time, for what makes a `QDateTime`. Qt has given it another name and warns of the older one.
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
inline constexpr auto utcZone = QTimeZone::UTC;
#else
inline constexpr auto utcZone = Qt::UTC;
#endif

} // namespace keelbright
