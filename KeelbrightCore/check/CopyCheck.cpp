#include "KeelbrightCore/check/CopyCheck.h"

#include "KeelbrightCore/backup/DeviceFolder.h"
#include "KeelbrightCore/check/ListCheck.h"
#include "KeelbrightCore/check/OriginalsCheck.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/OutOfMemory.h"
#include "KeelbrightCore/platform/system/TaskPools.h"
#include "KeelbrightCore/platform/system/WaitForMemory.h"

#include <QPromise>
#include <cerrno>

namespace keelbright::CopyCheck {

namespace {

const QByteArray extension = ".sha256";

CheckReport failed(const CheckJob& job, const FileError& error)
{
    CheckReport report;
    report.end = CheckReport::End::failed;
    report.isAgainstList = job.checksumList.has_value();
    report.error = error;
    return report;
}

/// For a list that does not say where its copies are, where no destination does either.
CheckReport withoutCopies(const CheckJob& job)
{
    QString name = job.checksumList.value_or(FileURL()).lastPathComponent();
    name.chop(extension.size());
    return failed(job, FileError::fromCode(FileError::Operation::opened, name, ENOENT));
}

/// The folder of copies that a list is about: the one of its name, beside it or on the destination.
std::optional<FileURL> deviceFolderNamedBy(const FileURL& checksumList,
                                           const std::optional<FileURL>& destination)
{
    auto folder = deviceFolderBeside(checksumList);
    if (folder)
        return folder;
    const FileURL list = FileManager::defaultManager().resolvingSymlinks(checksumList);
    folder = deviceFolderBeside(list);
    // A list may be kept on another machine, too, whose own copies lie in another folder.
    if (!folder && destination)
        folder =
            deviceFolderBeside(destination->appendingNative("Keelbright/" + list.nativeLastPathComponent()));
    return folder;
}

CheckReport check(const CheckJob& job, CheckProgress& progress, const Cancellation& cancellation)
{
    std::optional<FileURL> device;
    if (job.checksumList)
        device = deviceFolderNamedBy(*job.checksumList, job.destination);
    if (!device && job.destination)
        device = job.destination->appendingNative(DeviceFolder::ofThisMachine());
    if (!device)
        return withoutCopies(job);
    if (job.checksumList)
        return ListCheck(*job.checksumList, *device, progress, cancellation).run();
    return OriginalsCheck(job, *device, progress, cancellation).run();
}

} // namespace

CheckReport run(const CheckJob& job, CheckProgress& progress, const Cancellation& cancellation)
{
    const FileURL place = job.checksumList ? *job.checksumList : job.destination.value_or(FileURL());
    auto report = orOutOfMemory(
        FileError::Operation::read, place.nativePath(),
        [&]() -> std::expected<CheckReport, FileError> { return check(job, progress, cancellation); });
    if (!report)
        return failed(job, report.error());
    return std::move(*report);
}

QFuture<CheckReport> start(const CheckJob& job, const std::shared_ptr<CheckProgress>& progress,
                           const std::shared_ptr<const Cancellation>& cancellation)
{
    QPromise<CheckReport> promise;
    promise.start();
    auto future = promise.future();
    TaskPools::startApart(TaskPools::Priority::utility,
                          [promise = std::move(promise), job, progress, cancellation]() mutable {
                              const CheckReport report = run(job, *progress, *cancellation);
                              // The window waits for it, and no backup starts before it is there. The index
                              // is named because Qt counts up also where an attempt finds no memory.
                              waitingForMemory([&] { promise.addResult(report, 0); });
                              promise.finish();
                          });
    return future;
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
