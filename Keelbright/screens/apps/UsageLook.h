#pragma once

#include "Keelbright/widgets/theme/Roles.h"
#include "KeelbrightCore/apps/AppInfo.h"

#include <QString>

namespace keelbright {

/// How a verdict on the use of an application looks.
struct UsageLook
{
    QString label; ///< in the user's language
    Role color;
    QString icon; ///< beside the sentence that says why
};

[[nodiscard]] UsageLook lookOf(UsageCategory category);

} // namespace keelbright
