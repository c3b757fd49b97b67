#include "tests/support/WindowChecks.h"

#include "Keelbright/widgets/theme/Theme.h"
#include "tests/support/Contrast.h"
#include "tests/support/PaintedText.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QComboBox>
#include <QHash>
#include <QLineEdit>
#include <QScrollBar>

#include <algorithm>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

constexpr double readableContrast = 4.5;

/// A text on screen, in the coordinates of the window.
struct ShownText
{
    QString text;
    QRect rect; ///< what can be seen of it
    QColor color;
    bool isEnabled;
};

QList<ShownText> shownTexts(QWidget& window)
{
    QList<ShownText> shown;
    for (auto* widget : window.findChildren<QWidget*>()) {
        const QRegion visible = widget->isVisible() ? widget->visibleRegion() : QRegion();
        if (visible.isEmpty())
            continue;
        const QPoint place = widget->mapTo(&window, QPoint());
        for (const PaintedText& text : textsPaintedBy(*widget)) {
            const QRect seen = visible.intersected(text.rect.toAlignedRect()).boundingRect();
            if (!seen.isEmpty() && !text.text.trimmed().isEmpty())
                shown.append({text.text, seen.translated(place), text.color, widget->isEnabled()});
        }
    }
    return shown;
}

/// What lies behind the text and a little around it: the most frequent colour of the picture there.
/// On a gradient each colour of the ground may be rarer than that of the text, which does not count.
QColor groundBehind(const QImage& picture, const ShownText& text)
{
    constexpr QRgb coarse = 0xFFF8F8F8;
    QHash<QRgb, qsizetype> counts;
    QHash<QRgb, QRgb> colors;
    const QRect area = text.rect.adjusted(-3, -3, 3, 3).intersected(picture.rect());
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            ++counts[pixel & coarse];
            colors.insert(pixel & coarse, pixel);
        }
    }
    const QRgb ownColor = text.color.rgb() & coarse;
    const bool isLost = 2 * counts.value(ownColor) > static_cast<qsizetype>(area.width()) * area.height();
    if (!isLost)
        counts.remove(ownColor);
    const auto frequent = std::ranges::max_element(counts);
    return frequent == counts.end() ? text.color : QColor::fromRgb(colors.value(frequent.key()));
}

/// The middle of a line of text, without the space above and below that lines share.
QRect middle(const QRect& line)
{
    return line.adjusted(1, line.height() / 4, -1, -line.height() / 4);
}

bool isControl(const QWidget& widget)
{
    // These are parts of a control of the toolkit, which is checked itself.
    if (qobject_cast<const QScrollBar*>(&widget) != nullptr ||
        qobject_cast<const QLineEdit*>(widget.parentWidget()) != nullptr ||
        widget.objectName().startsWith("qt_"_L1))
        return false;
    // A text that can only be read and copied is no control.
    const auto* field = qobject_cast<const QLineEdit*>(&widget);
    // Nor is a list without rows.
    const auto* list = qobject_cast<const QAbstractItemView*>(&widget);
    return qobject_cast<const QAbstractButton*>(&widget) != nullptr ||
           (list != nullptr && list->model() != nullptr && list->model()->rowCount() > 0) ||
           qobject_cast<const QAbstractSlider*>(&widget) != nullptr ||
           qobject_cast<const QComboBox*>(&widget) != nullptr || (field != nullptr && !field->isReadOnly()) ||
           (widget.focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
}

} // namespace

QList<QWidget*> controlsIn(const QWidget& window)
{
    QList<QWidget*> found;
    for (auto* widget : window.findChildren<QWidget*>()) {
        if (widget->isVisible() && widget->isEnabled() && isControl(*widget))
            found.append(widget);
    }
    return found;
}

QString nameOf(const QWidget& widget)
{
    return u"%1 \"%2\""_s.arg(QString::fromLatin1(widget.metaObject()->className()), widget.accessibleName());
}

QStringList faintTexts(QWidget& window)
{
    const QImage picture = window.grab().toImage().convertToFormat(QImage::Format_RGB32);
    const QList<ShownText> texts = shownTexts(window);
    if (texts.isEmpty())
        return {u"no text at all"_s};
    QStringList faults;
    for (const ShownText& text : texts) {
        const QColor ground = groundBehind(picture, text);
        const QColor color = composed(ground, text.color);
        if (text.isEnabled && contrastRatio(color, ground) < readableContrast)
            faults.append(u"%1: %2 on %3"_s.arg(text.text, color.name(), ground.name()));
    }
    return faults;
}

QStringList coveredTexts(QWidget& window)
{
    const QList<ShownText> texts = shownTexts(window);
    QStringList faults;
    for (qsizetype i = 0; i < texts.size(); ++i) {
        for (qsizetype j = i + 1; j < texts.size(); ++j) {
            if (middle(texts.at(i).rect).intersects(middle(texts.at(j).rect)))
                faults.append(u"%1 and %2"_s.arg(texts.at(i).text, texts.at(j).text));
        }
    }
    return faults;
}

QStringList cutTexts(QWidget& window)
{
    QStringList faults;
    for (auto* widget : window.findChildren<QWidget*>()) {
        if (!widget->isVisible())
            continue;
        const QRectF seen = widget->visibleRegion().boundingRect();
        for (const PaintedText& text : textsPaintedBy(*widget)) {
            // What is scrolled away above or below is not cut off.
            if (!text.rect.intersects(seen) || text.text.trimmed().isEmpty())
                continue;
            if (text.rect.left() < seen.left() - 1.5 || text.rect.right() > seen.right() + 1.5)
                faults.append(u"%1 in %2"_s.arg(text.text, nameOf(*widget)));
        }
    }
    return faults;
}

} // namespace keelbright::testing
