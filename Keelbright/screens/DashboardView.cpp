#include "Keelbright/screens/DashboardView.h"

#include "Keelbright/screens/dashboard/InsightGrid.h"
#include "Keelbright/screens/dashboard/ProtectedFoldersCard.h"
#include "Keelbright/screens/dashboard/SlideReveal.h"
#include "Keelbright/screens/shared/HealthCard.h"
#include "Keelbright/screens/shared/PageSection.h"
#include "Keelbright/state/AppState.h"
#include "Keelbright/widgets/BackupCards.h"
#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/Headers.h"

#include <QShowEvent>
#include <QVBoxLayout>

namespace keelbright {

using namespace Qt::StringLiterals;

DashboardView::DashboardView(AppState& state, QWidget* parent)
    : Page(parent)
    , m_state(state)
{
    addHeader();
    addHealth();
    addInsights();
    addFolders();
    addAlerts();
    addProgress();
    content()->addStretch();
    watchState();
    redraw();
}

QString DashboardView::greeting(int hour)
{
    constexpr int morning = 5;
    constexpr int afternoon = 12;
    constexpr int evening = 17;
    constexpr int night = 21;
    if (hour >= morning && hour < afternoon)
        return tr("Good morning.");
    if (hour >= afternoon && hour < evening)
        return tr("Good afternoon.");
    if (hour >= evening && hour < night)
        return tr("Good evening.");
    return tr("Working late?");
}

void DashboardView::addHeader()
{
    m_header = new PageHeader({}, tr("Here's how your Mac is doing."), this);
    auto* clean = new Button(Button::Kind::bordered, tr("Quick Clean"), u"sparkles"_s, m_header);
    clean->setToolTip(tr("Clean safe junk items with one tap"));
    connect(clean, &QPushButton::clicked, this, [this] { m_state.setSelectedScreen(Screen::junkCleaner); });
    m_mainButton = new Button(Button::Kind::primary, {}, {}, m_header);
    connect(m_mainButton, &QPushButton::clicked, this, &DashboardView::startOrCancelBackup);
    m_header->addAction(clean);
    m_header->addAction(m_mainButton);
    content()->addWidget(m_header);
}

void DashboardView::addHealth()
{
    m_health = new HealthCard(this);
    connect(m_health, &HealthCard::recalculateRequested, &m_state, &AppState::refreshHealthScore);
    content()->addWidget(m_health);
}

void DashboardView::addInsights()
{
    m_insights = new InsightGrid(m_state, this);
    content()->addWidget(m_insights);
}

void DashboardView::addFolders()
{
    m_folders = new ProtectedFoldersCard(m_state, this);
    content()->addWidget(m_folders);
}

void DashboardView::addAlerts()
{
    m_alerts = new PageSection(new SectionHeader(tr("Attention")), this);
    content()->addWidget(m_alerts);
}

void DashboardView::addProgress()
{
    m_progress = new ProgressPanel({});
    connect(m_progress, &ProgressPanel::clicked, this,
            [this] { m_state.setSelectedScreen(Screen::backupProgress); });
    m_progressReveal = new SlideReveal(m_progress, this);
    content()->addWidget(m_progressReveal);
}

void DashboardView::watchState()
{
    const auto changes = {
        &AppState::recommendedFoldersChanged,  &AppState::customSourcesChanged,
        &AppState::selectedDestinationChanged, &AppState::isDestinationAwayChanged,
        &AppState::healthScoreChanged,         &AppState::scannedAppsChanged,
        &AppState::isAppScanningChanged,       &AppState::lastReportChanged,
        &AppState::lastBackupTimeChanged,      &AppState::alertsChanged,
    };
    for (const auto change : changes)
        connect(&m_state, change, &m_frames, &FrameThrottle::request);
    connect(&m_state.engine(), &BackupEngine::isRunningChanged, &m_frames, &FrameThrottle::request);
    connect(&m_state.engine(), &BackupEngine::isCancelledChanged, &m_frames, &FrameThrottle::request);
    connect(&m_frames, &FrameThrottle::frame, this, &DashboardView::redraw);
    // The score counts the age of the last backup.
    connect(&m_state, &AppState::lastBackupTimeChanged, this, [this] {
        if (isVisible())
            m_state.refreshHealthScore();
    });
    connect(&m_state.engine(), &BackupEngine::progressChanged, &m_progressFrames, &FrameThrottle::request);
    connect(&m_progressFrames, &FrameThrottle::frame, this, &DashboardView::redrawProgress);
}

void DashboardView::showEvent(QShowEvent* event)
{
    Page::showEvent(event);
    redraw();
    // The window system shows a restored window again, which is no new visit of the screen.
    if (event->spontaneous())
        return;
    m_state.refreshHealthScore();
    m_state.refreshAppsIfNeeded();
}

void DashboardView::redraw()
{
    redrawHeader();
    m_health->setScore(m_state.healthScore());
    m_insights->redraw();
    m_folders->redraw();
    redrawAlerts();
    redrawProgress();
}

void DashboardView::redrawHeader()
{
    m_header->setTitle(greeting(m_state.now().toLocalTime().time().hour()));
    const bool isRunning = m_state.engine().isRunning();
    m_mainButton->setCaption(isRunning ? tr("Cancel Backup") : tr("Backup Now"));
    m_mainButton->setSymbol(isRunning ? QString() : u"arrow.clockwise"_s);
    m_mainButton->setKind(isRunning ? Button::Kind::bordered : Button::Kind::primary);
    // A cancelled run still finishes its current file; until then there is nothing more to press.
    m_mainButton->setEnabled(!isRunning || !m_state.engine().isCancelled());
}

void DashboardView::redrawAlerts()
{
    QList<QUuid> ids;
    for (const RiskAlert& alert : m_state.alerts())
        ids.append(alert.id);
    const bool isNew = ids != m_shownAlerts;
    if (isNew) {
        while (const std::unique_ptr<QLayoutItem> item{m_alerts->content()->takeAt(0)})
            delete item->widget();
        for (const RiskAlert& alert : m_state.alerts())
            m_alerts->content()->addWidget(new RiskAlertCard(alert, m_alerts));
        m_shownAlerts = ids;
    }
    m_alerts->setVisible(!ids.isEmpty());
    if (isNew && !ids.isEmpty())
        reveal(m_alerts);
}

void DashboardView::redrawProgress()
{
    const bool isRunning = m_state.engine().isRunning();
    if (isRunning)
        m_progress->setProgress(m_state.engine().progress());
    const bool isNew = isRunning && !m_progressReveal->isRevealed();
    m_progressReveal->setRevealed(isRunning);
    if (isNew)
        reveal(m_progressReveal);
}

void DashboardView::startOrCancelBackup()
{
    if (m_state.engine().isRunning())
        m_state.engine().cancel();
    else
        m_state.startBackup();
}

} // namespace keelbright
