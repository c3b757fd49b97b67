#include "Keelbright/widgets/Card.h"

#include "Keelbright/widgets/SmoothGradient.h"
#include "Keelbright/widgets/theme/Theme.h"

#include <QLayout>
#include <QPainter>
#include <QVBoxLayout>
#include <QtMath>

namespace keelbright {

Card::Card(QWidget* parent)
    : QWidget(parent)
    , m_content(new QVBoxLayout(this))
{
    setContentsMargins(0, 0, 0, Metrics::cardShadow);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    m_content->setContentsMargins(Metrics::cardPadding, Metrics::cardPadding, Metrics::cardPadding,
                                  Metrics::cardPadding);
    m_content->setSpacing(12);
    connect(&Theme::instance(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

void Card::setTint(Role hue)
{
    m_tint = hue;
    update();
}

void Card::paintSurface(QPainter& painter, const QRectF& rect, const QColor& color)
{
    const Theme& theme = Theme::instance();
    const QRectF card = rect.adjusted(0.5, 0.5, -0.5, -0.5 - Metrics::cardShadow);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme.color(Role::shadow));
    painter.drawRoundedRect(card.translated(0, 1), Metrics::cardRadius, Metrics::cardRadius);
    painter.drawRoundedRect(card.translated(0, 2), Metrics::cardRadius, Metrics::cardRadius);
    painter.setBrush(color);
    painter.drawRoundedRect(card, Metrics::cardRadius, Metrics::cardRadius);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(theme.color(Role::line));
    painter.drawRoundedRect(card, Metrics::cardRadius, Metrics::cardRadius);
    painter.restore();
}

void Card::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::instance();
    QPainter painter(this);
    paintSurface(painter, rect(), theme.color(Role::card));
    if (m_tint == Role::card)
        return;
    const double scale = devicePixelRatioF();
    const QSize pixels(qCeil(width() * scale), qCeil(height() * scale));
    const std::pair colors(theme.tint(m_tint, 0.16), theme.tint(m_tint, 0.06));
    if (m_gradient.size() != pixels || m_gradientColors != colors) {
        m_gradient = smoothGradient(pixels, colors.first, colors.second);
        m_gradientColors = colors;
    }
    QBrush gradient(m_gradient);
    gradient.setTransform(QTransform::fromScale(1 / scale, 1 / scale));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(gradient);
    painter.setPen(theme.isContrastHigh() ? theme.color(Role::line) : theme.tint(m_tint, 0.30));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5 - Metrics::cardShadow),
                            Metrics::cardRadius, Metrics::cardRadius);
}

RowList::RowList(QWidget* parent)
    : Card(parent)
{
    content()->setContentsMargins(0, 0, 0, 0);
    content()->setSpacing(0);
}

void RowList::addRow(QWidget* row)
{
    content()->addWidget(row);
    // The layout would show the row one turn of the event loop later, too late to take the focus.
    if (!row->testAttribute(Qt::WA_WState_ExplicitShowHide))
        row->show();
}

void RowList::clear()
{
    while (QLayoutItem* item = content()->takeAt(0)) {
        if (QWidget* row = item->widget()) {
            // The click that removes the row may still be running in it.
            row->hide();
            row->setParent(nullptr);
            row->deleteLater();
        }
        delete item;
    }
    update();
}

int RowList::rowCount() const
{
    return content()->count();
}

QWidget* RowList::row(int index) const
{
    const QLayoutItem* item = content()->itemAt(index);
    return item != nullptr ? content()->itemAt(index)->widget() : nullptr;
}

void RowList::paintEvent(QPaintEvent* event)
{
    Card::paintEvent(event);
    QPainter painter(this);
    bool isFirst = true;
    for (int i = 0; i < rowCount(); ++i) {
        const QWidget* shown = row(i);
        if (shown == nullptr || shown->isHidden())
            continue;
        if (!isFirst)
            painter.fillRect(1, shown->y(), width() - 2, 1, Theme::instance().color(Role::line));
        isFirst = false;
    }
}

} // namespace keelbright
