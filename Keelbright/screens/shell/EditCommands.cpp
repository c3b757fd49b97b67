#include "Keelbright/screens/shell/EditCommands.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>

namespace keelbright {

namespace {

bool clipboardHasText()
{
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    return data != nullptr && data->hasText();
}

QAction* addEntry(QMenu& menu, const QString& text, QKeySequence::StandardKey keys)
{
    QAction* action = menu.addAction(text);
    action->setShortcut(keys);
    return action;
}

QString textOfRow(const QModelIndex& row)
{
    const QString whole = row.data(Qt::AccessibleTextRole).toString();
    return whole.isEmpty() ? row.data().toString() : whole;
}

bool canBeSelected(const QLabel& label)
{
    return label.textInteractionFlags().testAnyFlags(Qt::TextSelectableByMouse |
                                                     Qt::TextSelectableByKeyboard);
}

} // namespace

EditCommands::EditCommands(QMenu& menu, QWidget& window)
    : QObject(&window)
{
    if (!menu.isEmpty())
        menu.addSeparator();
    m_cut = addEntry(menu, tr("Cu&t"), QKeySequence::Cut);
    m_copy = addEntry(menu, tr("&Copy"), QKeySequence::Copy);
    m_paste = addEntry(menu, tr("&Paste"), QKeySequence::Paste);
    m_selectAll = addEntry(menu, tr("Select &All"), QKeySequence::SelectAll);
    connect(m_cut, &QAction::triggered, this, &EditCommands::cut);
    connect(m_copy, &QAction::triggered, this, &EditCommands::copy);
    connect(m_paste, &QAction::triggered, this, &EditCommands::paste);
    connect(m_selectAll, &QAction::triggered, this, &EditCommands::selectAll);
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* focused) { followFocus(focused); });
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, &EditCommands::update);
    connect(&menu, &QMenu::aboutToShow, this, &EditCommands::update);
    followFocus(QApplication::focusWidget());
    update();
}

void EditCommands::followFocus(QWidget* focused)
{
    // A menu that is opened by the keyboard takes the focus; what had it before is meant.
    const bool isMenu =
        qobject_cast<QMenuBar*>(focused) != nullptr || qobject_cast<QMenu*>(focused) != nullptr;
    if (isMenu || focused == nullptr)
        return;
    for (const QMetaObject::Connection& connection : std::as_const(m_watched))
        disconnect(connection);
    m_watched.clear();
    m_focused = focused;
    watch(*focused);
    update();
}

void EditCommands::watch(QWidget& focused)
{
    if (auto* field = qobject_cast<QLineEdit*>(&focused)) {
        m_watched.append(connect(field, &QLineEdit::selectionChanged, this, &EditCommands::update));
        m_watched.append(connect(field, &QLineEdit::textChanged, this, &EditCommands::update));
    }
    if (auto* list = qobject_cast<QAbstractItemView*>(&focused); list != nullptr && list->selectionModel()) {
        m_watched.append(connect(list->selectionModel(), &QItemSelectionModel::currentChanged, this,
                                 &EditCommands::update));
    }
}

EditCommands::Abilities EditCommands::abilitiesOf(const QWidget* widget)
{
    if (widget == nullptr || !widget->isVisible())
        return {};
    if (const auto* field = qobject_cast<const QLineEdit*>(widget)) {
        const bool hasSelection = field->hasSelectedText();
        const bool isWritable = !field->isReadOnly();
        return {.cut = hasSelection && isWritable,
                .copy = hasSelection,
                .paste = isWritable && clipboardHasText(),
                .selectAll = field->selectedText() != field->text()};
    }
    if (const auto* label = qobject_cast<const QLabel*>(widget); label != nullptr && canBeSelected(*label))
        return {.copy = label->hasSelectedText(), .selectAll = label->selectedText() != label->text()};
    if (const auto* list = qobject_cast<const QAbstractItemView*>(widget)) {
        const bool takesSeveral = list->selectionMode() == QAbstractItemView::ExtendedSelection ||
                                  list->selectionMode() == QAbstractItemView::MultiSelection;
        return {.copy = list->currentIndex().isValid(), .selectAll = takesSeveral};
    }
    return {};
}

void EditCommands::update()
{
    const Abilities abilities = abilitiesOf(m_focused);
    m_cut->setEnabled(abilities.cut);
    m_copy->setEnabled(abilities.copy);
    m_paste->setEnabled(abilities.paste);
    m_selectAll->setEnabled(abilities.selectAll);
}

void EditCommands::cut()
{
    if (auto* field = qobject_cast<QLineEdit*>(m_focused))
        field->cut();
}

void EditCommands::copy()
{
    if (const auto* field = qobject_cast<QLineEdit*>(m_focused))
        field->copy();
    else if (const auto* label = qobject_cast<QLabel*>(m_focused))
        QGuiApplication::clipboard()->setText(label->selectedText());
    else if (const auto* list = qobject_cast<QAbstractItemView*>(m_focused))
        QGuiApplication::clipboard()->setText(textOfRow(list->currentIndex()));
}

void EditCommands::paste()
{
    if (auto* field = qobject_cast<QLineEdit*>(m_focused))
        field->paste();
}

void EditCommands::selectAll()
{
    if (auto* field = qobject_cast<QLineEdit*>(m_focused))
        field->selectAll();
    else if (auto* label = qobject_cast<QLabel*>(m_focused))
        label->setSelection(0, static_cast<int>(label->text().size()));
    else if (auto* list = qobject_cast<QAbstractItemView*>(m_focused))
        list->selectAll();
}

} // namespace keelbright
