#pragma once

#include <QIcon>
#include <QProxyStyle>

class QAbstractScrollArea;

namespace keelbright {

/// Draws the toolkit's own widgets (menus, scroll bars, text fields, the folder chooser) so that they
/// match the program's widgets.
class ApplicationStyle : public QProxyStyle
{
    Q_OBJECT

public:
    /// How the corners of menus are rounded: smoothly, or pixel by pixel, which needs no compositor.
    enum class Corners { transparent, cutOff };

    /// With the corners that the platform can surely show.
    ApplicationStyle();
    explicit ApplicationStyle(Corners corners);

    /// Has the scroll bar of the area lie above its content, so that nothing moves when it is needed; the
    /// content leaves 12 points free at its right edge. Before the area is laid out.
    static void floatScrollBar(QAbstractScrollArea& area);

    using QProxyStyle::polish;
    void polish(QWidget* widget) override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    [[nodiscard]] QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                       SubControl subControl, const QWidget* widget) const override;
    [[nodiscard]] QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                         const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    [[nodiscard]] QIcon standardIcon(StandardPixmap picture, const QStyleOption* option,
                                     const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;

private:
    Corners m_corners;
};

} // namespace keelbright
