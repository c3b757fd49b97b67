#pragma once

#include "Keelbright/widgets/rows/RowModel.h"
#include "KeelbrightCore/records/ActivityEntry.h"

namespace keelbright {

/// The entries of one day and the label of that day.
struct ActivityDay
{
    QString label;
    QList<ActivityEntry> entries;

    friend bool operator==(const ActivityDay&, const ActivityDay&) = default;
};

/// Groups entries by their day in the local calendar. Labels are relative to `now`: "Today",
/// "Yesterday", or the date. The days are in the order of their first entries, and the entries of a
/// day keep their order.
[[nodiscard]] QList<ActivityDay> grouped(const QList<ActivityEntry>& entries, const QDateTime& now);

/// The log as rows, each day under its header.
class ActivityLogModel : public RowModel
{
    Q_OBJECT

public:
    using RowModel::RowModel;

    /// `now` decides which day is today, and how long ago an entry was written.
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
