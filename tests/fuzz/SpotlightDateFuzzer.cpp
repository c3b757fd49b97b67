#include "KeelbrightCore/apps/SpotlightMetadata.h"
#include "tests/fuzz/Fuzzer.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    using namespace keelbright;
    using fuzzing::require;
    const auto date = AppScanner::parseDate(QString::fromUtf8(fuzzing::bytesOf(data, size)));
    if (!date)
        return 0;
    require(date->isValid() && date->timeSpec() == Qt::UTC, "a date is one, and in UTC");
    // Dates before 1583 are read in the Julian calendar but written in the Gregorian one, and an offset
    // may lead to a year with more than four digits.
    if (date->date().year() < 1583 || date->date().year() > 9999)
        return 0;
    const QString written = date->toString(QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz'000 +0000'"));
    require(AppScanner::parseDate(written) == date, "a date that is written is read as it was");
    return 0;
}
