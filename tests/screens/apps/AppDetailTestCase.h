#pragma once

#include "Keelbright/screens/apps/AppDetailPanel.h"
#include "Keelbright/screens/apps/AppIcons.h"
#include "tests/screens/apps/AppManagerTestCase.h"

namespace keelbright::testing {

/// The panel of one application.
class AppDetailTestCase : public AppManagerTestCase
{
protected:
    [[nodiscard]] AppInfo sketchbook(const QString& name = QStringLiteral("Sketchbook")) const
    {
        const QDateTime now = mac.clock()();
        return AppInfo({.name = name,
                        .bundleID = QStringLiteral("com.example.Sketchbook"),
                        .url = bundle(QStringLiteral("Sketchbook")),
                        .version = QStringLiteral("4.2.1"),
                        .lastUsedDate = now.addDays(-200),
                        .useCount = 640,
                        .dateAdded = now.addDays(-900)},
                       now);
    }

    [[nodiscard]] std::unique_ptr<AppDetailPanel> makePanel(const AppInfo& app)
    {
        auto panel = std::make_unique<AppDetailPanel>(app, context(), icons);
        show(*panel);
        return panel;
    }

    /// With the search for its files done.
    [[nodiscard]] std::unique_ptr<AppDetailPanel> makeSettledPanel(const AppInfo& app)
    {
        auto panel = makePanel(app);
        waitForFiles(*panel);
        return panel;
    }

    [[nodiscard]] FileURL groupContainers() const
    {
        return mac.home().appending(QStringLiteral("Library/Group Containers"));
    }

    AppIcons icons;
};

} // namespace keelbright::testing
