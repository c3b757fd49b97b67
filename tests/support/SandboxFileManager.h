#pragma once

#include "KeelbrightCore/platform/files/SystemFileManager.h"

namespace keelbright::testing {

/// The real file system, with home, application support and the system's absolute places laid
/// below one folder: home is `<root>/Users/mira`, "/Applications" is `<root>/Applications`.
class SandboxFileManager : public SystemFileManager
{
public:
    explicit SandboxFileManager(FileURL root);
    [[nodiscard]] FileURL homeDirectory() const override;
    [[nodiscard]] FileURL applicationSupportDirectory() const override;
    [[nodiscard]] FileURL systemLocation(const QString& absolutePath) const override;

private:
    FileURL m_root;
};

} // namespace keelbright::testing
