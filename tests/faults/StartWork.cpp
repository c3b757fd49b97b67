#include "tests/faults/StartWork.h"

#include "Keelbright/state/KeelbrightApp.h"
#include "KeelbrightCore/records/AppConfiguration.h"
#include "tests/support/FakeFolderChooser.h"

namespace keelbright::testing {

QJsonObject startProgram(const std::function<void()>& ready)
{
    qunsetenv("XDG_CONFIG_HOME"); // the legacy settings are those of the machine, not of the real user
    FakeFolderChooser chooser;
    ready();
    KeelbrightApp app(chooser);
    const AppState& state = app.state();
    AppConfiguration loaded{
        .selectedDestination = state.selectedDestination(),
        .customSources = state.customSources(),
        .enabledRecommendedFolders = {},
        .lastReport = state.lastReport(),
        .lastBackupTime = state.lastBackupTime(),
    };
    for (const RecommendedFolder& folder : state.recommendedFolders()) {
        if (folder.isEnabled)
            loaded.enabledRecommendedFolders.append(folder.name);
    }
    return loaded.toJson();
}

} // namespace keelbright::testing
