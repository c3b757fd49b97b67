#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QList>
#include <QString>

namespace keelbright {

class FileManager;

/// An application that is one file.
struct AppImage
{
    FileURL file;
    QString name;    ///< from the name of the file
    QString version; ///< from the name of the file; may be empty
};

/// The AppImages in the folders of the home in which people keep them. Blocks while it reads; any thread.
/// Internal to the application scanner.
[[nodiscard]] QList<AppImage> appImages(const FileManager& files);

/// What the name of a file says: of "Krita-5.2.2-x86_64.AppImage" the name is "Krita" and the version
/// "5.2.2".
[[nodiscard]] AppImage appImageNamed(const FileURL& file);

} // namespace keelbright
