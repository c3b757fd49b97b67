#include "Keelbright/screens/review/ScanReportPanel.h"

#include "Keelbright/screens/review/ScanFindingsModel.h"
#include "Keelbright/screens/shared/HealthCard.h"
#include "Keelbright/screens/shared/ListCard.h"
#include "Keelbright/widgets/Card.h"
#include "Keelbright/widgets/Label.h"
#include "Keelbright/widgets/Progress.h"
#include "Keelbright/widgets/rows/RowListView.h"
#include "KeelbrightCore/platform/text/PluralNumber.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace keelbright {

namespace {

constexpr int ringDiameter = 84;
constexpr int ringThickness = 7;
constexpr double maximumPoints = 100;

} // namespace

ScanReportPanel::ScanReportPanel(QWidget* parent)
    : QWidget(parent)
    , m_model(new ScanFindingsModel(this))
    , m_list(new RowListView(RowListView::Look::table, tr("Findings")))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(Metrics::pageMarginX, 0, Metrics::pageMarginX, Metrics::pageMarginY);
    layout->setSpacing(Metrics::cardSpacing - Metrics::cardShadow);
    layout->addWidget(makeBanner());
    layout->addWidget(makeListCard(m_list, this), 1);
    m_list->setRowModel(m_model);
    connect(m_list, &RowListView::actionPressed, this, [this](int row, RowActionId action) {
        if (action == RowActionId::resolve)
            Q_EMIT findingPressed(m_model->findingAt(row));
    });
}

QString ScanReportPanel::headline(const FullScanReport& report)
{
    const auto count =
        std::ranges::count(report.findings, ScanFinding::Severity::high, &ScanFinding::severity);
    if (count == 0)
        return tr("Everything looks good");
    return count == 1 ? tr("1 issue need attention")
                      : tr("%n issues need attention", nullptr, pluralNumber(count));
}

QString ScanReportPanel::countLine(const FullScanReport& report)
{
    return tr("%n findings · %1 reclaimable", nullptr, pluralNumber(report.findings.size()))
        .arg(report.formattedReclaimable());
}

QString ScanReportPanel::reclaimLine(const FullScanReport& report)
{
    if (report.totalReclaimableBytes <= 0)
        return {};
    return tr("You can free up %1 of storage.").arg(report.formattedReclaimable());
}

QWidget* ScanReportPanel::makeBanner()
{
    auto* card = new Card;
    auto* row = new QHBoxLayout;
    row->setSpacing(16);
    m_health = new RingProgress(tr("Health"), ringDiameter, ringThickness);
    row->addWidget(m_health);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(3);
    m_headline = makeWrappingLabel({}, FontRole::headline, Role::primaryText);
    m_counts = makeWrappingLabel({}, FontRole::body, Role::secondaryText);
    m_reclaim = makeWrappingLabel({}, FontRole::body, Role::secondaryText);
    texts->addStretch();
    for (Label* line : {m_headline, m_counts, m_reclaim})
        texts->addWidget(line);
    texts->addStretch();
    row->addLayout(texts, 1);
    card->content()->addLayout(row);
    return card;
}

void ScanReportPanel::setReport(const FullScanReport& report)
{
    m_health->setVisible(report.healthScore.has_value());
    if (report.healthScore) {
        m_health->setColorRole(HealthCard::color(report.healthScore->grade));
        m_health->setFraction(report.healthScore->points / maximumPoints);
        m_health->setCenter(QString::number(report.healthScore->points), tr("Health"), false);
    }
    m_headline->setText(headline(report));
    m_counts->setText(countLine(report));
    m_reclaim->setText(reclaimLine(report));
    m_reclaim->setVisible(report.totalReclaimableBytes > 0);
    m_model->setFindings(report.findings);
    fitListCard(m_list);
}

} // namespace keelbright
