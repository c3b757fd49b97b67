#pragma once

#include <QLoggingCategory>

namespace keelbright {

// One category for each floor of the house, all of them here so that their names and their silence
// are set in one place. For whoever looks for a fault, never for the user: a line says what was done,
// with paths and counts, and holds no content of a file.
//
// Nothing below a warning is printed unless the environment asks for it, for example with
// QT_LOGGING_RULES="keelbright.backup=true" or "keelbright.*=true"; lines go to standard error. A
// line that is off costs one comparison and does not evaluate its arguments. Any thread.
//
//     qCDebug(backupLog) << "source opened:" << source.url.path();

Q_DECLARE_LOGGING_CATEGORY(platformLog) ///< "keelbright.platform"
Q_DECLARE_LOGGING_CATEGORY(backupLog)   ///< "keelbright.backup"
Q_DECLARE_LOGGING_CATEGORY(recordsLog)  ///< "keelbright.records"
Q_DECLARE_LOGGING_CATEGORY(storageLog)  ///< "keelbright.storage"
Q_DECLARE_LOGGING_CATEGORY(appsLog)     ///< "keelbright.apps"
Q_DECLARE_LOGGING_CATEGORY(healthLog)   ///< "keelbright.health"
Q_DECLARE_LOGGING_CATEGORY(stateLog)    ///< "keelbright.state"
Q_DECLARE_LOGGING_CATEGORY(widgetsLog)  ///< "keelbright.widgets"
Q_DECLARE_LOGGING_CATEGORY(screensLog)  ///< "keelbright.screens"

} // namespace keelbright
