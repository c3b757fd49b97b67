#include "KeelbrightCore/platform/system/Logging.h"

namespace keelbright {

Q_LOGGING_CATEGORY(platformLog, "keelbright.platform", QtWarningMsg)
Q_LOGGING_CATEGORY(backupLog, "keelbright.backup", QtWarningMsg)
Q_LOGGING_CATEGORY(recordsLog, "keelbright.records", QtWarningMsg)
Q_LOGGING_CATEGORY(storageLog, "keelbright.storage", QtWarningMsg)
Q_LOGGING_CATEGORY(appsLog, "keelbright.apps", QtWarningMsg)
Q_LOGGING_CATEGORY(healthLog, "keelbright.health", QtWarningMsg)
Q_LOGGING_CATEGORY(stateLog, "keelbright.state", QtWarningMsg)
Q_LOGGING_CATEGORY(widgetsLog, "keelbright.widgets", QtWarningMsg)
Q_LOGGING_CATEGORY(screensLog, "keelbright.screens", QtWarningMsg)

} // namespace keelbright
