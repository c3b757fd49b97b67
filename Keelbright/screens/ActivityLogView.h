#pragma once

#include "Keelbright/screens/shared/ScreenContext.h"
#include "Keelbright/state/ActivityLogVM.h"

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

/// The log of what the program did, by day. The user can filter it by kind, export it and clear it.
/// Shows the log as it was when the screen appeared.
class ActivityLogView : public QWidget
{
    Q_OBJECT

public:
    /// The arguments must outlive the screen.
    explicit ActivityLogView(const ScreenContext& context, QWidget* parent = nullptr);

    /// Absent while all kinds are shown.
    [[nodiscard]] std::optional<ActivityEntry::Kind> filterKind() const { return m_filterKind; }

    void setFilterKind(std::optional<ActivityEntry::Kind> kind);

    /// The number of the entries and the sum of their bytes, for the text below the title.
    [[nodiscard]] static QString summaryLine(const QList<ActivityEntry>& entries);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void addToolbar();
    void addStates();
    [[nodiscard]] QList<ActivityEntry> filtered() const;
    void clear();
    void redraw();

    ScreenContext m_context;
    ActivityLogVM m_vm;
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
