#pragma once

#include "Keelbright/screens/shared/PageSection.h"
#include "KeelbrightCore/apps/AppInfo.h"

namespace keelbright {

/// How an application was used, and the verdict on it.
class AppUsageSection : public PageSection
{
    Q_OBJECT

public:
    /// `now` decides how long ago a date is.
    AppUsageSection(const AppInfo& app, const QDateTime& now, QWidget* parent = nullptr);
};

} // namespace keelbright
