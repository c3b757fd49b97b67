#pragma once

#include <QList>
#include <QStringList>

class QWidget;

namespace keelbright::testing {

// Faults that can be found in a window as it is shown. Each text names the fault and where it is.

/// What a user can press, write into or choose from at the moment.
[[nodiscard]] QList<QWidget*> controlsIn(const QWidget& window);
/// The class of the widget and its accessible name.
[[nodiscard]] QString nameOf(const QWidget& widget);
/// Texts with a contrast below 4.5 to what lies behind them. Those of disabled widgets are meant to
/// be pale and pass. A window without any text is a fault as well.
[[nodiscard]] QStringList faintTexts(QWidget& window);
/// Texts that lie on other texts.
[[nodiscard]] QStringList coveredTexts(QWidget& window);
/// Texts that their widget, or one around it, cuts off at a side.
[[nodiscard]] QStringList cutTexts(QWidget& window);

} // namespace keelbright::testing
