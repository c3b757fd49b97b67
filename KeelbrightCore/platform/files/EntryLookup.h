#pragma once

#include <QByteArray>
#include <functional>

namespace keelbright {

/// Looks into open folders by the bytes of names. Internal to the platform folder.

/// Whether the system finds something under that name; a link is not followed.
[[nodiscard]] bool hasEntry(int folder, const QByteArray& name);

/// Visits the names in the folder `name` of an open one (".", "..", or one below), as far as they can be
/// listed.
void forEachEntry(int parent, const char* name, const std::function<void(QByteArrayView)>& visit);

} // namespace keelbright
