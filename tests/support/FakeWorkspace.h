#pragma once

#include "Keelbright/state/Workspace.h"

#include <QStringList>

namespace keelbright::testing {

/// A desktop that opens nothing and remembers what it was asked to open.
class FakeWorkspace : public Workspace
{
public:
    void open(const FileURL& url) override { opened.append(url.path()); }

    QStringList opened;
};

} // namespace keelbright::testing
