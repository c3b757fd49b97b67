#include "Keelbright/screens/dashboard/SlideReveal.h"

#include "Keelbright/widgets/theme/Theme.h"

#include <QGraphicsOpacityEffect>
#include <QVBoxLayout>

#include <cmath>

namespace keelbright {

namespace {

constexpr int slideTime = 220;
constexpr int slideDistance = 24;

} // namespace

SlideReveal::SlideReveal(QWidget* content, QWidget* parent)
    : QWidget(parent)
    , m_revealed(content)
    , m_layout(new QVBoxLayout(this))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->addWidget(content);
    m_animation.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_animation, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& value) { setPosition(value.toDouble()); });
    hide();
}

void SlideReveal::setRevealed(bool isRevealed)
{
    if (isRevealed == m_isRevealed)
        return;
    m_isRevealed = isRevealed;
    m_animation.stop();
    const double end = isRevealed ? 1.0 : 0.0;
    const int time = Theme::instance().duration(slideTime);
    if (time == 0 || parentWidget() == nullptr || !parentWidget()->isVisible()) {
        setPosition(end);
        return;
    }
    m_animation.setDuration(time);
    m_animation.setStartValue(m_position);
    m_animation.setEndValue(end);
    m_animation.start();
}

void SlideReveal::setPosition(double position)
{
    m_position = position;
    m_layout->setContentsMargins(0, static_cast<int>(std::lround((1 - position) * slideDistance)), 0, 0);
    if (position >= 1) {
        // An effect draws its widget twice, so it goes as soon as it makes no difference.
        m_revealed->setGraphicsEffect(nullptr);
    } else {
        auto* fade = qobject_cast<QGraphicsOpacityEffect*>(m_revealed->graphicsEffect());
        if (fade == nullptr) {
            fade = new QGraphicsOpacityEffect(m_revealed);
            m_revealed->setGraphicsEffect(fade);
        }
        fade->setOpacity(position);
    }
    setVisible(position > 0 || m_isRevealed);
}

} // namespace keelbright
