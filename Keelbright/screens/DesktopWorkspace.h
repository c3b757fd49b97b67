#pragma once

#include "Keelbright/state/Workspace.h"

namespace keelbright {

/// Opens files with what the desktop has for them.
class DesktopWorkspace : public Workspace
{
public:
    void open(const FileURL& url) override;
};

} // namespace keelbright
