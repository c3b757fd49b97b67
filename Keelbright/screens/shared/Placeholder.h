#pragma once

#include "Keelbright/widgets/theme/Roles.h"

#include <QWidget>

namespace keelbright {

/// A grey shape in the place of something that is still to come. Says nothing, to nobody.
class Placeholder : public QWidget
{
    Q_OBJECT

public:
    /// In the place of a line of text in that font, as long as such a text.
    Placeholder(FontRole font, int length, QWidget* parent = nullptr);
    /// In the place of a ring.
    [[nodiscard]] static Placeholder* ring(int diameter, int thickness, QWidget* parent = nullptr);
    /// In the place of a thin bar as wide as there is room.
    [[nodiscard]] static Placeholder* bar(int thickness, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override { return m_size; }

    [[nodiscard]] QSize minimumSizeHint() const override { return {m_thickness, m_size.height()}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    enum class Shape { line, bar, ring };

    Placeholder(Shape shape, QSize size, int thickness, QWidget* parent);

    Shape m_shape;
    QSize m_size;
    int m_thickness;
};

} // namespace keelbright
