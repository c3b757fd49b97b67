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

/// Runs a full scan and shows what it found, each finding with the way to act on it. A new visit
/// starts without a report.
class ScanResultsView : public QWidget
{
    Q_OBJECT

public:
    /// What is handed in outlives the screen.
    explicit ScanResultsView(const ScreenContext& context, QWidget* parent = nullptr);

private:
    void addHeader();
    void addStates();
    void scan();
    void act(const ScanFinding& finding);
    void redraw();
    /// Keeps the focus within the screen where it has it.
    void showState(QWidget* state);

    ScreenContext m_context;
    ScanResultsVM m_model;
    FrameThrottle m_frames;
    PageHeader* m_header = nullptr;
    Button* m_fullScan = nullptr;
    QStackedLayout* m_states = nullptr;
    BusyState* m_scanning = nullptr;
    ScanReportPanel* m_report = nullptr;
    EmptyStateView* m_idle = nullptr;
};

} // namespace keelbright
