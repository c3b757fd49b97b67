#include "Keelbright/screens/apps/UsageLook.h"

#include <QCoreApplication>

namespace keelbright {

using namespace Qt::StringLiterals;

UsageLook lookOf(UsageCategory category)
{
    const QString label =
        QCoreApplication::translate("UsageCategory", rawValue(category).toUtf8().constData());
    switch (category) {
    case UsageCategory::dailyDriver:
        return {label, Role::green, u"checkmark.circle.fill"_s};
    case UsageCategory::seasonal:
        return {label, Role::accent, u"clock.badge.questionmark"_s};
    case UsageCategory::occasional:
        return {label, Role::orange, u"exclamationmark.circle"_s};
    case UsageCategory::forgotten:
        return {label, Role::red, u"trash.circle"_s};
    case UsageCategory::new_:
        return {label, Role::purple, u"sparkles"_s};
    case UsageCategory::unknown:
        return {label, Role::secondaryText, u"questionmark.circle"_s};
    }
    Q_UNREACHABLE();
}

} // namespace keelbright
