#pragma once

#include "Keelbright/widgets/theme/Roles.h"

#include <QImage>
#include <QWidget>
#include <utility>

class QVBoxLayout;

namespace keelbright {

/// A rounded surface with a fine frame and a faint shadow. Put the content into `content()`.
/// The lowest `Metrics::cardShadow` pixels belong to the shadow.
class Card : public QWidget
{
    Q_OBJECT

public:
    explicit Card(QWidget* parent = nullptr);

    /// With margins of `Metrics::cardPadding` and a spacing of 12; both may be changed.
    [[nodiscard]] QVBoxLayout* content() const { return m_content; }

    /// Lays a gradient of the hue on the card, strong at the left; none by default.
    void setTint(Role hue);

    /// Draws the same surface for a widget that is not a `Card`.
    static void paintSurface(QPainter& painter, const QRectF& rect, const QColor& color);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QVBoxLayout* m_content;
    Role m_tint = Role::card;
    QImage m_gradient; ///< of the tint, in the card's own pixels; empty before it is painted
    std::pair<QColor, QColor> m_gradientColors;
};

/// A card of rows with a fine line above each row except the first. The rows have their own margins.
class RowList : public Card
{
    Q_OBJECT

public:
    explicit RowList(QWidget* parent = nullptr);

    /// Takes ownership of the row.
    void addRow(QWidget* row);
    /// Destroys every row.
    void clear();
    [[nodiscard]] int rowCount() const;
    [[nodiscard]] QWidget* row(int index) const;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace keelbright
