#include "Keelbright/widgets/StepStack.h"

#include "Keelbright/widgets/theme/Theme.h"

#include <QGraphicsOpacityEffect>

namespace keelbright {

namespace {

constexpr int glideTime = 260;
constexpr double glideDistance = 40;

} // namespace

StepStack::StepStack(QWidget* parent)
    : QWidget(parent)
{
    m_glide.setEasingCurve(QEasingCurve::InOutQuad);
    m_glide.setStartValue(1.0);
    m_glide.setEndValue(0.0);
    connect(&m_glide, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& value) { placePages(value.toDouble()); });
    connect(&m_glide, &QVariantAnimation::finished, this, [this] {
        m_pages.at(m_current)->setGraphicsEffect(nullptr);
        placePages(0);
    });
}

void StepStack::addPage(QWidget* page)
{
    page->setParent(this);
    m_pages.append(page);
    page->setVisible(m_pages.size() - 1 == m_current);
    placePages(0);
}

void StepStack::setCurrentIndex(int index)
{
    if (index == m_current || index < 0 || index >= m_pages.size())
        return;
    m_glide.stop();
    m_pages.at(m_current)->setGraphicsEffect(nullptr);
    m_pages.at(m_current)->hide();
    m_direction = index > m_current ? 1 : -1;
    m_current = index;
    QWidget* page = m_pages.at(index);
    const int time = Theme::instance().duration(glideTime);
    if (time == 0 || !isVisible()) {
        placePages(0);
        page->show();
        return;
    }
    page->setGraphicsEffect(new QGraphicsOpacityEffect(page));
    m_glide.setDuration(time);
    placePages(1);
    page->show();
    m_glide.start();
}

void StepStack::placePages(double remaining)
{
    for (QWidget* page : m_pages)
        page->resize(size());
    if (m_pages.isEmpty())
        return;
    QWidget* page = m_pages.at(m_current);
    page->move(static_cast<int>(m_direction * glideDistance * remaining), 0);
    if (auto* effect = qobject_cast<QGraphicsOpacityEffect*>(page->graphicsEffect()))
        effect->setOpacity(1 - remaining);
}

QSize StepStack::sizeHint() const
{
    QSize size;
    for (const QWidget* page : m_pages)
        size = size.expandedTo(page->sizeHint());
    return size;
}

QSize StepStack::minimumSizeHint() const
{
    QSize size;
    for (const QWidget* page : m_pages)
        size = size.expandedTo(page->minimumSizeHint());
    return size;
}

void StepStack::resizeEvent(QResizeEvent*)
{
    placePages(m_glide.state() == QAbstractAnimation::Running ? m_glide.currentValue().toDouble() : 0);
}

} // namespace keelbright
