#include "Keelbright/widgets/Page.h"

#include "Keelbright/widgets/theme/Roles.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScrollBar>
#include <QVBoxLayout>

namespace keelbright {

Page::Page(QWidget* parent)
    : QScrollArea(parent)
    , m_column(new QWidget)
    , m_content(new QVBoxLayout(m_column))
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // The arrow keys scroll wherever the focus is, so the page itself needs no Tab stop.
    setFocusPolicy(Qt::NoFocus);
    m_content->setContentsMargins(Metrics::pageMarginX, Metrics::pageMarginY, Metrics::pageMarginX,
                                  Metrics::pageMarginY);
    m_content->setSpacing(Metrics::sectionSpacing - Metrics::cardShadow);

    auto* ground = new QWidget;
    auto* row = new QHBoxLayout(ground);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addStretch(1);
    // The sides grow only after the column has its maximum width.
    row->addWidget(m_column, 100000);
    row->addStretch(1);
    setMaximumContentWidth(Metrics::pageMaxWidth);
    setWidget(ground);
}

void Page::setMaximumContentWidth(int width)
{
    m_column->setMaximumWidth(width + 2 * Metrics::pageMarginX);
}

void Page::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Home:
        verticalScrollBar()->triggerAction(QAbstractSlider::SliderToMinimum);
        break;
    case Qt::Key_End:
        verticalScrollBar()->triggerAction(QAbstractSlider::SliderToMaximum);
        break;
    default:
        QScrollArea::keyPressEvent(event);
    }
}

} // namespace keelbright
