#pragma once

#include "Keelbright/widgets/FocusRing.h"
#include "Keelbright/widgets/rows/RowModel.h"

#include <QListView>
#include <QPointer>
#include <memory>

namespace keelbright {

class RowButtons;
class RowDelegate;

/// A list of any length: paints the rows of a `RowModel`. The mouse can press marks and actions of
/// every row; the current row has real buttons for its actions, for Tab and for a screen reader.
/// Space ticks, Enter opens, Delete performs the action with `isDelete`, and the menu key shows all
/// actions.
class RowListView : public QListView
{
    Q_OBJECT

public:
    enum class Look {
        table, ///< rows from edge to edge on the ground of a card, with lines between them
        panel, ///< rows as rounded fields on the ground of the window, for the choice in a side panel
    };

    /// `name` is the accessible name.
    RowListView(Look look, const QString& name, QWidget* parent = nullptr);
    ~RowListView() override;
    Q_DISABLE_COPY_MOVE(RowListView)

    /// The model outlives the view or is its child.
    void setRowModel(RowModel* model);

    [[nodiscard]] RowModel* rowModel() const { return m_model; }

    [[nodiscard]] Look look() const { return m_look; }

    /// Makes the rows of a table lower, for a low window.
    void setDense(bool isDense);
    /// Between the ends of a table's rows and their parts.
    void setPadding(int padding);

    [[nodiscard]] int padding() const { return m_padding; }

    /// The height of a row that is no header, with its line.
    [[nodiscard]] int rowHeight() const;

    /// -1 if no row is current.
    [[nodiscard]] int currentRow() const;
    /// Makes the row current and selects it, without `currentRowChanged`; -1 for no row.
    void setCurrentRow(int row);

    /// The name of an action, or the texts of a row that are cut; empty elsewhere.
    [[nodiscard]] QString toolTipAt(const QPoint& position) const;

Q_SIGNALS:
    /// The user selected another row.
    void currentRowChanged(int row);
    /// The user cleared the selection, as with Control and a click.
    void currentRowCleared();
    /// Click on the mark, or Space.
    void markPressed(int row);
    void actionPressed(int row, keelbright::RowActionId action);
    /// Click on the row, or Enter. A double click or Enter also emits `activated`.
    void opened(int row);

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool event(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void updateGeometries() override;
    void paintEvent(QPaintEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    friend class RowDelegate;

    struct Target;

    [[nodiscard]] Target targetAt(const QPoint& position) const;
    [[nodiscard]] bool showsFocusAt(const QModelIndex& index) const;
    /// Its actions are shown as real buttons and not painted.
    [[nodiscard]] bool hasButtonsAt(const QModelIndex& index) const;
    /// Those of the buttons, then those of the menu alone.
    [[nodiscard]] QList<RowAction> allActionsAt(int row) const;
    void showMenu(int row, const QPoint& globalPosition);
    void updateButtons();
    /// Reports to a screen reader when the mark of the current row has changed.
    void reportMark();

    Look m_look;
    bool m_isDense = false;
    int m_padding;
    QPointer<RowModel> m_model;
    RowDelegate* m_delegate;
    QPointer<RowButtons> m_buttons;
    std::unique_ptr<Target> m_pressed;
    FocusRing m_focusRing;
    QVariant m_currentMark;
    bool m_isSelectingByCode = false; ///< in `setCurrentRow`
};

} // namespace keelbright
