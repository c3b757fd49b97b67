#include "Keelbright/screens/review/ScanFindingsModel.h"

#include "Keelbright/state/Screen.h"

#include <QCoreApplication>

#include <array>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

using Category = ScanFinding::Category;
using Severity = ScanFinding::Severity;

constexpr std::array categories{Category::backup, Category::junk, Category::storage, Category::apps};
/// A larger size is shown in red.
constexpr qint64 bigSize = 1'073'741'824;

Role hue(Severity severity)
{
    switch (severity) {
    case Severity::low:
        return Role::green;
    case Severity::medium:
        return Role::orange;
    case Severity::high:
        return Role::red;
    }
    Q_UNREACHABLE();
}

/// The meaning of the dot's colour, for screen readers.
QString severityText(Severity severity)
{
    switch (severity) {
    case Severity::low:
        return ScanFindingsModel::tr("low severity");
    case Severity::medium:
        return ScanFindingsModel::tr("medium severity");
    case Severity::high:
        return ScanFindingsModel::tr("high severity");
    }
    Q_UNREACHABLE();
}

} // namespace

void ScanFindingsModel::setFindings(const QList<ScanFinding>& findings)
{
    beginResetModel();
    m_findings = findings;
    m_rows.clear();
    m_rows.reserve(findings.size() + static_cast<qsizetype>(categories.size()));
    for (const Category category : categories) {
        bool hasHeader = false;
        for (qsizetype i = 0; i < m_findings.size(); ++i) {
            if (m_findings.at(i).category != category)
                continue;
            if (!hasHeader)
                m_rows.append({category, -1});
            hasHeader = true;
            m_rows.append({category, i});
        }
    }
    endResetModel();
}

std::optional<RowAction> ScanFindingsModel::actionButton(const ScanFinding& finding)
{
    if (std::holds_alternative<ScanFinding::OpenURL>(finding.action))
        return RowAction{.id = RowActionId::resolve, .symbol = {}, .name = tr("Open")};
    const std::optional<Screen> screen =
        screenFromRawValue(std::get<ScanFinding::NavigateTo>(finding.action).screen);
    if (!screen)
        return std::nullopt;
    return RowAction{.id = RowActionId::resolve,
                     .symbol = {},
                     .name = screen == Screen::dashboard ? tr("Back Up") : tr("Fix")};
}

int ScanFindingsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

ListRow ScanFindingsModel::rowAt(int row) const
{
    const ScanFinding& finding = findingAt(row);
    ListRow shown;
    shown.picture = ListRow::Picture::dot;
    shown.symbolColor = hue(finding.severity);
    shown.title = finding.title;
    shown.detail = finding.detail;
    shown.value = finding.formattedSize();
    shown.valueColor = finding.sizeBytes > bigSize ? Role::red : Role::primaryText;
    if (const std::optional<RowAction> action = actionButton(finding))
        shown.actions.append(*action);
    return shown;
}

QString ScanFindingsModel::titleAt(int row) const
{
    return findingAt(row).title;
}

QString ScanFindingsModel::headerAt(int row) const
{
    const Row place = m_rows.at(row);
    if (place.finding >= 0)
        return {};
    const QString category = ScanFinding::rawValue(place.category);
    return QCoreApplication::translate("ScanFinding", category.toUtf8().constData()).toUpper();
}

QString ScanFindingsModel::accessibleText(int row) const
{
    const QString text = RowModel::accessibleText(row);
    return m_rows.at(row).finding < 0 ? text : tr("%1, %2").arg(text, severityText(findingAt(row).severity));
}

} // namespace keelbright
