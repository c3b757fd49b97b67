#pragma once

#include "Keelbright/screens/shared/ScreenContext.h"
#include "Keelbright/state/ScanResultsVM.h"
#include "Keelbright/widgets/FrameThrottle.h"

#include <QWidget>

class QStackedLayout;

namespace keelbright {

class BusyState;
class Button;
class EmptyStateView;
class PageHeader;
class ScanReportPanel;

/// Runs a full scan and lists its findings, each with a button that leads to the screen for it. Each
/// visit starts without a report.
class ScanResultsView : public QWidget
{
    Q_OBJECT

public:
    /// The arguments must outlive the screen.
    explicit ScanResultsView(const ScreenContext& context, QWidget* parent = nullptr);

private:
    void addHeader();
    void addStates();
    void scan();
    void runAction(const ScanFinding& finding);
    void redraw();
    /// Keeps the focus in the screen if it is there.
    void showState(QWidget* state);

    ScreenContext m_context;
    ScanResultsVM m_model;
    FrameThrottle m_frames;
    PageHeader* m_header = nullptr;
    Button* m_fullScan = nullptr;
    QAction* m_fullScanCommand = nullptr;
    QStackedLayout* m_states = nullptr;
    BusyState* m_scanning = nullptr;
    ScanReportPanel* m_report = nullptr;
    EmptyStateView* m_idle = nullptr;
};

} // namespace keelbright
