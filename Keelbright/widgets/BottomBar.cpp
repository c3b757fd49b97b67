#include "Keelbright/widgets/BottomBar.h"

#include "Keelbright/widgets/theme/Theme.h"

#include <QHBoxLayout>
#include <QPainter>
#include <algorithm>

namespace keelbright {

namespace {

constexpr int barHeight = 56;
constexpr int barMargin = Metrics::panelPadding;

} // namespace

BottomBar::BottomBar(QWidget* parent)
    : QWidget(parent)
    , m_content(new QHBoxLayout(this))
{
    setFixedHeight(barHeight);
    m_content->setContentsMargins(barMargin, 0, barMargin, 0);
    m_content->setSpacing(8);
    connect(&Theme::instance(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

void BottomBar::alignWithPage(int maximumContentWidth)
{
    m_pageWidth = maximumContentWidth;
    resizeEvent(nullptr);
}

void BottomBar::resizeEvent(QResizeEvent*)
{
    if (m_pageWidth == 0)
        return;
    const int side = std::max(Metrics::pageMarginX, (width() - m_pageWidth) / 2);
    m_content->setContentsMargins(side, 0, side, 0);
}

void BottomBar::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::instance();
    QPainter painter(this);
    painter.fillRect(rect(), theme.color(Role::sidebar));
    painter.fillRect(0, 0, width(), 1, theme.color(Role::line));
}

} // namespace keelbright
