#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QJsonObject>
#include <functional>

namespace keelbright::testing {

/// The work that moves the user's files, done by its models as after the user's click. `ready` is
/// called when everything has been found and nothing has been moved. The outcome holds as "left" the
/// percent-encoded paths that are still listed afterwards.

/// Finds all junk of the machine and moves it to the Trash.
[[nodiscard]] QJsonObject clean(const std::function<void()>& ready);
/// Moves an application, "Editor", and its leftovers to the Trash.
[[nodiscard]] QJsonObject removeApplication(const FileURL& bundle, const std::function<void()>& ready);
/// Sorts the loose files of a folder.
[[nodiscard]] QJsonObject organize(const FileURL& folder, const std::function<void()>& ready);

// The same two, and then their undo, before which `ready` is called. "left" has what did not go back.
[[nodiscard]] QJsonObject undoRemoval(const FileURL& bundle, const std::function<void()>& ready);
[[nodiscard]] QJsonObject undoOrganizing(const FileURL& folder, const std::function<void()>& ready);

} // namespace keelbright::testing
