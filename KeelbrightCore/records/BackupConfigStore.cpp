#include "KeelbrightCore/records/BackupConfigStore.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/system/Console.h"
#include "KeelbrightCore/platform/system/Logging.h"

#include <cerrno>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

FileURL configFile(const FileURL& applicationSupport)
{
    return applicationSupport.appending(u"Keelbright/config.json"_s);
}

/// Whether there is a file behind a failed reading, which a write would replace.
bool isFileThere(const FileError& error)
{
    if (error.reason == FileError::Reason::system)
        return error.code != ENOENT && error.code != ENOTDIR;
    return error.reason != FileError::Reason::notARegularFile;
}

Decoded<AppConfiguration> decoded(const QByteArray& text)
{
    const auto json = decodeJsonObject(text);
    return json ? AppConfiguration::fromJson(*json) : std::unexpected(json.error());
}

void printKept(const FileURL& place)
{
    printLine(u"Kept the config that could not be loaded: "_s + place.path());
}

} // namespace

BackupConfigStore& BackupConfigStore::shared()
{
    static BackupConfigStore store(FileManager::defaultManager().applicationSupportDirectory());
    return store;
}

BackupConfigStore::BackupConfigStore(const FileURL& applicationSupport)
    : m_configURL(configFile(applicationSupport))
    , m_copies(FileManager::defaultManager().resolvingSymlinks(m_configURL))
{
    const FileURL folder = m_configURL.deletingLastPathComponent();
    if (const auto created = FileManager::defaultManager().createDirectory(folder); !created)
        printLine(u"Failed to create config directory: "_s + created.error().localizedDescription());
}

AppConfiguration BackupConfigStore::load()
{
    auto file = loadFile();
    m_isCopyUnusable = false;
    m_mayHaveCopy = true;
    m_origin = file ? Origin::file : Origin::nothing;
    // A rewrite writes the destination last, so a file that has one is complete.
    if (file && file->selectedDestination)
        return *std::move(file);
    if (auto copy = loadCopy()) {
        qCDebug(recordsLog) << "loaded: the copy of a start that did not get to its end";
        m_origin = Origin::copy;
        return *std::move(copy);
    }
    return file.value_or(AppConfiguration());
}

std::optional<AppConfiguration> BackupConfigStore::loadFile()
{
    const auto text = FileManager::defaultManager().contents(m_configURL);
    if (!text) {
        m_isFileUnusable = isFileThere(text.error());
        return std::nullopt;
    }
    auto configuration = decoded(*text);
    m_isFileUnusable = !configuration;
    if (!configuration) {
        printLine(u"Failed to decode config: "_s + configuration.error().localizedDescription());
        return std::nullopt;
    }
    return *std::move(configuration);
}

std::optional<AppConfiguration> BackupConfigStore::loadCopy()
{
    const auto text = m_copies.whole();
    if (!text) {
        m_isCopyUnusable = isFileThere(text.error());
        return std::nullopt;
    }
    auto configuration = decoded(*text);
    m_isCopyUnusable = !configuration;
    if (!configuration)
        return std::nullopt;
    return *std::move(configuration);
}

void BackupConfigStore::save(const AppConfiguration& configuration)
{
    auto written = keepWhatIsThere();
    if (written)
        written = write(configuration);
    m_isSaved = written.has_value();
    if (!written)
        printLine(u"Failed to encode or write config: "_s + written.error().localizedDescription());
    else if (!m_isRewriting)
        removeCopy();
}

std::expected<void, FileError> BackupConfigStore::keepWhatIsThere()
{
    const auto asWriteFailure = [this](FileError error) {
        error.operation = FileError::Operation::written;
        error.name = m_configURL.lastPathComponent();
        return std::unexpected(error);
    };
    if (m_isFileUnusable) {
        const auto place = m_copies.keepUnusableFile();
        if (!place)
            return asWriteFailure(place.error());
        m_isFileUnusable = false;
        printKept(*place);
    }
    if (m_isCopyUnusable) {
        const auto place = m_copies.keepUnusableCopy();
        if (!place)
            return asWriteFailure(place.error());
        m_isCopyUnusable = false;
        printKept(*place);
    }
    if (m_needsCopy) {
        if (const auto kept = m_copies.keepWhole(); !kept)
            return asWriteFailure(kept.error());
        m_needsCopy = false;
        m_mayHaveCopy = true;
    }
    return {};
}

std::expected<void, FileError> BackupConfigStore::write(const AppConfiguration& configuration)
{
    const QByteArray text = m_text.of(configuration);
    if (text.size() > FileManager::maximumContents)
        return failure(FileError::Operation::written, m_configURL, FileError::Reason::tooLarge);
    return FileManager::defaultManager().writeAtomically(m_configURL, text);
}

void BackupConfigStore::beginRewrite()
{
    m_isRewriting = true;
    m_needsCopy = m_origin == Origin::file;
}

void BackupConfigStore::endRewrite()
{
    // Without a copy nothing has been written, and the file is still what was loaded.
    const bool hasCopy = m_origin != Origin::nothing && !m_needsCopy;
    m_isRewriting = false;
    m_needsCopy = false;
    if (m_isSaved)
        removeCopy();
    else if (hasCopy)
        m_mayHaveCopy = !m_copies.putWholeBack();
}

void BackupConfigStore::removeCopy()
{
    if (m_mayHaveCopy)
        m_mayHaveCopy = !m_copies.removeWhole();
}

} // namespace keelbright
