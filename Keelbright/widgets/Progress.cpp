#include "Keelbright/widgets/Progress.h"

#include "Keelbright/widgets/NumberLabel.h"
#include "Keelbright/widgets/theme/Theme.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace keelbright {

namespace {

constexpr int glideTime = 300;
constexpr int frameTime = 16;
constexpr int degreesPerFrame = 6;
constexpr int sixteenths = 16; ///< the toolkit counts angles in sixteenths of a degree

void drawArc(QPainter& painter, const QRectF& square, double thickness, const QColor& color,
             double startDegrees, double spanDegrees)
{
    painter.setPen(QPen(color, thickness, Qt::SolidLine, Qt::RoundCap));
    painter.setBrush(Qt::NoBrush);
    const double half = thickness / 2;
    painter.drawArc(square.adjusted(half, half, -half, -half), static_cast<int>(startDegrees * sixteenths),
                    static_cast<int>(spanDegrees * sixteenths));
}

} // namespace

FractionBar::FractionBar(const QString& name, Role color, QWidget* parent)
    : QProgressBar(parent)
    , m_color(color)
{
    setRange(0, 100);
    setValue(0);
    setTextVisible(false);
    setAccessibleName(name);
    m_animation.setDuration(glideTime);
    m_animation.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_animation, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        m_shown = value.toDouble();
        update();
    });
    connect(&Theme::instance(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

void FractionBar::setFraction(double fraction)
{
    const double clamped = std::clamp(std::isnan(fraction) ? 0.0 : fraction, 0.0, 1.0);
    setValue(static_cast<int>(clamped * 100));
    if (clamped == m_fraction)
        return;
    m_fraction = clamped;
    m_animation.stop();
    const int time = Theme::instance().duration(glideTime);
    if (time == 0 || !isVisible()) {
        m_shown = clamped;
        update();
        return;
    }
    m_animation.setStartValue(m_shown);
    m_animation.setEndValue(clamped);
    m_animation.start();
}

void FractionBar::setColorRole(Role color)
{
    m_color = color;
    update();
}

BarProgress::BarProgress(const QString& name, Role color, QWidget* parent)
    : FractionBar(name, color, parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void BarProgress::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::instance();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const QRectF groove(rect());
    const double radius = groove.height() / 2;
    painter.setBrush(theme.color(Role::track));
    painter.drawRoundedRect(groove, radius, radius);
    if (shownFraction() <= 0)
        return;
    QRectF bar = groove;
    bar.setWidth(std::max(groove.height(), groove.width() * shownFraction()));
    if (layoutDirection() == Qt::RightToLeft)
        bar.moveRight(groove.right());
    painter.setBrush(theme.color(colorRole()));
    painter.drawRoundedRect(bar, radius, radius);
}

RingProgress::RingProgress(const QString& name, int diameter, int thickness, Role color, QWidget* parent)
    : FractionBar(name, color, parent)
    , m_diameter(diameter)
    , m_thickness(thickness)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void RingProgress::setCenter(const QString& text, const QString& caption, bool isCaptionColored)
{
    m_centerText = text;
    m_caption = caption;
    m_isCaptionColored = isCaptionColored;
    setAccessibleDescription(caption.isEmpty() ? text : text + u' ' + caption);
    update();
}

void RingProgress::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::instance();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor track = theme.color(Role::secondaryText);
    track.setAlphaF(0.2F);
    drawArc(painter, rect(), m_thickness, track, 0, 360);
    if (shownFraction() > 0)
        drawArc(painter, rect(), m_thickness, theme.color(colorRole()), 90, -360 * shownFraction());
    if (m_centerText.isEmpty())
        return;
    const QFont textFont = theme.font(FontRole::largeNumber);
    QFont captionFont = theme.font(FontRole::secondary);
    captionFont.setWeight(QFont::DemiBold);
    const double textHeight = QFontMetricsF(textFont).capHeight();
    const double captionHeight = m_caption.isEmpty() ? 0 : QFontMetricsF(captionFont).capHeight();
    const double between = m_caption.isEmpty() ? 0 : 11;
    const double top = (height() - textHeight - between - captionHeight) / 2;
    painter.setPen(theme.color(Role::primaryText));
    TabularDigits::paint(painter, QRectF(0, top, width(), textHeight), Qt::AlignHCenter, textFont,
                         m_centerText);
    painter.setPen(theme.color(m_isCaptionColored ? textRole(colorRole()) : Role::mutedText));
    TabularDigits::paint(painter, QRectF(0, top + textHeight + between, width(), captionHeight),
                         Qt::AlignHCenter, captionFont, m_caption);
}

Spinner::Spinner(const QString& name, int diameter, QWidget* parent)
    : QProgressBar(parent)
    , m_diameter(diameter)
{
    setRange(0, 0);
    setTextVisible(false);
    setAccessibleName(name);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_timer.setInterval(frameTime);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        m_angle = (m_angle + degreesPerFrame) % 360;
        update();
    });
}

void Spinner::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::instance();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double thickness = std::max(2.0, m_diameter / 9.0);
    drawArc(painter, rect(), thickness, theme.color(Role::track), 0, 360);
    drawArc(painter, rect(), thickness, theme.color(Role::accent), 90 - m_angle, -100);
}

void Spinner::showEvent(QShowEvent* event)
{
    QProgressBar::showEvent(event);
    if (!Theme::instance().isMotionReduced())
        m_timer.start();
}

void Spinner::hideEvent(QHideEvent* event)
{
    QProgressBar::hideEvent(event);
    m_timer.stop();
}

} // namespace keelbright
