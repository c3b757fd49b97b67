#include "KeelbrightCore/check/CopyCheck.h"

#include "KeelbrightCore/backup/DeviceFolder.h"
#include "KeelbrightCore/check/ListCheck.h"
#include "KeelbrightCore/check/OriginalsCheck.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/system/TaskPools.h"

#include <cerrno>

namespace keelbright::CopyCheck {

namespace {

const QByteArray extension = ".sha256";

/// For a list that does not say where its copies are, where no destination does either.
CheckReport withoutCopies(const CheckJob& job)
{
    CheckReport report;
    report.end = CheckReport::End::failed;
    report.isAgainstList = true;
    QString name = job.checksumList.value_or(FileURL()).lastPathComponent();
    name.chop(extension.size());
    report.error = FileError::fromCode(FileError::Operation::opened, name, ENOENT);
    return report;
}

} // namespace

CheckReport run(const CheckJob& job, CheckProgress& progress, const Cancellation& cancellation)
{
    std::optional<FileURL> device;
    if (job.checksumList)
        device = deviceFolderBeside(*job.checksumList);
    if (!device && job.destination)
        device = job.destination->appendingNative(DeviceFolder::ofThisMachine());
    if (!device)
        return withoutCopies(job);
    if (job.checksumList)
        return ListCheck(*job.checksumList, *device, progress, cancellation).run();
    return OriginalsCheck(job, *device, progress, cancellation).run();
}

QFuture<CheckReport> start(const CheckJob& job, const std::shared_ptr<CheckProgress>& progress,
                           const std::shared_ptr<const Cancellation>& cancellation)
{
    return TaskPools::runApart(TaskPools::Priority::utility,
                               [job, progress, cancellation] { return run(job, *progress, *cancellation); });
}

FileURL proposedChecksumList(const FileURL& deviceFolder)
{
    return deviceFolder.deletingLastPathComponent().appendingNative(deviceFolder.nativeLastPathComponent() +
                                                                    extension);
}

std::optional<FileURL> deviceFolderBeside(const FileURL& checksumList)
{
    QByteArray name = checksumList.nativeLastPathComponent();
    if (!name.endsWith(extension) || name.size() == extension.size())
        return std::nullopt;
    name.chop(extension.size());
    FileURL folder = checksumList.deletingLastPathComponent().appendingNative(name);
    if (!FileManager::defaultManager().fileExists(folder).isDirectory)
        return std::nullopt;
    return folder;
}

} // namespace keelbright::CopyCheck
