#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

namespace keelbright {

/// The desktop's file manager, as the screens use it. Main thread.
class Workspace
{
public:
    virtual ~Workspace() = default;
    /// Opens a file or folder with the program that the desktop has for it; returns at once.
    virtual void open(const FileURL& url) = 0;
    /// Shows the item in its folder, selected where the file manager can; returns at once.
    virtual void reveal(const FileURL& url) = 0;
};

/// Opens the path, or its parent folder where nothing exists at the path.
void openPersonalFiles(Workspace& workspace, const QString& path);

} // namespace keelbright
