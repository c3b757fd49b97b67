#include "tests/support/PaintedText.h"

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QWidget>

namespace keelbright::testing {

namespace {

/// Draws nothing and records the texts that are drawn.
class TextRecorder : public QPaintEngine
{
public:
    TextRecorder()
        : QPaintEngine(AllFeatures)
    {}

    bool begin(QPaintDevice*) override { return true; }

    bool end() override { return true; }

    [[nodiscard]] Type type() const override { return User; }

    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}

    void drawPath(const QPainterPath&) override {}

    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}

    void updateState(const QPaintEngineState& now) override
    {
        const DirtyFlags changed = now.state();
        if (changed.testFlag(DirtyTransform))
            m_transform = now.transform();
        if (changed.testFlag(DirtyPen))
            m_color = now.pen().color();
        if (changed.testFlag(DirtyOpacity))
            m_opacity = now.opacity();
    }

    void drawTextItem(const QPointF& position, const QTextItem& item) override
    {
        const QRectF box(position.x(), position.y() - item.ascent(), item.width(),
                         item.ascent() + item.descent());
        QColor color = m_color;
        color.setAlphaF(color.alphaF() * static_cast<float>(m_opacity));
        texts.append({item.text(), m_transform.mapRect(box), color});
    }

    QList<PaintedText> texts;

private:
    QTransform m_transform;
    QColor m_color;
    double m_opacity = 1;
};

/// As large as the widget, and of its resolution.
class RecordingDevice : public QPaintDevice
{
public:
    explicit RecordingDevice(const QWidget& widget)
        : m_widget(widget)
    {}

    [[nodiscard]] QPaintEngine* paintEngine() const override { return &m_recorder; }

    [[nodiscard]] const QList<PaintedText>& texts() const { return m_recorder.texts; }

protected:
    [[nodiscard]] int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth:
            return m_widget.width();
        case PdmHeight:
            return m_widget.height();
        case PdmDpiX:
        case PdmPhysicalDpiX:
            return m_widget.logicalDpiX();
        case PdmDpiY:
        case PdmPhysicalDpiY:
            return m_widget.logicalDpiY();
        case PdmDepth:
            return m_widget.depth();
        case PdmDevicePixelRatio:
            return 1;
        default:
            return QPaintDevice::metric(metric);
        }
    }

private:
    const QWidget& m_widget;
    mutable TextRecorder m_recorder;
};

} // namespace

QList<PaintedText> textsPaintedBy(QWidget& widget)
{
    RecordingDevice device(widget);
    widget.render(&device, QPoint(), QRegion(), {});
    return device.texts();
}

} // namespace keelbright::testing
