#pragma once

#include "Keelbright/screens/shared/ScreenContext.h"
#include "KeelbrightCore/records/ActivityEntry.h"

#include <QList>
#include <QWidget>
#include <optional>

class QStackedLayout;

namespace keelbright {

class ActivityLogModel;
class EmptyStateView;
class Label;
class MenuButton;
class PageHeader;
class RowListView;

/// What the program has done, by day: filtered by kind, exported, cleared. Shows the log as it was
/// when the screen appeared.
class ActivityLogView : public QWidget
{
    Q_OBJECT

public:
    /// What is handed in outlives the screen.
    explicit ActivityLogView(const ScreenContext& context, QWidget* parent = nullptr);

    [[nodiscard]] const QList<ActivityEntry>& entries() const { return m_entries; }

    /// Absent while all kinds are shown.
    [[nodiscard]] std::optional<ActivityEntry::Kind> filterKind() const { return m_filterKind; }

    void setFilterKind(std::optional<ActivityEntry::Kind> kind);

    /// The number of entries and what they add up to, whatever the filter.
    [[nodiscard]] static QString summaryLine(const QList<ActivityEntry>& entries);

    /// Asks where the log goes, and writes it there as it was when this was called.
    void exportCSV();
    /// Empties the log at once.
    void clear();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void addToolbar();
    void addStates();
    [[nodiscard]] QList<ActivityEntry> filtered() const;
    void redraw();

    ScreenContext m_context;
    QList<ActivityEntry> m_entries;
    std::optional<ActivityEntry::Kind> m_filterKind;
    PageHeader* m_header = nullptr;
    MenuButton* m_filter = nullptr;
    QStackedLayout* m_states = nullptr;
    EmptyStateView* m_empty = nullptr;
    Label* m_noMatch = nullptr;
    ActivityLogModel* m_model = nullptr;
    RowListView* m_list = nullptr;
    QWidget* m_listPage = nullptr;
};

} // namespace keelbright
