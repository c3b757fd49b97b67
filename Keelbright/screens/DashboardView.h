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

/// The first screen: how things stand, and the shortest way to each action. Keeps nothing of its
/// own; follows the state, and has it look at the machine anew each time it comes up.
class DashboardView : public Page
{
    Q_OBJECT

public:
    /// The state outlives the screen.
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
    /// All but the numbers of a running backup, which change with every file.
    void redraw();
    void redrawHeader();
    void redrawAlerts();
    void redrawProgress();
    void pressMainButton();

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
