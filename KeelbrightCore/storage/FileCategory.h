#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QList>
#include <QString>

#include <span>
#include <string_view>

namespace keelbright {

/// The kinds that loose files are sorted into.
enum class FileCategory { images, documents, videos, audio, archives, code, installers, other };

/// A file extension, in lower case and without the dot, and the category that it stands for.
struct ExtensionCategory
{
    std::string_view extension;
    FileCategory category;
};

[[nodiscard]] const QList<FileCategory>& allFileCategories();
[[nodiscard]] QString rawValue(FileCategory category);
/// The name of the category's folder on disk, and its identity: the raw value.
[[nodiscard]] QString folderName(FileCategory category);
/// Symbolic icon key.
[[nodiscard]] QString icon(FileCategory category);

/// All extensions that have a category, in alphabetical order; `other` has none.
[[nodiscard]] std::span<const ExtensionCategory> fileCategoryExtensionMap();
/// By the path extension, whatever its letter case; `other` where the map doesn't have it.
[[nodiscard]] FileCategory fileCategory(const FileURL& url);
/// The same for the bytes of a last path component, without making a text.
[[nodiscard]] FileCategory fileCategory(QByteArrayView name);

} // namespace keelbright
