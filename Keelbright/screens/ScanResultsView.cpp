#include "Keelbright/screens/ScanResultsView.h"

#include "Keelbright/screens/review/ScanReportPanel.h"
#include "Keelbright/screens/shared/RescanShortcuts.h"
#include "Keelbright/screens/shared/ScreenCommand.h"
#include "Keelbright/state/AppState.h"
#include "Keelbright/state/Workspace.h"
#include "Keelbright/widgets/Announcement.h"
#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/EmptyStateView.h"
#include "Keelbright/widgets/Headers.h"
#include "Keelbright/widgets/PanelNote.h"
#include "Keelbright/widgets/rows/RowListView.h"
#include "KeelbrightCore/platform/text/DateFormatter.h"

#include <QAction>
#include <QStackedLayout>
#include <QVBoxLayout>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

constexpr int spinnerDiameter = 44;

} // namespace

ScanResultsView::ScanResultsView(const ScreenContext& context, QWidget* parent)
    : QWidget(parent)
    , m_context(context)
    , m_model(context.state.services().clock)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    addHeader();
    addStates();
    addRescanShortcuts(*this, [this] { scan(); });
    m_fullScanCommand = offerCommand(*this, ScreenCommand::fullScan, [this] { scan(); });
    connect(&m_model, &ScanResultsVM::changed, &m_frames, &FrameThrottle::request);
    connect(&m_frames, &FrameThrottle::frame, this, &ScanResultsView::redraw);
    redraw();
}

void ScanResultsView::addHeader()
{
    m_header = new PageHeader(tr("Scan Results"), {});
    m_header->setContentsMargins(Metrics::pageMarginX, Metrics::pageMarginY, Metrics::pageMarginX,
                                 Metrics::sectionSpacing);
    m_fullScan = new Button(Button::Kind::bordered, tr("Full Scan"), u"magnifyingglass"_s, m_header);
    connect(m_fullScan, &QPushButton::clicked, this, &ScanResultsView::scan);
    m_header->addAction(m_fullScan);
    layout()->addWidget(m_header);
}

void ScanResultsView::addStates()
{
    m_scanning = new BusyState(tr("Scanning your Mac…"),
                               tr("Checking junk files, apps, storage, and backup health."), spinnerDiameter);
    m_report = new ScanReportPanel;
    connect(m_report, &ScanReportPanel::findingPressed, this, &ScanResultsView::runAction);
    m_idle = new EmptyStateView(tr("Ready to scan"),
                                tr("Tap Full Scan to check junk files, unused apps, storage pressure, and "
                                   "backup status all at once."),
                                u"magnifyingglass.circle"_s);
    auto* start = new Button(Button::Kind::primary, tr("Start Full Scan"), u"magnifyingglass"_s);
    connect(start, &QPushButton::clicked, this, &ScanResultsView::scan);
    m_idle->addAction(start);
    auto* area = new QWidget;
    m_states = new QStackedLayout(area);
    for (QWidget* state :
         {static_cast<QWidget*>(m_idle), static_cast<QWidget*>(m_scanning), static_cast<QWidget*>(m_report)})
        m_states->addWidget(state);
    qobject_cast<QVBoxLayout*>(layout())->addWidget(area, 1);
}

void ScanResultsView::scan()
{
    if (!m_model.isScanning())
        m_model.runScan(m_context.state.lastBackupTime(), m_context.state.scannedApps());
}

void ScanResultsView::runAction(const ScanFinding& finding)
{
    if (const auto* place = std::get_if<ScanFinding::OpenURL>(&finding.action)) {
        m_context.workspace.open(place->url);
        return;
    }
    if (const auto screen = screenFromRawValue(std::get<ScanFinding::NavigateTo>(finding.action).screen))
        m_context.state.setSelectedScreen(screen);
}

void ScanResultsView::redraw()
{
    const std::optional<FullScanReport>& report = m_model.report();
    const QString scanned = report ? DateFormatter::string(report->scannedAt, DateFormatter::Style::medium,
                                                           DateFormatter::Style::short_)
                                   : QString();
    m_header->setSubtitle(report ? tr("Last scanned %1").arg(scanned)
                                 : tr("Run a full scan to see what can be cleaned up."));
    if (report && !m_model.isScanning())
        m_report->setReport(*report);
    // Before the button is disabled, so that the focus does not move to another part of the window.
    QWidget* state = report ? static_cast<QWidget*>(m_report) : m_idle;
    showState(m_model.isScanning() ? m_scanning : state);
    m_fullScan->setCaption(m_model.isScanning() ? tr("Scanning…") : tr("Full Scan"));
    m_fullScan->setKind(report ? Button::Kind::primary : Button::Kind::bordered);
    m_fullScan->setEnabled(!m_model.isScanning());
    m_fullScanCommand->setEnabled(!m_model.isScanning());
}

void ScanResultsView::showState(QWidget* state)
{
    if (m_states->currentWidget() == state)
        return;
    const bool hasFocus = isAncestorOf(focusWidget()) && focusWidget()->hasFocus();
    m_states->setCurrentWidget(state);
    if (hasFocus)
        (state == m_report ? m_report->list() : state)->setFocus();
    const std::optional<FullScanReport>& report = m_model.report();
    if (report && state == m_report)
        announce(*m_report, ScanReportPanel::headline(*report));
}

} // namespace keelbright
