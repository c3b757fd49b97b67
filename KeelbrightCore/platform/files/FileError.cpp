#include "KeelbrightCore/platform/files/FileError.h"

#include "KeelbrightCore/platform/system/WaitForMemory.h"

#include <QCoreApplication>
#include <algorithm>
#include <cerrno>
#include <cstring>

namespace keelbright {

namespace {

QString translated(const char* text)
{
    return QCoreApplication::translate("FileError", text);
}

QString verb(FileError::Operation operation)
{
    switch (operation) {
    case FileError::Operation::read:
        return translated("read");
    case FileError::Operation::written:
        return translated("written");
    case FileError::Operation::created:
        return translated("created");
    case FileError::Operation::copied:
        return translated("copied");
    case FileError::Operation::replaced:
        return translated("replaced");
    case FileError::Operation::moved:
        return translated("moved");
    case FileError::Operation::opened:
        return translated("opened");
    case FileError::Operation::listed:
        return translated("listed completely");
    case FileError::Operation::removed:
        return translated("removed");
    case FileError::Operation::trashed:
        return translated("moved to the Trash");
    case FileError::Operation::restored:
        return translated("put back");
    case FileError::Operation::measured:
        return translated("measured");
    case FileError::Operation::flushed:
        return translated("written through to the drive");
    case FileError::Operation::launched:
        return translated("launched");
    }
    return translated("used");
}

struct CodedReason
{
    int code = 0;
    const char* reason = nullptr;
};

constexpr CodedReason knownReasons[] = {
    {EACCES, "you don't have permission"},
    {EPERM, "you don't have permission"},
    {ENOENT, "it does not exist"},
    {ENOSPC, "there is not enough space on the drive"},
    {EDQUOT, "your share of the drive is used up"},
    {EROFS, "the drive is read-only"},
    {EIO, "the drive reported an error"},
    {EEXIST, "something of that name is already there"},
    {ENOTEMPTY, "something of that name is already there"},
    {ENOTDIR, "a file stands in the place of a folder"},
    {EISDIR, "a folder stands in its place"},
    {ENAMETOOLONG, "the name is too long"},
    {EFBIG, "the file is too large for the drive"},
    {EINVAL, "the drive does not accept it"},
    {EILSEQ, "the drive does not accept it"},
    {ELOOP, "its symbolic links lead in a circle"},
    {EMFILE, "too many files are open"},
    {ENFILE, "too many files are open"},
    {ENODEV, "the drive is gone"},
    {ENXIO, "the drive is gone"},
    {ENOTCONN, "the drive is gone"},
    {EXDEV, "it lies on another drive"},
    {EBUSY, "it is in use"},
    {ETXTBSY, "it is in use"},
    {ESTALE, "the network drive no longer knows it"},
    {ENOMEM, "there is not enough memory"},
    {ETIMEDOUT, "the drive did not answer in time"},
};

QString systemReason(int code)
{
    const auto known = std::ranges::find(knownReasons, code, &CodedReason::code);
    if (known != std::end(knownReasons))
        return translated(known->reason);
    return QString::fromLocal8Bit(std::strerror(code));
}

QString reasonText(const FileError& error)
{
    switch (error.reason) {
    case FileError::Reason::system:
        return systemReason(error.code);
    case FileError::Reason::notARegularFile:
        return translated("it is neither a file nor a link");
    case FileError::Reason::changedDuringCopy:
        return translated("it changed while it was being copied");
    case FileError::Reason::endsEarly:
        return translated("it ends before its size says");
    case FileError::Reason::symbolicLinkInTheWay:
        return translated("a symbolic link stands in the place of a folder");
    case FileError::Reason::destinationGone:
        return translated("the destination is no longer in its place");
    case FileError::Reason::differsInCaseOnly:
        return translated("a file whose name differs in upper and lower case only is already there");
    case FileError::Reason::nameTakenForAnother:
        return translated("a file whose name the drive takes for the same is already there");
    case FileError::Reason::linksNotSupported:
        return translated("the drive can't hold symbolic links");
    case FileError::Reason::alreadyInTrash:
        return translated("it is already in the Trash");
    case FileError::Reason::notInTrash:
        return translated("it no longer lies in the Trash");
    case FileError::Reason::neededInItsPlace:
        return translated("the computer needs it where it is");
    case FileError::Reason::driveMounted:
        return translated("a drive is mounted there");
    case FileError::Reason::trashOpenToOthers:
        return translated("the Trash of its drive is not safe from other users");
    case FileError::Reason::tooLarge:
        return translated("it is too large");
    case FileError::Reason::stopped:
        return translated("the program is quitting");
    }
    return translated("the reason is unknown");
}

} // namespace

QString FileError::localizedDescription() const
{
    return translated("“%1” could not be %2: %3.").arg(name, verb(operation), reasonText(*this));
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
