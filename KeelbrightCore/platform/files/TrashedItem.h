#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

namespace keelbright {

/// What is known of an item that was moved to the Trash, so that it can be put back.
struct TrashedItem
{
    FileURL origin; ///< where it was, without links in the path of its folder
    FileURL place;  ///< where it lies in the Trash
    /// What shows that it is still this item: the content of its record, or the number of its file where the
    /// system keeps the records to itself.
    QByteArray record;

    friend bool operator==(const TrashedItem&, const TrashedItem&) = default;
};

} // namespace keelbright
