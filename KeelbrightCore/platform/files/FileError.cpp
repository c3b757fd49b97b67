#include "KeelbrightCore/platform/files/FileError.h"

#include "KeelbrightCore/platform/files/MachineRules.h"
#include "KeelbrightCore/platform/system/WaitForMemory.h"

#include <QCoreApplication>
#include <algorithm>
#include <cerrno>
#include <cstring>

namespace keelbright {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(FileError)
};

QString verb(FileError::Operation operation)
{
    switch (operation) {
    case FileError::Operation::read:
        return Texts::tr("read");
    case FileError::Operation::written:
        return Texts::tr("written");
    case FileError::Operation::created:
        return Texts::tr("created");
    case FileError::Operation::copied:
        return Texts::tr("copied");
    case FileError::Operation::replaced:
        return Texts::tr("replaced");
    case FileError::Operation::moved:
        return Texts::tr("moved");
    case FileError::Operation::opened:
        return Texts::tr("opened");
    case FileError::Operation::listed:
        return Texts::tr("listed completely");
    case FileError::Operation::removed:
        return Texts::tr("removed");
    case FileError::Operation::trashed:
        return Texts::tr("moved to the Trash");
    case FileError::Operation::restored:
        return Texts::tr("put back");
    case FileError::Operation::measured:
        return Texts::tr("measured");
    case FileError::Operation::flushed:
        return Texts::tr("written through to the drive");
    case FileError::Operation::launched:
        return Texts::tr("launched");
    }
    return Texts::tr("used");
}

struct CodedReason
{
    int code = 0;
    const char* reason = nullptr;
};

constexpr CodedReason knownReasons[] = {
    {EACCES, QT_TRANSLATE_NOOP("FileError", "you don't have permission")},
    {EPERM, QT_TRANSLATE_NOOP("FileError", "you don't have permission")},
    {ENOENT, QT_TRANSLATE_NOOP("FileError", "it does not exist")},
    {ENOSPC, QT_TRANSLATE_NOOP("FileError", "there is not enough space on the drive")},
    {EDQUOT, QT_TRANSLATE_NOOP("FileError", "your share of the drive is used up")},
    {EROFS, QT_TRANSLATE_NOOP("FileError", "the drive is read-only")},
    {EIO, QT_TRANSLATE_NOOP("FileError", "the drive reported an error")},
    {EEXIST, QT_TRANSLATE_NOOP("FileError", "something of that name is already there")},
    {ENOTEMPTY, QT_TRANSLATE_NOOP("FileError", "something of that name is already there")},
    {ENOTDIR, QT_TRANSLATE_NOOP("FileError", "a file stands in the place of a folder")},
    {EISDIR, QT_TRANSLATE_NOOP("FileError", "a folder stands in its place")},
    {ENAMETOOLONG, QT_TRANSLATE_NOOP("FileError", "the name is too long")},
    {EFBIG, QT_TRANSLATE_NOOP("FileError", "the file is too large for the drive")},
    {EINVAL, QT_TRANSLATE_NOOP("FileError", "the drive does not accept it")},
    {EILSEQ, QT_TRANSLATE_NOOP("FileError", "the drive does not accept it")},
    {ELOOP, QT_TRANSLATE_NOOP("FileError", "its symbolic links lead in a circle")},
    {EMFILE, QT_TRANSLATE_NOOP("FileError", "too many files are open")},
    {ENFILE, QT_TRANSLATE_NOOP("FileError", "too many files are open")},
    {ENODEV, QT_TRANSLATE_NOOP("FileError", "the drive is gone")},
    {ENXIO, QT_TRANSLATE_NOOP("FileError", "the drive is gone")},
    {ENOTCONN, QT_TRANSLATE_NOOP("FileError", "the drive is gone")},
    {EXDEV, QT_TRANSLATE_NOOP("FileError", "it lies on another drive")},
    {EBUSY, QT_TRANSLATE_NOOP("FileError", "it is in use")},
    {ETXTBSY, QT_TRANSLATE_NOOP("FileError", "it is in use")},
    {ESTALE, QT_TRANSLATE_NOOP("FileError", "the network drive no longer knows it")},
    {ENOMEM, QT_TRANSLATE_NOOP("FileError", "there is not enough memory")},
    {ETIMEDOUT, QT_TRANSLATE_NOOP("FileError", "the drive did not answer in time")},
    {EDEADLK, QT_TRANSLATE_NOOP("FileError", "it is not on this Mac")}, // only its cloud provider has it
};

QString systemReason(int code)
{
    const auto known = std::ranges::find(knownReasons, code, &CodedReason::code);
    if (known != std::end(knownReasons))
        return Texts::tr(known->reason);
    return QString::fromLocal8Bit(std::strerror(code));
}

QString reasonText(const FileError& error)
{
    switch (error.reason) {
    case FileError::Reason::system:
        return systemReason(error.code);
    case FileError::Reason::notARegularFile:
        return Texts::tr("it is neither a file nor a link");
    case FileError::Reason::changedDuringCopy:
        return Texts::tr("it changed while it was being copied");
    case FileError::Reason::endsEarly:
        return Texts::tr("it ends before its size says");
    case FileError::Reason::symbolicLinkInTheWay:
        return Texts::tr("a symbolic link stands in the place of a folder");
    case FileError::Reason::destinationGone:
        return Texts::tr("the destination is no longer in its place");
    case FileError::Reason::differsInCaseOnly:
        return Texts::tr("a file whose name differs in upper and lower case only is already there");
    case FileError::Reason::nameTakenForAnother:
        return Texts::tr("a file whose name the drive takes for the same is already there");
    case FileError::Reason::linksNotSupported:
        return Texts::tr("the drive can't hold symbolic links");
    case FileError::Reason::alreadyInTrash:
        return Texts::tr("it is already in the Trash");
    case FileError::Reason::notInTrash:
        return Texts::tr("it no longer lies in the Trash");
    case FileError::Reason::neededInItsPlace:
        return Texts::tr("the computer needs it where it is");
    case FileError::Reason::driveMounted:
        return Texts::tr("a drive is mounted there");
    case FileError::Reason::trashOpenToOthers:
        return Texts::tr("the Trash of its drive is not safe from other users");
    case FileError::Reason::tooLarge:
        return Texts::tr("it is too large");
    case FileError::Reason::stopped:
        return Texts::tr("the program is quitting");
    }
    return Texts::tr("the reason is unknown");
}

/// Whether the user may have to allow it first. Permissions of the file itself give EACCES.
bool mayNeedConsent(const FileError& error)
{
    const bool isReading = error.operation == FileError::Operation::read ||
                           error.operation == FileError::Operation::opened ||
                           error.operation == FileError::Operation::listed;
    return isReading && error.reason == FileError::Reason::system && error.code == EPERM;
}

} // namespace

QString FileError::localizedDescription() const
{
    return description(MachineRules::keepsProgramsOut());
}

QString FileError::description(bool systemKeepsProgramsOut) const
{
    QString text = Texts::tr("“%1” could not be %2: %3.").arg(name, verb(operation), reasonText(*this));
    if (!systemKeepsProgramsOut || !mayNeedConsent(*this))
        return text;
    return text + u' ' +
           Texts::tr("Allow it in System Settings, under Privacy & Security, Full Disk Access.");
}

bool FileError::isForLackOfRoom() const
{
    return reason == Reason::system &&
           (code == ENOSPC || code == EDQUOT || code == EMFILE || code == ENFILE || code == ENOMEM);
}

FileError FileError::fromCode(Operation operation, QString name, int code)
{
    return {operation, std::move(name), Reason::system, code};
}

std::unexpected<FileError> failure(FileError::Operation operation, QByteArrayView name, int code)
{
    return std::unexpected(FileError::fromCode(operation, QString::fromUtf8(name), code));
}

std::unexpected<FileError> failure(FileError::Operation operation, QByteArrayView name,
                                   FileError::Reason reason)
{
    return std::unexpected(FileError{operation, QString::fromUtf8(name), reason});
}

std::unexpected<FileError> outOfMemory(FileError::Operation operation, QByteArrayView path)
{
    const QByteArrayView name = path.sliced(path.lastIndexOf('/') + 1);
    return waitingForMemory([&] { return failure(operation, name, ENOMEM); });
}

} // namespace keelbright
