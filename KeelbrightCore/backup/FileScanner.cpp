#include "KeelbrightCore/backup/FileScanner.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/text/ByteSum.h"

#include <algorithm>
#include <array>

namespace keelbright::FileScanner {

namespace {

constexpr std::array<std::string_view, 10> folderNames{
    "node_modules", ".git",        "build",  "dist",        "cache",
    ".cache",       "DerivedData", ".Trash", "__pycache__", ".DS_Store",
};
constexpr std::array<std::string_view, 8> extensions{
    "dmg", "pkg", "iso", "tmp", "app", "framework", "dylib", "o",
};

constexpr size_t longestExtension = std::ranges::max(extensions, {}, &std::string_view::size).size();

bool contains(std::span<const std::string_view> table, std::string_view text)
{
    return std::ranges::find(table, text) != table.end();
}

std::string_view textOf(QByteArrayView bytes)
{
    return {bytes.data(), static_cast<size_t>(bytes.size())};
}

char toLowerAscii(char character)
{
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

bool hasSkippedExtension(QByteArrayView name)
{
    const std::string_view extension = textOf(pathExtensionOf(name));
    if (extension.empty() || extension.size() > longestExtension)
        return false;
    std::array<char, longestExtension> lowerCase{};
    std::ranges::transform(extension, lowerCase.begin(), toLowerAscii);
    return contains(extensions, {lowerCase.data(), extension.size()});
}

void scanFolder(const FileURL& url, Sizes sizes, const Cancellation& cancellation, ScanResult& result)
{
    const auto opened = FileManager::defaultManager().enumerator(
        url, DirectoryEnumerator::Option::skipsHiddenFiles | DirectoryEnumerator::Option::followsRootLink);
    if (!opened)
        return;
    DirectoryEnumerator& enumerator = **opened;
    while (!cancellation.isQuitting() && enumerator.next()) {
        if (shouldSkip(enumerator) || enumerator.type() != EntryType::regularFile)
            continue;
        const std::optional<qint64> size = sizes == Sizes::read ? enumerator.fileSize() : 0;
        if (!size)
            continue;
        ++result.fileCount;
        result.totalBytes = addedWithoutOverflow(result.totalBytes, *size);
    }
}

} // namespace

std::span<const std::string_view> skippedFolderNames()
{
    return folderNames;
}

std::span<const std::string_view> skippedExtensions()
{
    return extensions;
}

bool shouldSkip(DirectoryEnumerator& enumerator)
{
    // Before the folder names, as the rule has it: the descendants of a hidden folder are not skipped.
    const QByteArrayView name = enumerator.name();
    if (name.startsWith('.'))
        return true;
    if (contains(folderNames, textOf(name)) && enumerator.isDirectoryFollowingLinks()) {
        enumerator.skipDescendants();
        return true;
    }
    // Descendants are not skipped: a bundle such as X.app is left out, the files inside are not.
    return hasSkippedExtension(name);
}

ScanResult scan(const QList<BackupSource>& sources, Sizes sizes, const Cancellation& cancellation)
{
    ScanResult result;
    for (const BackupSource& source : sources) {
        if (source.isEnabled && !cancellation.isQuitting())
            scanFolder(source.url, sizes, cancellation, result);
    }
    return result;
}

} // namespace keelbright::FileScanner
