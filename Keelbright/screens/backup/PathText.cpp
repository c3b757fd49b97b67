#include "Keelbright/screens/backup/PathText.h"

#include "Keelbright/widgets/DisplayText.h"
#include "Keelbright/widgets/theme/Theme.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>

namespace keelbright {

PathText::PathText(const QString& name, const QString& path, QWidget* parent)
    : QLineEdit(parent)
    , m_path(keelbright::displayText(path))
{
    setText(m_path);
    setCursorPosition(0);
    setReadOnly(true);
    setFrame(false);
    setTextMargins(0, 0, 0, 0);
    setFont(Theme::instance().font(FontRole::body));
    setAccessibleName(name);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    applyColors();
    connect(&Theme::instance(), &Theme::changed, this, &PathText::applyColors);
}

QString PathText::shownText() const
{
    return fontMetrics().elidedText(m_path, Qt::ElideMiddle, width());
}

QSize PathText::sizeHint() const
{
    return {fontMetrics().horizontalAdvance(m_path) + 2, fontMetrics().height()};
}

QSize PathText::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 6, fontMetrics().height()};
}

void PathText::paintEvent(QPaintEvent* event)
{
    if (hasSelectedText()) {
        QLineEdit::paintEvent(event);
        return;
    }
    QPainter painter(this);
    painter.setPen(Theme::instance().color(Role::primaryText));
    painter.drawText(rect(), Qt::AlignVCenter | Qt::TextSingleLine, shownText());
}

void PathText::mousePressEvent(QMouseEvent* event)
{
    m_pressed = event->pos();
    QLineEdit::mousePressEvent(event);
}

void PathText::mouseReleaseEvent(QMouseEvent* event)
{
    QLineEdit::mouseReleaseEvent(event);
    const bool hasMoved = (event->pos() - m_pressed).manhattanLength() >= QApplication::startDragDistance();
    if (event->button() == Qt::LeftButton && !hasMoved && !hasSelectedText())
        Q_EMIT clicked();
}

void PathText::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason)
        deselect();
}

void PathText::resizeEvent(QResizeEvent* event)
{
    QLineEdit::resizeEvent(event);
    setToolTip(shownText() == m_path ? QString() : toolTipText(m_path));
}

void PathText::applyColors()
{
    QPalette colors = Theme::instance().palette();
    colors.setColor(QPalette::Base, Qt::transparent);
    setPalette(colors);
}

} // namespace keelbright
