#pragma once

#include "KeelbrightCore/check/ChecksumLine.h"
#include "KeelbrightCore/platform/files/FileURL.h"

#include <QTemporaryFile>
#include <memory>

namespace keelbright {

/// The list of checksums that a check makes, kept in a file without a name until it is saved or forgotten:
/// it would take too much memory. One thread at a time.
class ChecksumSpool
{
public:
    /// In the program's folder for its own data; null where there can be no such file.
    [[nodiscard]] static std::shared_ptr<ChecksumSpool> create();

    void add(const ChecksumLine& line);

    /// Whether everything that was added has been kept.
    [[nodiscard]] bool isWhole() const { return m_isWhole; }

    /// How many lines there are.
    [[nodiscard]] qint64 count() const { return m_count; }

    /// Begins to read the list.
    void rewind();
    /// The next piece of the list; empty at its end, and where it can't be read, which `isWhole` then says.
    [[nodiscard]] QByteArray nextPiece();

private:
    explicit ChecksumSpool(const QString& nameTemplate);

    QTemporaryFile m_file;
    qint64 m_count = 0;
    bool m_isWhole = true;
};

} // namespace keelbright
