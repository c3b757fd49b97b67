#pragma once

class QString;
class QWidget;

namespace keelbright {

/// Names the widget so and has a screen reader say it: for a change of state that the user may be
/// waiting for without looking.
void announce(QWidget& widget, const QString& text);

} // namespace keelbright
