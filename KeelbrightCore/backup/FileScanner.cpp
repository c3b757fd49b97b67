#include "KeelbrightCore/backup/FileScanner.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/TreeSums.h"
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

Handling handlingOf(DirectoryEnumerator& enumerator, const LeftOut& isLeftOut)
{
    if (isLeftOut && enumerator.type() == EntryType::directory && isLeftOut(enumerator)) {
        enumerator.skipDescendants();
        return Handling::leftOut;
    }
    if (shouldSkip(enumerator))
        return Handling::skipped;
    return enumerator.isDirectoryFollowingLinks() ? Handling::folder : Handling::copied;
}

ScanResult scan(const QList<BackupSource>& sources, Sizes sizes, const Cancellation& cancellation,
                const LeftOut& isLeftOut)
{
    QList<FileURL> folders;
    for (const BackupSource& source : sources) {
        if (source.isEnabled)
            folders.append(source.url);
    }
    const auto bytesOf = [&](DirectoryEnumerator& enumerator) -> std::optional<qint64> {
        const bool isCopied = handlingOf(enumerator, isLeftOut) == Handling::copied;
        if (!isCopied || enumerator.type() != EntryType::regularFile)
            return std::nullopt;
        return sizes == Sizes::read ? enumerator.fileSize() : 0;
    };
    using Option = DirectoryEnumerator::Option;
    ScanResult result;
    for (const TreeSum& sum : sumTrees(folders, Option::skipsHiddenFiles | Option::followsRootLink, bytesOf,
                                       FileManager::defaultManager(), cancellation)) {
        result.fileCount += sum.entries;
        result.totalBytes = addedWithoutOverflow(result.totalBytes, sum.bytes);
    }
    return result;
}

} // namespace keelbright::FileScanner
