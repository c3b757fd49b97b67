#include "Keelbright/screens/AppManagerView.h"

#include "Keelbright/screens/apps/AppDetailPanel.h"
#include "Keelbright/screens/apps/AppListPanel.h"
#include "Keelbright/screens/shared/ScreenCommand.h"
#include "Keelbright/state/AppState.h"
#include "Keelbright/widgets/EmptyStateView.h"
#include "Keelbright/widgets/Panels.h"

#include <QAction>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

constexpr int minimumListWidth = 280;
constexpr int listWidth = 330;
constexpr int minimumDetailWidth = 340;

} // namespace

AppManagerView::AppManagerView(const ScreenContext& context, QWidget* parent)
    : QWidget(parent)
    , m_context(context)
    , m_list(new AppListPanel(context.state, m_icons))
{
    auto* right = new Ground(Role::window);
    m_right = right->content();
    m_list->setMinimumWidth(minimumListWidth);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(makeSplit(m_list, right, listWidth, this));
    right->setMinimumWidth(minimumDetailWidth);
    setSelectedApp(std::nullopt);

    connect(m_list, &AppListPanel::appSelected, this, &AppManagerView::setSelectedApp);
    connect(m_list, &AppListPanel::selectionCleared, this, [this] { setSelectedApp(std::nullopt); });
    connect(m_list, &AppListPanel::scanRequested, this, &AppManagerView::scanApps);
    connect(m_list, &AppListPanel::revealRequested, this, [this](const AppInfo& app) {
        setSelectedApp(app);
        m_panel->revealBundle();
    });
    connect(m_list, &AppListPanel::removalRequested, this, [this](const AppInfo& app) {
        setSelectedApp(app);
        m_panel->askForRemoval();
    });
    offerRescan();
    connect(&context.state.undo(), &UndoStore::ended, this, [this](const UndoResult& result) {
        if (result.isOfRemoval())
            scanApps();
    });
}

void AppManagerView::offerRescan()
{
    QAction* rescan = offerCommand(*this, ScreenCommand::rescan, [this] { scanApps(); });
    const auto update = [rescan, &state = m_context.state] { rescan->setEnabled(!state.isAppScanning()); };
    connect(&m_context.state, &AppState::isAppScanningChanged, rescan, update);
    update();
}

void AppManagerView::scanApps()
{
    setSelectedApp(std::nullopt);
    m_context.state.scanApps();
}

void AppManagerView::setSelectedApp(const std::optional<AppInfo>& app)
{
    m_list->setSelectedApp(app);
    if (m_detail != nullptr && app == m_selectedApp)
        return;
    m_selectedApp = app;
    if (!app) {
        showDetail(new EmptyStateView(tr("Select an app to see details"), {}, u"arrow.left.circle"_s));
        return;
    }
    m_panel = new AppDetailPanel(*app, m_context, m_icons);
    connect(m_panel, &AppDetailPanel::removed, this, &AppManagerView::dropApp);
    showDetail(m_panel);
}

void AppManagerView::showDetail(QWidget* detail)
{
    if (m_detail != nullptr) {
        // The caller may be a slot of the old panel.
        m_detail->hide();
        m_detail->deleteLater();
    }
    m_detail = detail;
    m_right->addWidget(detail);
    // The layout alone would show it one turn of the event loop later.
    detail->show();
}

void AppManagerView::dropApp(const AppInfo& app)
{
    const QUuid id = app.id;
    setSelectedApp(std::nullopt);
    m_context.state.removeScannedApp(id);
    m_list->focusList();
}

} // namespace keelbright
