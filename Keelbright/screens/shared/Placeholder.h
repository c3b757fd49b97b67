#pragma once

#include "Keelbright/widgets/theme/Roles.h"

#include <QWidget>

namespace keelbright {

/// A grey shape in place of something that is not known yet.
class Placeholder : public QWidget
{
    Q_OBJECT

public:
    /// In place of a line of text in this font, `length` pixels long.
    Placeholder(FontRole font, int length, QWidget* parent = nullptr);
    /// In place of a ring.
    [[nodiscard]] static Placeholder* ring(int diameter, int thickness, QWidget* parent = nullptr);
    /// In place of a thin bar that takes the whole width.
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
