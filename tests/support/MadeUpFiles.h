#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QByteArray>
#include <QDateTime>

namespace keelbright::testing {

/// Writes files for made-up machines. Whatever can't be written ends the program with its reason:
/// a test on half a machine would prove nothing.
class MadeUpFiles
{
public:
    /// `root` exists or can be created; `now` is what ages of files are counted from.
    MadeUpFiles(FileURL root, QDateTime now);

    [[nodiscard]] const FileURL& root() const { return m_root; }

    [[nodiscard]] const QDateTime& now() const { return m_now; }

    [[nodiscard]] FileURL at(const QByteArray& path) const { return m_root.appendingNative(path); }

    // Paths are relative to the root; missing folders are made.
    void folder(const QByteArray& path) const;
    void text(const QByteArray& path, const QByteArray& content, int daysOld = 30) const;
    /// Adds to the end of a file, which is made where there is none.
    void append(const QByteArray& path, const QByteArray& content) const;
    /// Noise that doesn't compress, the same at each run.
    void noise(const QByteArray& path, qint64 bytes, int daysOld = 30) const;
    /// A file of that length that takes no room: a hole from end to end.
    void hole(const QByteArray& path, qint64 bytes, int daysOld = 30) const;
    void link(const QByteArray& path, const QByteArray& target) const;
    void program(const QByteArray& path, const QByteArray& script) const;

private:
    void setAge(const FileURL& url, int daysOld) const;

    FileURL m_root;
    QDateTime m_now;
};

} // namespace keelbright::testing
