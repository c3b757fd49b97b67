#pragma once

class QString;
class QWidget;

namespace keelbright {

/// Has a screen reader say the text, for a change that the user may be waiting for. `place` is any widget
/// of the window in which it happens; nothing is said while that window is hidden. A text that was said
/// less than a second ago is not said again, as two parts of a window may report one change.
void say(const QWidget& place, const QString& text);

/// Makes the text the widget's accessible name and says it.
void announce(QWidget& widget, const QString& text);

} // namespace keelbright
