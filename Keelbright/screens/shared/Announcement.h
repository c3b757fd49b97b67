#pragma once

class QString;
class QWidget;

namespace keelbright {

/// Makes the text the widget's accessible name and has a screen reader say it, for a change that the
/// user may be waiting for.
void announce(QWidget& widget, const QString& text);

} // namespace keelbright
