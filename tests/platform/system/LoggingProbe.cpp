// Speaks once at each level in the category of each floor. What of it is printed is up to the
// categories and the environment, as in the program.

#include "KeelbrightCore/platform/system/Logging.h"

#include <array>

int main(int argc, char**)
{
    using namespace keelbright;
    const std::array categories = {platformLog, backupLog, recordsLog, storageLog, appsLog,
                                   healthLog,   stateLog,  widgetsLog, screensLog};
    for (const auto& category : categories) {
        qCDebug(category, "debug");
        qCInfo(category, "info");
        if (argc > 1)
            qCWarning(category, "warning");
    }
    return 0;
}
