#pragma once

#include "KeelbrightCore/platform/files/SystemFileManager.h"

namespace keelbright::testing {

/// The real file system, with home, application support and the system's absolute places laid
/// below one folder: home is `<root>/Users/mira`, "/Applications" is `<root>/Applications`. The home of
/// what is no Mac is `<root>/home/mira`.
class SandboxFileManager : public SystemFileManager
{
public:
    explicit SandboxFileManager(FileURL root);

    [[nodiscard]] bool isMac() const override { return m_isMac; }

    /// Those that the test names, not the real ones.
    [[nodiscard]] QList<MountedVolume> mountedVolumes() const override { return m_volumes; }

    void setMountedVolumes(const QList<MountedVolume>& volumes) { m_volumes = volumes; }

    /// Those of the mounted volumes, then those that the test names.
    [[nodiscard]] QList<FileURL> volumeTops() const override;

    void setOtherVolumeTops(const QList<FileURL>& tops) { m_otherTops = tops; }

    [[nodiscard]] FileURL homeDirectory() const override;
    [[nodiscard]] FileURL applicationSupportDirectory() const override;
    [[nodiscard]] FileURL systemLocation(const QString& absolutePath) const override;

    /// It is a Mac, also where its home has no "Library", until a test says otherwise.
    void setIsMac(bool isMac) { m_isMac = isMac; }

private:
    FileURL m_root;
    bool m_isMac = true;
    QList<MountedVolume> m_volumes;
    QList<FileURL> m_otherTops;
};

} // namespace keelbright::testing
