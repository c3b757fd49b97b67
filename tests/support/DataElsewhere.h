#pragma once

#include "tests/support/SandboxFileManager.h"

namespace keelbright::testing {

/// A machine that is no Mac and whose user keeps data outside the home, in `<root>/data/mira`.
class DataElsewhere : public SandboxFileManager
{
public:
    explicit DataElsewhere(const FileURL& root)
        : SandboxFileManager(root)
        , m_data(root.appendingNative("data/mira"))
    {
        setIsMac(false);
    }

    [[nodiscard]] FileURL applicationSupportDirectory() const override { return m_data; }

private:
    FileURL m_data;
};

} // namespace keelbright::testing
