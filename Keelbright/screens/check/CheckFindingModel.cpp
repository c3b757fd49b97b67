#include "Keelbright/screens/check/CheckFindingModel.h"

#include "Keelbright/state/CheckTexts.h"

namespace keelbright {

using namespace Qt::StringLiterals;

void CheckFindingModel::setReport(const CheckReport& report)
{
    beginResetModel();
    m_report = report;
    endResetModel();
}

int CheckFindingModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_report.findings.size());
}

ListRow CheckFindingModel::rowAt(int row) const
{
    const CheckFinding& finding = m_report.findings.at(row);
    const bool isFault = finding.verdict != CopyVerdict::originalUnreadable;
    ListRow shown;
    shown.picture = ListRow::Picture::tile;
    shown.symbol = isFault ? u"xmark.octagon.fill"_s : u"exclamationmark.triangle.fill"_s;
    shown.symbolColor = isFault ? Role::red : Role::orange;
    shown.title = titleAt(row);
    shown.detail = CheckTexts::reason(finding);
    shown.actions = {
        {.id = RowActionId::reveal, .symbol = u"folder"_s, .name = tr("Show in the file manager")}};
    return shown;
}

QString CheckFindingModel::titleAt(int row) const
{
    return CheckTexts::place(m_report.findings.at(row), m_report);
}

} // namespace keelbright
