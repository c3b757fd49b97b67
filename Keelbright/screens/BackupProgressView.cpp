#include "Keelbright/screens/BackupProgressView.h"

#include "Keelbright/screens/backup/BackupFinishedPanel.h"
#include "Keelbright/screens/backup/BackupRunningPanel.h"
#include "Keelbright/state/AppState.h"
#include "Keelbright/state/StoredTexts.h"
#include "Keelbright/state/Workspace.h"
#include "Keelbright/widgets/Banner.h"
#include "Keelbright/widgets/DisplayText.h"
#include "Keelbright/widgets/EmptyStateView.h"

#include <QVBoxLayout>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

constexpr int panelWidth = 560;

QString cancelledText()
{
    return BackupProgressView::tr("This backup was cancelled before everything was copied.");
}

} // namespace

BackupProgressView::BackupProgressView(AppState& state, Workspace& workspace, QWidget* parent)
    : Page(parent)
    , m_state(state)
    , m_workspace(workspace)
    , m_error(new Banner(Role::red, u"xmark.octagon.fill"_s, {}, this))
    , m_cancelled(new Banner(Role::orange, u"exclamationmark.triangle.fill"_s, cancelledText(), this))
{
    setMaximumContentWidth(panelWidth);
    content()->addWidget(m_error);
    content()->addWidget(m_cancelled);
    content()->addStretch(4);
    content()->addStretch(5);
    watchState();
    redraw();
}

QString BackupProgressView::outcome(const BackupEngine& engine)
{
    if (const auto& error = engine.lastError())
        return StoredTexts::shownError(*error);
    if (engine.isCancelled())
        return cancelledText();
    const auto& report = engine.lastReport();
    return report ? BackupFinishedPanel::headline(*report) : QString();
}

void BackupProgressView::watchState()
{
    const BackupEngine& engine = m_state.engine();
    connect(&engine, &BackupEngine::isRunningChanged, &m_frames, &FrameThrottle::request);
    connect(&engine, &BackupEngine::isCancelledChanged, &m_frames, &FrameThrottle::request);
    connect(&engine, &BackupEngine::lastErrorChanged, &m_frames, &FrameThrottle::request);
    connect(&m_state, &AppState::lastReportChanged, &m_frames, &FrameThrottle::request);
    connect(&m_state, &AppState::selectedDestinationChanged, &m_frames, &FrameThrottle::request);
    connect(&m_frames, &FrameThrottle::frame, this, &BackupProgressView::redraw);
    connect(&engine, &BackupEngine::progressChanged, &m_progressFrames, &FrameThrottle::request);
    connect(&m_state.timeLeft(), &BackupTimeLeft::changed, &m_progressFrames, &FrameThrottle::request);
    connect(&m_progressFrames, &FrameThrottle::frame, this, &BackupProgressView::redrawProgress);
}

void BackupProgressView::redraw()
{
    const auto& report = m_state.lastReport();
    if (m_state.engine().isRunning())
        showRunning();
    else if (report)
        showFinished(*report);
    else
        showEmpty();
    redrawError();
    m_cancelled->setVisible(m_state.engine().isCancelled());
}

void BackupProgressView::redrawProgress()
{
    if (m_running == nullptr)
        return;
    m_running->setProgress(m_state.engine().progress());
    m_running->setTimeLeft(m_state.timeLeft().text());
}

void BackupProgressView::redrawError()
{
    // Also shown above the panel of an earlier backup, which could be mistaken for this one's success.
    const auto& error = m_state.engine().lastError();
    const bool isShown = error && !m_state.engine().isRunning();
    if (isShown)
        m_error->setTitle(displayText(StoredTexts::shownError(*error)));
    m_error->setVisible(isShown);
}

/// Empty without a selected destination. Another one may be selected while the backup is running.
QString BackupProgressView::destinationName() const
{
    const auto& selected = m_state.selectedDestination();
    if (!selected)
        return {};
    return m_state.jobDestination().value_or(*selected).displayName();
}

void BackupProgressView::showRunning()
{
    if (m_shown != Shown::running) {
        auto* panel = new BackupRunningPanel(this);
        connect(panel, &BackupRunningPanel::cancelPressed, &m_state.engine(), &BackupEngine::cancel);
        replacePanel(panel, Shown::running);
        m_running = panel;
        panel->setAccessibleName(tr("Backup running"));
    }
    m_running->setDestinationName(destinationName());
    m_running->setCancelling(m_state.engine().isCancelled());
    redrawProgress();
}

void BackupProgressView::showFinished(const BackupReport& report)
{
    if (m_shown == Shown::finished && m_shownReport == report.id)
        return;
    auto* panel = new BackupFinishedPanel(report, this);
    connect(panel, &BackupFinishedPanel::openFilesPressed, this,
            [this, path = report.personalFilesPath] { openPersonalFiles(m_workspace, path); });
    connect(panel, &BackupFinishedPanel::viewReportPressed, this,
            [this] { m_state.setSelectedScreen(Screen::backupReport); });
    connect(panel, &BackupFinishedPanel::backPressed, this,
            [this] { m_state.setSelectedScreen(Screen::dashboard); });
    replacePanel(panel, Shown::finished);
    m_shownReport = report.id;
    panel->setAccessibleName(BackupFinishedPanel::headline(report));
}

void BackupProgressView::showEmpty()
{
    if (m_shown == Shown::empty)
        return;
    replacePanel(new EmptyStateView(tr("No Backup Running"),
                                    tr("Hit \"Backup Now\" on the Dashboard to start."),
                                    u"arrow.clockwise.circle"_s, this),
                 Shown::empty);
}

void BackupProgressView::replacePanel(QWidget* panel, Shown shown)
{
    if (m_panel != nullptr) {
        // A click on one of its buttons may still be running.
        m_panel->hide();
        m_panel->deleteLater();
    }
    m_running = nullptr;
    m_panel = panel;
    m_shown = shown;
    // The panel stays between the two stretches.
    content()->insertWidget(content()->count() - 1, panel);
}

} // namespace keelbright
