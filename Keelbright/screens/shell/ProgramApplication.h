#pragma once

#include <QApplication>

namespace keelbright {

/// The program's application. Leaves an event undone that memory runs out for, and goes on: a backup may be
/// running.
class ProgramApplication : public QApplication
{
public:
    using QApplication::QApplication;

    /// False, too, where memory ran out for the event.
    bool notify(QObject* receiver, QEvent* event) override;
};

} // namespace keelbright
