#pragma once

#include "Keelbright/widgets/FrameThrottle.h"
#include "Keelbright/widgets/Page.h"
#include "KeelbrightCore/backup/RiskAlert.h"

#include <QList>
#include <QString>

namespace keelbright {

class AppState;
class Button;
class HealthCard;
class InsightGrid;
class PageHeader;
class PageSection;
class ProgressPanel;
class ProtectedFoldersCard;
class SlideReveal;

/// The first screen: the condition of the machine and buttons for the common actions. Shows the
/// state and keeps nothing of its own. Refreshes the health score and the applications each time
/// it appears.
class DashboardView : public Page
{
    Q_OBJECT

public:
    /// The state must outlive the screen.
    explicit DashboardView(AppState& state, QWidget* parent = nullptr);

    /// The greeting at an hour of the day, 0 to 23.
    [[nodiscard]] static QString greeting(int hour);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void addHeader();
    void addHealth();
    void addInsights();
    void addFolders();
    void addAlerts();
    void addProgress();
    void watchState();
    void redraw();
    void redrawHeader();
    void redrawAlerts();
    /// Apart from the rest, because the progress changes with every file.
    void redrawProgress();
    void startOrCancelBackup();

    AppState& m_state;
    FrameThrottle m_frames;
    FrameThrottle m_progressFrames;
    PageHeader* m_header = nullptr;
    Button* m_mainButton = nullptr;
    HealthCard* m_health = nullptr;
    InsightGrid* m_insights = nullptr;
    ProtectedFoldersCard* m_folders = nullptr;
    PageSection* m_alerts = nullptr;
    QList<QUuid> m_shownAlerts;
    ProgressPanel* m_progress = nullptr;
    SlideReveal* m_progressReveal = nullptr;
};

} // namespace keelbright
