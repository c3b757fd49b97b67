#include "KeelbrightCore/platform/FileError.h"

#include <QCoreApplication>
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
    case FileError::Operation::measured:
        return translated("measured");
    case FileError::Operation::flushed:
        return translated("written through to the drive");
    case FileError::Operation::launched:
        return translated("launched");
    }
    return translated("used");
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
    case FileError::Reason::symbolicLinkInTheWay:
        return translated("a symbolic link stands in the place of a folder");
    case FileError::Reason::destinationGone:
        return translated("the destination is no longer in its place");
    case FileError::Reason::differsInCaseOnly:
        return translated("a file whose name differs in upper and lower case only is already there");
    case FileError::Reason::linksNotSupported:
        return translated("the drive can't hold symbolic links");
    case FileError::Reason::alreadyInTrash:
        return translated("it is already in the Trash");
    case FileError::Reason::stopped:
        return translated("the program is quitting");
    }
    return translated("the reason is unknown");
}

const char* knownReason(int code)
{
    switch (code) {
    case EACCES:
    case EPERM:
        return "you don't have permission";
    case ENOENT:
        return "it does not exist";
    case ENOSPC:
        return "there is not enough space on the drive";
    case EDQUOT:
        return "your share of the drive is used up";
    case EROFS:
        return "the drive is read-only";
    case EIO:
        return "the drive reported an error";
    case EEXIST:
    case ENOTEMPTY:
        return "something of that name is already there";
    case ENOTDIR:
        return "a file stands in the place of a folder";
    case EISDIR:
        return "a folder stands in its place";
    case ENAMETOOLONG:
        return "the name is too long";
    case EFBIG:
        return "the file is too large for the drive";
    case EINVAL:
    case EILSEQ:
        return "the drive does not accept it";
    case ELOOP:
        return "its symbolic links lead in a circle";
    case EMFILE:
    case ENFILE:
        return "too many files are open";
    case ENODEV:
    case ENXIO:
    case ENOTCONN:
        return "the drive is gone";
    case EXDEV:
        return "it lies on another drive";
    case EBUSY:
    case ETXTBSY:
        return "it is in use";
    case ESTALE:
        return "the network drive no longer knows it";
    case ENOMEM:
        return "there is not enough memory";
    case ETIMEDOUT:
        return "the drive did not answer in time";
    default:
        return nullptr;
    }
}

} // namespace

QString systemReason(int code)
{
    if (const char* known = knownReason(code))
        return translated(known);
    return QString::fromLocal8Bit(std::strerror(code));
}

QString FileError::localizedDescription() const
{
    return translated("“%1” could not be %2: %3.").arg(name, verb(operation), reasonText(*this));
}

bool FileError::isForLackOfRoom() const
{
    return reason == Reason::system && (code == ENOSPC || code == EDQUOT || code == EMFILE || code == ENFILE);
}

FileError FileError::fromCode(Operation operation, QString name, int code)
{
    return {operation, std::move(name), Reason::system, code};
}

} // namespace keelbright
