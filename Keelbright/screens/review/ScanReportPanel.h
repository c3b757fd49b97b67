#pragma once

#include "KeelbrightCore/health/FullScanReport.h"

#include <QWidget>

namespace keelbright {

class Label;
class RingProgress;
class RowListView;
class ScanFindingsModel;

/// The report of a full scan: a banner with a summary, and the findings by category.
class ScanReportPanel : public QWidget
{
    Q_OBJECT

public:
    explicit ScanReportPanel(QWidget* parent = nullptr);

    void setReport(const FullScanReport& report);

    [[nodiscard]] RowListView* list() const { return m_list; }

    // The lines of the banner.
    [[nodiscard]] static QString headline(const FullScanReport& report);
    [[nodiscard]] static QString countLine(const FullScanReport& report);
    /// Empty if nothing can be freed.
    [[nodiscard]] static QString reclaimLine(const FullScanReport& report);

Q_SIGNALS:
    /// The button of a finding was pressed.
    void findingPressed(const keelbright::ScanFinding& finding);

private:
    [[nodiscard]] QWidget* makeBanner();

    RingProgress* m_health = nullptr;
    Label* m_headline = nullptr;
    Label* m_counts = nullptr;
    Label* m_reclaim = nullptr;
    ScanFindingsModel* m_model;
    RowListView* m_list;
};

} // namespace keelbright
