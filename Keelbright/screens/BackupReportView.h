#pragma once

#include "Keelbright/widgets/FrameThrottle.h"
#include "Keelbright/widgets/Page.h"
#include "KeelbrightCore/backup/BackupReport.h"

#include <optional>

namespace keelbright {

class AppState;
class Workspace;

/// The last backup's report: numbers, source folders, paths on disk and skipped files. A finished
/// run replaces the content at once.
class BackupReportView : public QWidget
{
    Q_OBJECT

public:
    /// The arguments must outlive the screen.
    BackupReportView(AppState& state, Workspace& workspace, QWidget* parent = nullptr);

private:
    [[nodiscard]] const std::optional<BackupReport>& report() const;
    void redraw();
    [[nodiscard]] QWidget* makeContent(const BackupReport& report);
    [[nodiscard]] QWidget* makeHeader(const BackupReport& report);
    [[nodiscard]] QWidget* makeLocations(const BackupReport& report);

    AppState& m_state;
    Workspace& m_workspace;
    FrameThrottle m_frames;
    QWidget* m_content = nullptr;
    std::optional<QUuid> m_shownReport;
};

} // namespace keelbright
