#pragma once

#include "Keelbright/state/Workspace.h"

#include <QStringList>

namespace keelbright::testing {

/// A desktop that shows nothing and remembers what it was asked to open and to reveal.
class FakeWorkspace : public Workspace
{
public:
    void open(const FileURL& url) override { opened.append(url.path()); }

    void reveal(const FileURL& url) override { revealed.append(url.path()); }

    QStringList opened;
    QStringList revealed;
};

} // namespace keelbright::testing
