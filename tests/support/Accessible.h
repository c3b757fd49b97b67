#pragma once

#include <QAccessible>
#include <QWidget>
#include <cstdlib>

namespace keelbright::testing {

/// The name by which a screen reader announces the widget.
[[nodiscard]] inline QString accessibleName(QWidget* widget)
{
    const QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(widget);
    return interface != nullptr ? interface->text(QAccessible::Name) : QString();
}

[[nodiscard]] inline QAccessible::Role accessibleRole(QWidget* widget)
{
    const QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(widget);
    return interface != nullptr ? interface->role() : QAccessible::NoRole;
}

/// The current value of a bar, ring or spinner; invalid where the widget has none.
[[nodiscard]] inline QVariant accessibleValue(QWidget* widget)
{
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(widget);
    QAccessibleValueInterface* value = interface != nullptr ? interface->valueInterface() : nullptr;
    return value != nullptr ? value->currentValue() : QVariant();
}

/// The picture of the widget as it stands on screen.
[[nodiscard]] inline QImage pictureOf(QWidget& widget)
{
    return widget.grab().toImage().convertToFormat(QImage::Format_ARGB32);
}

/// Whether the colours differ by no more than painting rounds.
[[nodiscard]] inline bool isNear(const QColor& actual, const QColor& expected)
{
    const auto differ = [](int a, int b) { return std::abs(a - b) > 1; };
    return !differ(actual.red(), expected.red()) && !differ(actual.green(), expected.green()) &&
           !differ(actual.blue(), expected.blue());
}

/// Whether a pixel of exactly this colour is in the picture.
[[nodiscard]] inline bool holdsColor(const QImage& picture, const QColor& color)
{
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) == color.rgba())
                return true;
        }
    }
    return false;
}

} // namespace keelbright::testing
