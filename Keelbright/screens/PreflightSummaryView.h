#pragma once

#include "KeelbrightCore/backup/PreflightService.h"
#include "KeelbrightCore/platform/system/LatestTask.h"

#include <QWidget>
#include <optional>

namespace keelbright {

class AppState;
class Banner;
class BottomBar;
class Button;
class Card;
class NumberLabel;
class Page;

/// Runs the checks before a backup each time it appears, shows their result and lets the user start
/// the backup. Leaving the screen ends them; a result that arrives afterwards is dropped.
class PreflightSummaryView : public QWidget
{
    Q_OBJECT

public:
    /// The state must outlive the screen.
    explicit PreflightSummaryView(AppState& state, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void addAnalyzing();
    void addEstimate();
    void addBanners();
    void addActions();
    [[nodiscard]] NumberLabel* addEstimateRow(const QString& title);
    void startCheck();
    void confirm();
    void setResult(const PreflightResult& result);
    void redraw();
    void redrawEstimate(const PreflightResult& result);

    AppState& m_state;
    LatestTask m_check;
    bool m_isAnalyzing = true;
    std::optional<PreflightResult> m_result;
    Page* m_page;
    QWidget* m_analyzing = nullptr;
    Card* m_estimate = nullptr;
    NumberLabel* m_fileCount = nullptr;
    NumberLabel* m_size = nullptr;
    NumberLabel* m_freeSpace = nullptr;
    Banner* m_errors = nullptr;
    Banner* m_warnings = nullptr;
    BottomBar* m_actions = nullptr;
    Button* m_confirm = nullptr;
};

} // namespace keelbright
