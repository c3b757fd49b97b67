#pragma once

#include "KeelbrightCore/storage/FileCategory.h"
#include "KeelbrightCore/storage/FileProposal.h"

#include <QList>

namespace keelbright {

/// The planned moves of one category.
struct OrganizeProposal
{
    QUuid id = QUuid::createUuid(); ///< of this group, not of the category
    FileCategory category = FileCategory::other;
    QList<FileProposal> files; ///< largest first; not empty in a plan

    [[nodiscard]] qint64 totalBytes() const;
    [[nodiscard]] QString formattedSize() const;

    friend bool operator==(const OrganizeProposal&, const OrganizeProposal&) = default;
};

} // namespace keelbright
