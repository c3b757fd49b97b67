#include "Keelbright/widgets/rows/AccessibleRows.h"

#include "Keelbright/widgets/rows/RowListView.h"

#include <QAccessibleWidget>
#include <QEvent>
#include <QHash>
#include <QPersistentModelIndex>
#include <QPointer>

namespace keelbright {

namespace {

/// Marks the lists that have asked for these rows.
constexpr char marker[] = "keelbrightAccessibleRows";

/// One row. A screen reader may keep it for longer than the model does, so it knows when it is gone.
class AccessibleRow : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    AccessibleRow(QListView& list, const QModelIndex& index)
        : m_list(&list)
        , m_index(index)
    {}

    [[nodiscard]] int row() const { return m_index.isValid() ? m_index.row() : -1; }

    [[nodiscard]] bool isValid() const override { return m_list && m_index.isValid(); }

    [[nodiscard]] QObject* object() const override { return nullptr; }

    [[nodiscard]] QWindow* window() const override
    {
        return m_list ? m_list->window()->windowHandle() : nullptr;
    }

    [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }

    [[nodiscard]] QAccessibleInterface* parent() const override
    {
        return QAccessible::queryAccessibleInterface(m_list);
    }

    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }

    [[nodiscard]] int childCount() const override { return 0; }

    [[nodiscard]] int indexOfChild(const QAccessibleInterface*) const override { return -1; }

    [[nodiscard]] QString text(QAccessible::Text text) const override
    {
        if (!isValid() || text != QAccessible::Name)
            return {};
        const QString read = m_index.data(Qt::AccessibleTextRole).toString();
        return read.isEmpty() ? m_index.data(Qt::DisplayRole).toString() : read;
    }

    void setText(QAccessible::Text, const QString&) override {}

    [[nodiscard]] QRect rect() const override
    {
        if (!isValid())
            return {};
        const QRect inList = m_list->visualRect(m_index);
        return {m_list->viewport()->mapToGlobal(inList.topLeft()), inList.size()};
    }

    [[nodiscard]] QAccessible::Role role() const override
    {
        if (isSelectable())
            return QAccessible::ListItem;
        return text(QAccessible::Name).isEmpty() ? QAccessible::Separator : QAccessible::Heading;
    }

    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state;
        state.invalid = !isValid();
        if (state.invalid)
            return state;
        const QRect shown = m_list->viewport()->rect();
        state.invisible = !m_list->isVisible() || !shown.intersects(m_list->visualRect(m_index));
        if (!isSelectable())
            return state;
        state.selectable = true;
        state.focusable = true;
        state.selected = m_list->selectionModel()->isSelected(m_index);
        state.focused = m_list->hasFocus() && m_list->currentIndex() == m_index;
        if (const QVariant mark = m_index.data(Qt::CheckStateRole); mark.isValid()) {
            state.checkable = true;
            state.checked = mark.toInt() == Qt::Checked;
            state.checkStateMixed = mark.toInt() == Qt::PartiallyChecked;
        }
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }

    [[nodiscard]] QStringList actionNames() const override
    {
        if (!isValid() || !isSelectable())
            return {};
        QStringList names{pressAction(), setFocusAction()};
        if (rows() != nullptr && m_index.data(Qt::CheckStateRole).isValid())
            names.prepend(toggleAction());
        return names;
    }

    void doAction(const QString& name) override
    {
        if (!actionNames().contains(name))
            return;
        const int row = m_index.row();
        if (name == toggleAction()) {
            Q_EMIT rows()->markPressed(row);
            return;
        }
        if (name == setFocusAction())
            m_list->setFocus(Qt::OtherFocusReason);
        m_list->setCurrentIndex(m_index);
        if (name == pressAction() && rows() != nullptr)
            Q_EMIT rows()->opened(row);
    }

    [[nodiscard]] QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    [[nodiscard]] bool isSelectable() const
    {
        return isValid() && m_index.flags().testFlag(Qt::ItemIsSelectable);
    }

    [[nodiscard]] RowListView* rows() const { return qobject_cast<RowListView*>(m_list.data()); }

    QPointer<QListView> m_list;
    QPersistentModelIndex m_index;
};

class AccessibleList : public QAccessibleWidget
{
public:
    explicit AccessibleList(QListView* list)
        : QAccessibleWidget(list, QAccessible::List)
    {}

    ~AccessibleList() override
    {
        for (const QAccessible::Id id : std::as_const(m_ids))
            QAccessible::deleteAccessibleInterface(id);
    }

    Q_DISABLE_COPY_MOVE(AccessibleList)

    [[nodiscard]] int childCount() const override
    {
        return list().model() != nullptr ? list().model()->rowCount() : 0;
    }

    [[nodiscard]] QAccessibleInterface* child(int index) const override
    {
        if (index < 0 || index >= childCount())
            return nullptr;
        if (const auto known = m_ids.constFind(index); known != m_ids.cend()) {
            auto* row = static_cast<AccessibleRow*>(QAccessible::accessibleInterface(*known));
            if (row != nullptr && row->row() == index)
                return row;
            QAccessible::deleteAccessibleInterface(*known);
        }
        auto* row = new AccessibleRow(list(), list().model()->index(index, 0));
        m_ids.insert(index, QAccessible::registerAccessibleInterface(row));
        return row;
    }

    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override
    {
        const auto* row = dynamic_cast<const AccessibleRow*>(child);
        return row != nullptr && row->parent() == this ? row->row() : -1;
    }

    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override
    {
        return child(list().indexAt(list().viewport()->mapFromGlobal(QPoint(x, y))).row());
    }

    [[nodiscard]] QAccessibleInterface* focusChild() const override
    {
        return list().hasFocus() ? child(list().currentIndex().row()) : nullptr;
    }

private:
    [[nodiscard]] QListView& list() const { return *static_cast<QListView*>(object()); }

    /// By row, for those that a screen reader has asked for.
    mutable QHash<int, QAccessible::Id> m_ids;
};

/// Reports the current row when the list takes the focus, as Qt reports the list alone.
class FocusReporter : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* list = qobject_cast<QListView*>(watched);
        if (list != nullptr && event->type() == QEvent::FocusIn) {
            // Behind Qt's own report.
            QMetaObject::invokeMethod(list, [list] { report(*list); }, Qt::QueuedConnection);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    static void report(QListView& list)
    {
        if (!list.hasFocus() || !list.currentIndex().isValid())
            return;
        QAccessibleEvent focus(&list, QAccessible::Focus);
        focus.setChild(list.currentIndex().row());
        QAccessible::updateAccessibility(&focus);
    }
};

QAccessibleInterface* makeAccessibleList(const QString&, QObject* object)
{
    auto* list = qobject_cast<QListView*>(object);
    return list != nullptr && list->property(marker).toBool() ? new AccessibleList(list) : nullptr;
}

} // namespace

void useAccessibleRows(QListView& list)
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(makeAccessibleList);
        return true;
    }();
    Q_UNUSED(isInstalled)
    list.setProperty(marker, true);
    list.installEventFilter(new FocusReporter(&list));
}

} // namespace keelbright
