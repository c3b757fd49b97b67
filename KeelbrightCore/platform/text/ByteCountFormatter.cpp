#include "KeelbrightCore/platform/text/ByteCountFormatter.h"

#include <QCoreApplication>
#include <QLocale>
#include <array>

namespace keelbright {

namespace {

struct Unit
{
    quint64 size;
    int decimals;
    const char* text;
};

constexpr std::array units = {
    Unit{1'000, 0, QT_TRANSLATE_NOOP("ByteCountFormatter", "%1 KB")},
    Unit{1'000'000, 1, QT_TRANSLATE_NOOP("ByteCountFormatter", "%1 MB")},
    Unit{1'000'000'000, 2, QT_TRANSLATE_NOOP("ByteCountFormatter", "%1 GB")},
    Unit{1'000'000'000'000, 2, QT_TRANSLATE_NOOP("ByteCountFormatter", "%1 TB")},
    Unit{1'000'000'000'000'000, 2, QT_TRANSLATE_NOOP("ByteCountFormatter", "%1 PB")},
    Unit{1'000'000'000'000'000'000, 2, QT_TRANSLATE_NOOP("ByteCountFormatter", "%1 EB")},
};

constexpr quint64 powerOfTen(int exponent)
{
    quint64 power = 1;
    for (int i = 0; i < exponent; ++i)
        power *= 10;
    return power;
}

/// The count in the unit's smallest shown step, half a step rounded up. In whole numbers, because
/// a double can't hold every count of 64 bits.
constexpr quint64 roundedSteps(quint64 count, const Unit& unit)
{
    const quint64 step = unit.size / powerOfTen(unit.decimals);
    return count / step + (count % step >= step - step / 2 ? 1 : 0);
}

QString inUnit(quint64 steps, const Unit& unit)
{
    int decimals = unit.decimals;
    for (; decimals > 0 && steps % 10 == 0; --decimals)
        steps /= 10;
    const double value = static_cast<double>(steps) / static_cast<double>(powerOfTen(decimals));
    return QCoreApplication::translate("ByteCountFormatter", unit.text)
        .arg(QLocale().toString(value, 'f', decimals));
}

QString magnitudeText(quint64 count)
{
    if (count == 0)
        return QCoreApplication::translate("ByteCountFormatter", "Zero KB");
    if (count == 1)
        return QCoreApplication::translate("ByteCountFormatter", "%1 byte").arg(QLocale().toString(1));
    if (count < 1'000) {
        const int number = static_cast<int>(count);
        return QCoreApplication::translate("ByteCountFormatter", "%Ln bytes", nullptr, number);
    }
    for (const Unit& unit : units) {
        const quint64 steps = roundedSteps(count, unit);
        if (steps < 1'000 * powerOfTen(unit.decimals))
            return inUnit(steps, unit);
    }
    return inUnit(roundedSteps(count, units.back()), units.back());
}

} // namespace

QString ByteCountFormatter::string(qint64 byteCount)
{
    if (byteCount >= 0)
        return magnitudeText(static_cast<quint64>(byteCount));
    return QLocale().negativeSign() + magnitudeText(0 - static_cast<quint64>(byteCount));
}

} // namespace keelbright
