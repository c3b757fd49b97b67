#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QString>
#include <QUuid>

namespace keelbright {

/// One planned move of a loose file.
struct FileProposal
{
    QUuid id = QUuid::createUuid();
    FileURL source;
    FileURL destination; ///< may name something that exists; the move then finds another name
    qint64 sizeBytes = 0;

    [[nodiscard]] QString name() const { return source.lastPathComponent(); }

    [[nodiscard]] QString formattedSize() const;

    friend bool operator==(const FileProposal&, const FileProposal&) = default;
};

} // namespace keelbright
