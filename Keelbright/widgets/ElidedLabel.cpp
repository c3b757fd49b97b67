#include "Keelbright/widgets/ElidedLabel.h"

#include "Keelbright/widgets/DisplayText.h"

#include <QEvent>
#include <QPainter>

namespace keelbright {

ElidedLabel::ElidedLabel(const QString& text, FontRole font, Role color, Qt::TextElideMode mode,
                         QWidget* parent)
    : Label(displayText(text), font, color, parent)
    , m_mode(mode)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void ElidedLabel::setFullText(const QString& text)
{
    const QString safe = displayText(text);
    if (safe == this->text())
        return;
    setText(safe);
    updateToolTip();
}

QString ElidedLabel::shownText() const
{
    return fontMetrics().elidedText(text(), m_mode, contentsRect().width());
}

QSize ElidedLabel::sizeHint() const
{
    const QMargins margins = contentsMargins();
    // One pixel more than the advance: a width rounded down would cut a text that fits.
    return {fontMetrics().horizontalAdvance(text()) + 1 + margins.left() + margins.right(),
            fontMetrics().height() + margins.top() + margins.bottom()};
}

QSize ElidedLabel::minimumSizeHint() const
{
    const int sixCharacters = fontMetrics().averageCharWidth() * 6;
    return {std::min(sixCharacters, sizeHint().width()), sizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(contentsRect(), static_cast<int>(alignment()) | Qt::TextSingleLine, shownText());
}

void ElidedLabel::resizeEvent(QResizeEvent* event)
{
    Label::resizeEvent(event);
    updateToolTip();
}

void ElidedLabel::changeEvent(QEvent* event)
{
    Label::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        updateToolTip();
}

void ElidedLabel::updateToolTip()
{
    setToolTip(shownText() == text() ? QString() : toolTipText(text()));
}

} // namespace keelbright
