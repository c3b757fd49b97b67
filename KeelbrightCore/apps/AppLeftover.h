#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QList>
#include <QString>
#include <QUuid>

namespace keelbright {

/// A file or folder that an application keeps outside its bundle.
struct AppLeftover
{
    enum class Kind { preferences, cache, support, container, savedState, launchAgent, other };

    QUuid id = QUuid::createUuid();
    FileURL url;
    qint64 sizeBytes = 0;
    Kind kind = Kind::other;

    [[nodiscard]] static const QList<Kind>& allKinds();
    /// The text that is shown.
    [[nodiscard]] static QString rawValue(Kind kind);
    /// Symbolic icon key.
    [[nodiscard]] static QString icon(Kind kind);

    [[nodiscard]] QString formattedSize() const;

    friend bool operator==(const AppLeftover&, const AppLeftover&) = default;
};

class FileManager;

/// With its size as `FolderSizeService` has it, 0 where it can't be read. Blocks; any thread.
[[nodiscard]] AppLeftover measuredLeftover(const FileURL& url, AppLeftover::Kind kind,
                                           const FileManager& files);

} // namespace keelbright
