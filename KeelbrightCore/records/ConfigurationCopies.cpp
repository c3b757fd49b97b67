#include "KeelbrightCore/records/ConfigurationCopies.h"

#include "KeelbrightCore/platform/files/FileManager.h"

#include <QDateTime>
#include <algorithm>
#include <cerrno>
#include <tuple>
#include <utility>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

/// Followed by date and time.
constexpr char unusableSuffix[] = ".unusable-";
constexpr qsizetype maximumUnusable = 3;

FileManager& files()
{
    return FileManager::defaultManager();
}

FileURL sibling(const FileURL& file, const QByteArray& suffix)
{
    return FileURL::fromNativePath(file.nativePath() + suffix);
}

bool isTaken(const FileError& error)
{
    return error.reason == FileError::Reason::system && error.code == EEXIST;
}

/// Leaves the file in its place where the drive knows second names; else it has only the new one.
std::expected<void, FileError> keepAs(const FileURL& name, const FileURL& file)
{
    auto kept = files().linkItem(file, name);
    return kept || isTaken(kept.error()) ? kept : files().moveItem(file, name);
}

} // namespace

ConfigurationCopies::ConfigurationCopies(FileURL file)
    : m_file(std::move(file))
    , m_whole(sibling(m_file, ".before-start"))
{}

std::expected<QByteArray, FileError> ConfigurationCopies::whole() const
{
    return files().contents(m_whole);
}

std::expected<void, FileError> ConfigurationCopies::keepWhole() const
{
    std::ignore = files().removeOwnFile(m_whole); // of a start that wrote all and could not remove it
    if (files().linkItem(m_file, m_whole))
        return {};
    const auto text = files().contents(m_file);
    if (!text)
        return std::unexpected(text.error());
    return files().writeAtomically(m_whole, *text);
}

std::expected<void, FileError> ConfigurationCopies::removeWhole() const
{
    return files().removeOwnFile(m_whole);
}

std::expected<void, FileError> ConfigurationCopies::putWholeBack() const
{
    if (const auto text = whole(); !text)
        return std::unexpected(text.error());
    // Between the two steps the next start finds the copy alone, which is enough.
    if (auto removed = files().removeOwnFile(m_file); !removed)
        return removed;
    return files().moveItem(m_whole, m_file);
}

std::expected<FileURL, FileError> ConfigurationCopies::keepUnusableFile() const
{
    return keepUnusable(m_file);
}

std::expected<FileURL, FileError> ConfigurationCopies::keepUnusableCopy() const
{
    return keepUnusable(m_whole);
}

std::expected<FileURL, FileError> ConfigurationCopies::keepUnusable(const FileURL& unusable) const
{
    const QByteArray suffix =
        unusableSuffix + QDateTime::currentDateTime().toString(u"yyyyMMdd-HHmmss"_s).toLatin1();
    FileURL place = sibling(m_file, suffix);
    auto kept = keepAs(place, unusable);
    constexpr int maximumNumber = 99;
    for (int number = 2; !kept && isTaken(kept.error()) && number <= maximumNumber; ++number) {
        place = sibling(m_file, suffix + '-' + QByteArray::number(number));
        kept = keepAs(place, unusable);
    }
    if (!kept)
        return std::unexpected(kept.error());
    removeOldest(place);
    return place;
}

void ConfigurationCopies::removeOldest(const FileURL& latest) const
{
    const auto entries = files().contentsOfDirectory(m_file.deletingLastPathComponent(), {});
    if (!entries)
        return;
    const QByteArray start = m_file.nativeLastPathComponent() + unusableSuffix;
    QList<FileURL> earlier;
    for (const DirectoryEntry& entry : *entries) {
        if (entry.url != latest && entry.url.nativeLastPathComponent().startsWith(start))
            earlier.append(entry.url);
    }
    std::ranges::sort(earlier, {}, &FileURL::nativePath);
    for (qsizetype index = 0; index + maximumUnusable <= earlier.size(); ++index)
        std::ignore = files().removeOwnFile(earlier.at(index));
}

} // namespace keelbright
