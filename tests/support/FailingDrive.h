#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QProcess>
#include <QTemporaryDir>
#include <string>

namespace keelbright::testing {

/// A drive that shows an ordinary folder, and from some moment on answers one kind of request with
/// an error: a file system of our own, mounted while it lives. It does not support unnamed files. Needs
/// python3-fuse and the right to mount: where one is missing, `reasonMissing()` says which, and the test
/// skips itself with that reason.
class FailingDrive
{
public:
    /// `request` is read, block (a read of the byte `after` of a file), write, open, create, rename, mkdir,
    /// list, flush, close, or none for a drive that works; `after` counts bytes of read and write, requests
    /// of all others; `error` is a name like EIO. With size, blocks or cached-size the drive gives `after` as
    /// the size of every file instead, whatever can be read of it; blocks makes files seem to be holes,
    /// cached-size lets the system keep what it has read. With names the drive takes none of more than
    /// `after` bytes; with forms both ways to encode an accented letter are the same to it.
    FailingDrive(const QString& request, qint64 after, const QString& error);
    ~FailingDrive();
    FailingDrive(const FailingDrive&) = delete;
    FailingDrive& operator=(const FailingDrive&) = delete;

    /// Empty when the drive is there.
    [[nodiscard]] const std::string& reasonMissing() const { return m_reasonMissing; }

    [[nodiscard]] FileURL root() const { return place("drive"); }

    /// The folder that it shows, past all errors.
    [[nodiscard]] FileURL folder() const { return place("folder"); }

    /// From now on every request of the kind fails, however much was to be answered.
    void failNow() const;
    /// From now on every request fails: "the drive is gone".
    void pull();
    /// From now on no request is answered, until `goOn`.
    void hang() const;
    void goOn() const;

private:
    void send(int signal) const;
    [[nodiscard]] FileURL place(const char* name) const;

    QTemporaryDir m_folder;
    QProcess m_process;
    std::string m_reasonMissing;
};

} // namespace keelbright::testing
