#include "Keelbright/widgets/Page.h"

#include "Keelbright/widgets/theme/ApplicationStyle.h"
#include "Keelbright/widgets/theme/Roles.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScrollBar>
#include <QVBoxLayout>

namespace keelbright {

namespace {

/// Longer than any of the animations in which a part comes up.
constexpr int revealMilliseconds = 500;

} // namespace

Page::Page(QWidget* parent)
    : QScrollArea(parent)
    , m_column(new QWidget)
    , m_content(new QVBoxLayout(m_column))
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    ApplicationStyle::floatScrollBar(*this);
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
    ground->installEventFilter(this);
    m_revealing.setSingleShot(true);
    m_revealing.setInterval(revealMilliseconds);
    // A user who scrolls wants to see something else.
    connect(verticalScrollBar(), &QScrollBar::actionTriggered, &m_revealing, &QTimer::stop);
}

void Page::setMaximumContentWidth(int width)
{
    m_column->setMaximumWidth(width + 2 * Metrics::pageMarginX);
}

void Page::reveal(QWidget* part)
{
    if (!isVisible())
        return;
    m_revealed = part;
    m_revealing.start();
    layOutAround(part);
    scrollToRevealed();
}

/// A part that has just been shown has no place yet.
void Page::layOutAround(const QWidget* part)
{
    for (const QWidget* around = part->parentWidget(); around != nullptr && around != viewport();
         around = around->parentWidget()) {
        if (around->layout() != nullptr)
            around->layout()->activate();
    }
    QEvent request(QEvent::LayoutRequest);
    QCoreApplication::sendEvent(this, &request);
}

void Page::scrollToRevealed()
{
    if (!m_revealed || !m_revealed->isVisible())
        return;
    constexpr int margin = Metrics::cardPadding;
    const int top = m_revealed->mapTo(widget(), QPoint()).y() - margin;
    const int bottom = top + m_revealed->height() + 2 * margin;
    QScrollBar* bar = verticalScrollBar();
    const int height = viewport()->height();
    if (top < bar->value() || bottom - top > height)
        bar->setValue(top);
    else if (bottom > bar->value() + height)
        bar->setValue(bottom - height);
}

bool Page::eventFilter(QObject* watched, QEvent* event)
{
    const bool isHandled = QScrollArea::eventFilter(watched, event);
    // A part that slides in changes the height of the page with each step.
    if (watched == widget() && event->type() == QEvent::Resize && m_revealing.isActive()) {
        m_revealing.start();
        scrollToRevealed();
    }
    return isHandled;
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
