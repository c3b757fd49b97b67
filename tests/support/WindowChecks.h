#pragma once

#include <QList>
#include <QStringList>

class QWidget;

namespace keelbright::testing {

// What a window as it stands on screen can be told of. Each text says what is wrong with what.

/// What a user can press, write into or choose from, as far as it can be used now.
[[nodiscard]] QList<QWidget*> controlsIn(const QWidget& window);
/// The class of the widget and its accessible name.
[[nodiscard]] QString nameOf(const QWidget& widget);
/// Words with a contrast below 4.5 to what lies behind them. Those of what can't be used now are
/// pale by custom and pass. A window without any words is a fault as well.
[[nodiscard]] QStringList faintTexts(QWidget& window);
/// Words that lie on other words.
[[nodiscard]] QStringList coveredTexts(QWidget& window);
/// Words that their widget, or one around it, cuts off at a side.
[[nodiscard]] QStringList cutTexts(QWidget& window);

} // namespace keelbright::testing
