#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QList>
#include <functional>

class QWidget;

namespace keelbright {

/// Lets the user drop folders anywhere on the screen. `dropped` gets those of the dropped items that are
/// folders, and is not called where none is.
void acceptFolders(QWidget& screen, std::function<void(const QList<FileURL>&)> dropped);

} // namespace keelbright
