#pragma once

#include "KeelbrightCore/platform/system/DesktopApplications.h"

#include <QString>

namespace keelbright {

class FileManager;

/// An application that is one file.
struct AppImage
{
    FileURL file;
    QString name;       ///< from the name of the file
    QString version;    ///< from the name of the file; may be empty
    FileURL place = {}; ///< of the file, without links
};

/// The AppImages in the folders of the home in which people keep them, each once. Blocks while it reads; any
/// thread.
[[nodiscard]] QList<AppImage> appImages(const FileManager& files);

/// The one that the entry of the menu runs, by its path or through links; null where it runs none of them.
[[nodiscard]] const AppImage* imageOf(const DesktopApplication& application, const QList<AppImage>& images,
                                      const FileManager& files);

/// What the name of a file says: of "Krita-5.2.2-x86_64.AppImage" the name is "Krita" and the version
/// "5.2.2".
[[nodiscard]] AppImage appImageNamed(const FileURL& file);

} // namespace keelbright
