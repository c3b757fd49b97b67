#include "Keelbright/screens/BottomBar.h"

#include "Keelbright/widgets/Theme.h"

#include <QHBoxLayout>
#include <QPainter>

namespace keelbright {

namespace {

constexpr int barHeight = 56;

} // namespace

BottomBar::BottomBar(QWidget* parent)
    : QWidget(parent)
    , m_layout(new QHBoxLayout(this))
{
    setFixedHeight(barHeight);
    m_layout->setContentsMargins(Metrics::pageMarginX, 0, Metrics::pageMarginX, 0);
    m_layout->setSpacing(8);
    m_layout->addStretch();
    connect(&Theme::instance(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

void BottomBar::addAction(QWidget* action)
{
    m_layout->addWidget(action);
}

void BottomBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Theme::instance().color(Role::sidebar));
    painter.fillRect(0, 0, width(), 1, Theme::instance().color(Role::line));
}

} // namespace keelbright
