#include "Keelbright/screens/storage/treemap/AccessibleTreemap.h"

#include "Keelbright/screens/storage/treemap/TreemapView.h"

#include <QAccessibleWidget>
#include <QHash>
#include <QPointer>

namespace keelbright {

namespace {

/// One cell. A screen reader may keep it for longer than the view keeps the cell, so it knows when it
/// is outdated.
class AccessibleCell : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    AccessibleCell(TreemapView& view, int index)
        : m_view(&view)
        , m_generation(view.generation())
        , m_index(index)
    {}

    [[nodiscard]] quint64 generation() const { return m_generation; }

    [[nodiscard]] int index() const { return m_index; }

    [[nodiscard]] bool isValid() const override
    {
        return m_view && m_view->generation() == m_generation && m_index < m_view->cells().size();
    }

    [[nodiscard]] QObject* object() const override { return nullptr; }

    [[nodiscard]] QWindow* window() const override
    {
        return m_view ? m_view->window()->windowHandle() : nullptr;
    }

    [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }

    [[nodiscard]] QAccessibleInterface* parent() const override
    {
        return QAccessible::queryAccessibleInterface(m_view);
    }

    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }

    [[nodiscard]] int childCount() const override { return 0; }

    [[nodiscard]] int indexOfChild(const QAccessibleInterface*) const override { return -1; }

    [[nodiscard]] QString text(QAccessible::Text text) const override
    {
        return isValid() && text == QAccessible::Name ? m_view->textOf(m_index) : QString();
    }

    void setText(QAccessible::Text, const QString&) override {}

    [[nodiscard]] QRect rect() const override
    {
        if (!isValid())
            return {};
        const QRect inView = m_view->cells().at(m_index).rect.toAlignedRect();
        return {m_view->mapToGlobal(inView.topLeft()), inView.size()};
    }

    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ListItem; }

    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state;
        state.invalid = !isValid();
        if (state.invalid)
            return state;
        state.focusable = true;
        state.selectable = true;
        state.selected = m_view->currentCell() == m_index;
        state.focused = state.selected && m_view->hasFocus();
        state.invisible = !m_view->isVisible();
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }

    [[nodiscard]] QStringList actionNames() const override
    {
        if (!isValid())
            return {};
        const bool isFolder = m_view->cells().at(m_index).node.isDirectory;
        return isFolder ? QStringList{pressAction(), setFocusAction()} : QStringList{setFocusAction()};
    }

    void doAction(const QString& name) override
    {
        if (!actionNames().contains(name))
            return;
        m_view->setCurrentCell(m_index);
        if (name == pressAction())
            m_view->press(m_index);
        else
            m_view->setFocus(Qt::OtherFocusReason);
    }

    [[nodiscard]] QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    QPointer<TreemapView> m_view;
    quint64 m_generation;
    int m_index;
};

class AccessibleTreemapView : public QAccessibleWidget
{
public:
    explicit AccessibleTreemapView(TreemapView* view)
        : QAccessibleWidget(view, QAccessible::List)
    {}

    ~AccessibleTreemapView() override
    {
        for (const QAccessible::Id id : std::as_const(m_ids))
            QAccessible::deleteAccessibleInterface(id);
    }

    Q_DISABLE_COPY_MOVE(AccessibleTreemapView)

    [[nodiscard]] int childCount() const override { return static_cast<int>(view().cells().size()); }

    [[nodiscard]] QAccessibleInterface* child(int index) const override
    {
        if (index < 0 || index >= childCount())
            return nullptr;
        if (const auto known = m_ids.constFind(index); known != m_ids.cend()) {
            auto* cell = static_cast<AccessibleCell*>(QAccessible::accessibleInterface(*known));
            if (cell != nullptr && cell->generation() == view().generation())
                return cell;
            QAccessible::deleteAccessibleInterface(*known);
        }
        auto* cell = new AccessibleCell(view(), index);
        m_ids.insert(index, QAccessible::registerAccessibleInterface(cell));
        return cell;
    }

    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override
    {
        const auto* cell = dynamic_cast<const AccessibleCell*>(child);
        return cell != nullptr && cell->isValid() && cell->parent() == this ? cell->index() : -1;
    }

    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override
    {
        return child(view().cellAt(view().mapFromGlobal(QPoint(x, y))));
    }

    [[nodiscard]] QAccessibleInterface* focusChild() const override
    {
        return view().hasFocus() ? child(view().currentCell()) : nullptr;
    }

private:
    [[nodiscard]] TreemapView& view() const { return *static_cast<TreemapView*>(object()); }

    /// By cell, for those that a screen reader has asked for.
    mutable QHash<int, QAccessible::Id> m_ids;
};

QAccessibleInterface* makeAccessibleTreemap(const QString&, QObject* object)
{
    auto* view = qobject_cast<TreemapView*>(object);
    return view != nullptr ? new AccessibleTreemapView(view) : nullptr;
}

} // namespace

void installAccessibleTreemap()
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(makeAccessibleTreemap);
        return true;
    }();
    Q_UNUSED(isInstalled)
}

} // namespace keelbright
