#include "KeelbrightCore/backup/PreflightService.h"

#include "KeelbrightCore/backup/FileScanner.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/MachinePlaces.h"
#include "KeelbrightCore/platform/text/ByteCountFormatter.h"
#include "KeelbrightCore/platform/text/ByteSum.h"

#include <QCoreApplication>

#include <algorithm>

namespace keelbright::PreflightService {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 minimumMargin = 1'000'000'000;
constexpr double marginFactor = 0.1;

/// One run of the checks.
class Check
{
    Q_DECLARE_TR_FUNCTIONS(PreflightService)

public:
    Check(const BackupDestination& destination, const Cancellation& cancellation, Drive drive)
        : m_destination(destination.url)
        , m_resolvedDestination(m_fileManager.resolvingSymlinks(m_destination))
        , m_placeOfDestination(m_fileManager.placeOnVolume(m_destination))
        , m_cancellation(cancellation)
        , m_drive(drive)
    {}

    PreflightResult run(const QList<BackupSource>& sources)
    {
        checkDestinationFolder();
        readFreeSpace();
        QList<BackupSource> validSources;
        for (const BackupSource& source : sources) {
            if (m_cancellation.isQuitting())
                return m_result;
            if (source.isEnabled && isValid(source))
                validSources.append(source);
        }
        if (validSources.isEmpty()) {
            m_result.errors.append(tr("No valid source folders selected."));
            return m_result;
        }
        const FileScanner::ScanResult scan =
            FileScanner::scan(validSources, FileScanner::Sizes::read, m_cancellation);
        m_result.estimatedFileCount = scan.fileCount;
        m_result.estimatedBytes = scan.totalBytes;
        checkSpace();
        return m_result;
    }

    static PreflightResult withoutDestination()
    {
        PreflightResult result;
        result.errors.append(tr("No destination selected."));
        return result;
    }

private:
    void checkDestinationFolder()
    {
        const FileExistence existence = m_fileManager.fileExists(m_destination);
        if (m_drive == Drive::away || !existence.exists || !existence.isDirectory)
            m_result.errors.append(tr("Destination folder does not exist or is not a directory."));
        else if (!m_fileManager.isWritable(m_destination))
            m_result.errors.append(tr("Destination folder is not writable."));
    }

    void readFreeSpace()
    {
        const auto capacity = m_fileManager.fileSystemCapacity(m_destination);
        if (!capacity)
            m_result.warnings.append(tr("Could not determine free space on destination."));
        else
            m_result.destinationFreeSpace = capacity->freeBytes.value_or(0);
    }

    [[nodiscard]] bool isDangerous(const FileURL& url) const { return m_systemFolders.contains(url); }

    /// Reports the first problem of the source and no other.
    bool isValid(const BackupSource& source)
    {
        const FileURL& url = source.url;
        const QString name = url.lastPathComponent();
        if (!m_fileManager.fileExists(url).exists)
            m_result.warnings.append(tr("Source folder missing: %1").arg(name));
        else if (!m_fileManager.isReadable(url))
            m_result.warnings.append(tr("Source folder not readable: %1").arg(name));
        else if (isDangerous(url))
            m_result.errors.append(tr("Dangerous system folder selected: %1").arg(url.path()));
        // Plain text prefixes, so that "/Doc" seems to contain "/Documents": better refuse one backup too
        // many than let one copy itself without end.
        else if (m_destination.nativePath().startsWith(url.nativePath()))
            reportDestinationInside(name);
        else if (url.nativePath().startsWith(m_destination.nativePath()))
            reportSourceInside(name);
        else
            return isApart(url);
        return false;
    }

    /// Looks where links and ".." lead, and folders that are mounted a second time.
    bool isApart(const FileURL& source)
    {
        const FileURL resolved = m_fileManager.resolvingSymlinks(source);
        const auto place = m_fileManager.placeOnVolume(source);
        const bool hasPlaces = place && m_placeOfDestination;
        if (isAtOrBelow(m_resolvedDestination, resolved) ||
            (hasPlaces && isAtOrBelow(*m_placeOfDestination, *place)))
            reportDestinationInside(source.lastPathComponent());
        else if (isAtOrBelow(resolved, m_resolvedDestination) ||
                 (hasPlaces && isAtOrBelow(*place, *m_placeOfDestination)))
            reportSourceInside(source.lastPathComponent());
        else
            return true;
        return false;
    }

    void reportDestinationInside(const QString& source)
    {
        m_result.errors.append(
            tr("Destination is inside source folder %1, causing an infinite loop.").arg(source));
    }

    void reportSourceInside(const QString& source)
    {
        m_result.errors.append(tr("Source folder %1 is already inside the destination.").arg(source));
    }

    void checkSpace()
    {
        const qint64 required = requiredSpace(m_result.estimatedBytes);
        const qint64 available = m_result.destinationFreeSpace;
        // 0 means that the free space is unknown.
        if (available > 0 && available < required)
            m_result.errors.append(
                tr("Not enough space. Required: ~%1, Available: %2.")
                    .arg(ByteCountFormatter::string(required), ByteCountFormatter::string(available)));
    }

    static qint64 requiredSpace(qint64 bytes)
    {
        const qint64 share = static_cast<qint64>(static_cast<double>(bytes) * marginFactor);
        return addedWithoutOverflow(bytes, std::max(share, minimumMargin));
    }

    const FileManager& m_fileManager = FileManager::defaultManager();
    const QList<FileURL> m_systemFolders = MachinePlaces(m_fileManager).systemFolders();
    const FileURL m_destination;
    const FileURL m_resolvedDestination;
    const std::optional<PlaceOnVolume> m_placeOfDestination;
    const Cancellation& m_cancellation;
    const Drive m_drive;
    PreflightResult m_result;
};

} // namespace

PreflightResult run(const QList<BackupSource>& sources, const std::optional<BackupDestination>& destination,
                    const Cancellation& cancellation, Drive drive)
{
    if (!destination)
        return Check::withoutDestination();
    return Check(*destination, cancellation, drive).run(sources);
}

} // namespace keelbright::PreflightService
