#pragma once

#include "Keelbright/screens/AppManagerView.h"
#include "Keelbright/screens/apps/AppDetailPanel.h"
#include "Keelbright/widgets/MenuButton.h"
#include "Keelbright/widgets/rows/RowListView.h"
#include "tests/screens/shared/ScreenTestCase.h"
#include "tests/support/LoopbackServer.h"
#include "tests/support/MadeUpMac.h"

#include <QMenu>
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
            ++lookups;
            return iTunesLookupService::lookup(name, {.origin = server.origin()});
        };
        (void)standardOutputOf([&] { state = std::make_unique<AppState>(asked); });
    }

    ~AppManagerTestCase() override { waitForBackgroundWork(); }

    AppManagerTestCase(const AppManagerTestCase&) = delete;
    AppManagerTestCase& operator=(const AppManagerTestCase&) = delete;

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

    [[nodiscard]] std::unique_ptr<AppManagerView> makeView()
    {
        auto view = std::make_unique<AppManagerView>(context());
        show(*view);
        return view;
    }

    /// With the applications of the machine listed.
    [[nodiscard]] std::unique_ptr<AppManagerView> makeListedView()
    {
        scan();
        return makeView();
    }

    [[nodiscard]] static RowListView* apps(const QWidget& view)
    {
        return list(view, QStringLiteral("Applications"));
    }

    [[nodiscard]] static MenuButton* menuButton(const QWidget& view, const QString& name)
    {
        auto* found = qobject_cast<MenuButton*>(button(view, name));
        EXPECT_NE(found, nullptr);
        return found;
    }

    static void choose(const QWidget& view, const QString& name, const QString& choice)
    {
        for (QAction* action : menuButton(view, name)->choiceMenu()->actions()) {
            if (action->text() == choice)
                return action->trigger();
        }
        ADD_FAILURE() << "no choice " << choice.toStdString();
    }

    [[nodiscard]] static QStringList choices(const QWidget& view, const QString& name)
    {
        QStringList texts;
        for (const QAction* action : menuButton(view, name)->choiceMenu()->actions()) {
            if (!action->isSeparator())
                texts.append(action->text());
        }
        return texts;
    }

    /// As with the arrow keys.
    static void choose(const QWidget& view, const QString& app)
    {
        RowListView* rows = apps(view);
        const qsizetype row = titlesIn(*rows).indexOf(app);
        ASSERT_GE(row, 0) << app.toStdString();
        rows->setFocus();
        rows->setCurrentIndex(rows->rowModel()->index(static_cast<int>(row)));
    }

    [[nodiscard]] static AppDetailPanel* panel(const AppManagerView& view)
    {
        for (auto* candidate : view.findChildren<AppDetailPanel*>()) {
            if (candidate->isVisibleTo(&view))
                return candidate;
        }
        return nullptr;
    }

    static void waitForFiles(const QWidget& view)
    {
        turnUntil([&] { return !textsIn(view).contains(QStringLiteral("Scanning for leftover files…")); });
    }

    [[nodiscard]] FileURL applications() const
    {
        return mac.root().appending(QStringLiteral("Applications"));
    }

    MadeUpMac made{mac.root(), mac.clock()()};
    LoopbackServer server;
    int lookups = 0; ///< how often the App Store was asked
};

} // namespace keelbright::testing
