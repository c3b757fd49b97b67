#pragma once

#include "KeelbrightCore/apps/PackageFacts.h"

#include <QByteArray>
#include <QHash>
#include <QSet>

namespace keelbright {

class FileManager;

/// The packages of Debian and its relatives, read from their database without a helper program. Blocks
/// while it reads; any thread. Internal to the application scanner.
class DpkgPackages
{
public:
    /// Looks for the packages that these files belong to, as absolute paths of the machine. Empty on a
    /// system without such a database.
    DpkgPackages(const QSet<QByteArray>& paths, const FileManager& files);

    /// The package that the file belongs to; null where it belongs to none.
    [[nodiscard]] const PackageFacts* ownerOf(const QByteArray& path) const;

private:
    void readLists(const QSet<QByteArray>& paths, const FileManager& files);
    void readStatus(const FileManager& files);

    QHash<QByteArray, QByteArray> m_ownerOfPath; ///< the name of the package
    QHash<QByteArray, PackageFacts> m_packages;
};

} // namespace keelbright
