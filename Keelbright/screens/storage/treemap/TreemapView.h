#pragma once

#include "Keelbright/screens/storage/treemap/TreemapLayout.h"
#include "Keelbright/screens/storage/treemap/TreemapNavigation.h"
#include "Keelbright/widgets/FocusRing.h"
#include "Keelbright/widgets/rows/ListRow.h"
#include "Keelbright/widgets/theme/Roles.h"

#include <QPixmap>
#include <QWidget>

namespace keelbright {

/// The entries of a folder as a map. A click drills in; arrows go from cell to cell, Enter drills
/// in, Delete asks for the Trash, and the menu key shows all actions. Tab stops at the map once; to a
/// screen reader each cell is a child with a name.
///
/// The map is drawn once and cached: hover and focus are painted above the cached picture.
class TreemapView : public QWidget
{
    Q_OBJECT

public:
    static constexpr int mapHeight = 420;

    explicit TreemapView(QWidget* parent = nullptr);

    void setNodes(const QList<FolderSizeNode>& nodes, qint64 totalBytes);

    /// At the present size of the view.
    [[nodiscard]] const QList<TreemapCell>& cells();

    /// Grows whenever `cells` may have changed.
    [[nodiscard]] quint64 generation() const { return m_generation; }

    /// The index of the cell at this position; -1 where there is none.
    [[nodiscard]] int cellAt(const QPointF& position);
    /// Name and size.
    [[nodiscard]] QString textOf(int cell);

    /// The cell that the keyboard acts on; -1 in a map without cells.
    [[nodiscard]] int currentCell();
    void setCurrentCell(int cell);

    /// The cell below the pointer, or -1.
    [[nodiscard]] int hoveredCell() const { return m_hovered; }

    /// What a click does.
    void press(int cell);

    /// The number of times that the map itself has been drawn.
    [[nodiscard]] int drawingCount() const { return m_drawingCount; }

    [[nodiscard]] QSize sizeHint() const override { return {640, mapHeight}; }

    [[nodiscard]] QSize minimumSizeHint() const override { return {120, mapHeight}; }

Q_SIGNALS:
    void drilledIn(const keelbright::FolderSizeNode& node);
    void actionPressed(const keelbright::FolderSizeNode& node, keelbright::RowActionId action);
    /// An arrow key has moved to the cell at this place.
    void currentCellChanged(const QRectF& rect);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    /// One sentence with the largest three nodes, for a screen reader.
    [[nodiscard]] QString summary() const;
    void forgetCells();
    void drawIfChanged();
    void setHovered(int cell);
    void updateCell(int cell);
    void move(TreemapDirection direction);
    void pressDelete();
    void showMenu(int cell, const QPoint& globalPosition);
    void paintMark(QPainter& painter, int cell);
    void paintRing(QPainter& painter, int cell);

    QList<FolderSizeNode> m_nodes;
    qint64 m_totalBytes = 0;
    QList<TreemapCell> m_cells;
    bool m_areCellsLaid = false;
    quint64 m_generation = 0;

    QPixmap m_picture;
    ColorScheme m_pictureScheme = ColorScheme::light;
    int m_drawingCount = 0;

    int m_current = 0;
    int m_hovered = -1;
    int m_pressed = -1;
    QPointF m_anchor; ///< the point from which the arrow keys search; see `treemapNeighbour`
    FocusRing m_focusRing;
};

} // namespace keelbright
