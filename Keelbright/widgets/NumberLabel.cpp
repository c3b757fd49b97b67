#include "Keelbright/widgets/NumberLabel.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QPainter>
#include <cmath>
#include <functional>

namespace keelbright {

namespace {

constexpr int titleSize = 18; ///< in pixels

double digitWidth(const QFontMetricsF& metrics)
{
    double widest = 0;
    for (char16_t digit = u'0'; digit <= u'9'; ++digit)
        widest = std::max(widest, metrics.horizontalAdvance(QChar(digit)));
    return widest;
}

/// Calls `place` with the position of each run: a digit in its cell, or the text between two digits.
/// Gives the total width.
double layOut(const QFont& font, const QString& text,
              const std::function<void(double, const QString&)>& place)
{
    const QFontMetricsF metrics(font);
    // In a title the cells would look like gaps.
    if (QFontInfo(font).pixelSize() >= titleSize) {
        place(0, text);
        return metrics.horizontalAdvance(text);
    }
    const double cell = digitWidth(metrics);
    double x = 0;
    for (qsizetype i = 0; i < text.size();) {
        if (text.at(i).unicode() >= u'0' && text.at(i).unicode() <= u'9') {
            place(x + (cell - metrics.horizontalAdvance(text.at(i))) / 2, text.mid(i, 1));
            x += cell;
            ++i;
            continue;
        }
        qsizetype end = i;
        while (end < text.size() && !(text.at(end).unicode() >= u'0' && text.at(end).unicode() <= u'9'))
            ++end;
        const QString between = text.mid(i, end - i);
        place(x, between);
        x += metrics.horizontalAdvance(between);
        i = end;
    }
    return x;
}

} // namespace

double TabularDigits::width(const QFont& font, const QString& text)
{
    return layOut(font, text, [](double, const QString&) {});
}

void TabularDigits::paint(QPainter& painter, const QRectF& rect, Qt::Alignment alignment, const QFont& font,
                          const QString& text)
{
    const QFontMetricsF metrics(font);
    double left = rect.left();
    if (alignment.testFlag(Qt::AlignRight))
        left = rect.right() - width(font, text);
    else if (alignment.testFlag(Qt::AlignHCenter))
        left = rect.center().x() - width(font, text) / 2;
    const double baseline = rect.center().y() + (metrics.ascent() - metrics.descent()) / 2;
    painter.save();
    painter.setFont(font);
    layOut(font, text,
           [&](double x, const QString& run) { painter.drawText(QPointF(left + x, baseline), run); });
    painter.restore();
}

NumberLabel::NumberLabel(const QString& text, FontRole font, Role color, QWidget* parent)
    : Label(text, font, color, parent)
{
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
}

QSize NumberLabel::sizeHint() const
{
    return {static_cast<int>(std::ceil(TabularDigits::width(font(), text()))), fontMetrics().height()};
}

void NumberLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    TabularDigits::paint(painter, contentsRect(), alignment(), font(), text());
}

} // namespace keelbright
