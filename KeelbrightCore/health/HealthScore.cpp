#include "KeelbrightCore/health/HealthScore.h"

#include "KeelbrightCore/platform/text/ByteCountFormatter.h"

#include <QCoreApplication>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(HealthScore)
};

} // namespace

double HealthScore::diskUsedFraction() const
{
    return diskTotalBytes > 0 ? static_cast<double>(diskUsedBytes) / static_cast<double>(diskTotalBytes) : 0;
}

QString HealthScore::diskUsedFormatted() const
{
    return ByteCountFormatter::string(diskUsedBytes);
}

QString HealthScore::diskTotalFormatted() const
{
    return ByteCountFormatter::string(diskTotalBytes);
}

QString HealthScore::diskFreeFormatted() const
{
    return ByteCountFormatter::string(diskFreeBytes());
}

QString HealthScore::junkFormatted() const
{
    return ByteCountFormatter::string(junkEstimateBytes);
}

const QList<HealthScore::Grade>& HealthScore::allGrades()
{
    static const QList<Grade> grades{Grade::a, Grade::b, Grade::c, Grade::d, Grade::f};
    return grades;
}

QString HealthScore::rawValue(Grade grade)
{
    switch (grade) {
    case Grade::a:
        return u"A"_s;
    case Grade::b:
        return u"B"_s;
    case Grade::c:
        return u"C"_s;
    case Grade::d:
        return u"D"_s;
    case Grade::f:
        return u"F"_s;
    }
    Q_UNREACHABLE();
}

QString HealthScore::headline(Grade grade)
{
    switch (grade) {
    case Grade::a:
        return Texts::tr("Your Mac is in great shape.");
    case Grade::b:
        return Texts::tr("Your Mac is in good shape.");
    case Grade::c:
        return Texts::tr("Your Mac could use some attention.");
    case Grade::d:
        return Texts::tr("Your Mac needs a cleanup.");
    case Grade::f:
        return Texts::tr("Your Mac needs immediate attention.");
    }
    Q_UNREACHABLE();
}

} // namespace keelbright
