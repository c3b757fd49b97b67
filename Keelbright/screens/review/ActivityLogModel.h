#pragma once

#include "Keelbright/widgets/rows/RowModel.h"
#include "KeelbrightCore/records/ActivityEntry.h"

namespace keelbright {

/// The entries of one day under the words for that day.
struct ActivityDay
{
    QString label;
    QList<ActivityEntry> entries;

    friend bool operator==(const ActivityDay&, const ActivityDay&) = default;
};

/// Puts entries together by the day of the local calendar, as it looks from `now`: "Today",
/// "Yesterday", or the date. Days come in the order in which they are first met, and a day keeps
/// the order of its entries.
[[nodiscard]] QList<ActivityDay> grouped(const QList<ActivityEntry>& entries, const QDateTime& now);

/// The log as rows, each day under its header.
class ActivityLogModel : public RowModel
{
    Q_OBJECT

public:
    using RowModel::RowModel;

    /// Shows the entries as they look at `now`.
    void setEntries(const QList<ActivityEntry>& entries, const QDateTime& now);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] ListRow rowAt(int row) const override;
    [[nodiscard]] QString headerAt(int row) const override;
    [[nodiscard]] QString titleAt(int row) const override;

private:
    struct Row
    {
        qsizetype day;
        qsizetype entry; ///< -1 for the header of the day
    };

    QList<ActivityDay> m_days;
    QList<Row> m_rows;
    QDateTime m_now;
};

} // namespace keelbright
