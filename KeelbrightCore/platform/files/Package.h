#pragma once

#include <QByteArrayView>

namespace keelbright {

/// Whether a folder of this name is shown as one item: its extension is a registered package
/// kind (app, bundle, photoslibrary, rtfd and so on; not framework). Letter case is ignored.
[[nodiscard]] bool isPackage(QByteArrayView directoryName);

} // namespace keelbright
