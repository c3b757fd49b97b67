#pragma once

#include <QByteArray>
#include <QList>
#include <utility>

namespace keelbright::testing {

enum class PropertyListForm { xml, binary };

/// A property list file that holds one dictionary of short ASCII texts, byte by byte as the
/// platform writes it.
[[nodiscard]] QByteArray madeUpPropertyList(const QList<std::pair<QByteArray, QByteArray>>& entries,
                                            PropertyListForm form);

} // namespace keelbright::testing
