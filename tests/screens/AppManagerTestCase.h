#pragma once

#include "Keelbright/screens/AppManagerView.h"
#include "Keelbright/widgets/RowListView.h"
#include "tests/screens/ScreenTestCase.h"
#include "tests/support/LoopbackServer.h"
#include "tests/support/MadeUpMac.h"

#include <QNetworkProxy>

namespace keelbright::testing {

/// A machine with eight applications, of which "Sketchbook" left files around, and an App Store of
/// its own.
class AppManagerTestCase : public ScreenTestCase
{
protected:
    AppManagerTestCase()
    {
        QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
        AppServices asked = services();
        asked.lookup = [this](const QString& name) {
            return iTunesLookupService::lookup(name, {.origin = server.origin()});
        };
        (void)standardOutputOf([&] { state = std::make_unique<AppState>(asked); });
    }

    void addApplications() const { made.addApplications(); }

    /// Scans the applications of the machine before a screen comes up.
    void scan()
    {
        addApplications();
        state->scanApps();
        turnUntil([this] { return !state->isAppScanning(); });
    }

    [[nodiscard]] AppInfo app(const QString& name) const
    {
        for (const AppInfo& one : state->scannedApps()) {
            if (one.name == name)
                return one;
        }
        ADD_FAILURE() << "no application " << name.toStdString();
        return AppInfo({});
    }

    [[nodiscard]] FileURL bundle(const QString& name) const
    {
        return mac.root().appending(QStringLiteral("Applications/%1.app").arg(name));
    }

    [[nodiscard]] bool exists(const FileURL& url) { return mac.fileManager().fileExists(url).exists; }

    [[nodiscard]] static RowListView* list(const QWidget& view, const QString& name)
    {
        for (auto* candidate : view.findChildren<RowListView*>()) {
            if (candidate->accessibleName() == name && candidate->isVisibleTo(&view))
                return candidate;
        }
        ADD_FAILURE() << "no list " << name.toStdString();
        return nullptr;
    }

    /// The titles of the rows.
    [[nodiscard]] static QStringList titlesIn(const RowListView& rows)
    {
        QStringList titles;
        for (int row = 0; row < rows.rowModel()->rowCount(); ++row)
            titles.append(rows.rowModel()->rowAt(row).title);
        return titles;
    }

    MadeUpMac made{mac.root(), mac.clock()()};
    LoopbackServer server;
};

} // namespace keelbright::testing
