#pragma once

#include "tests/support/EngineRun.h"
#include "tests/support/Printing.h"

#include <functional>
#include <gmock/gmock.h>

namespace keelbright::testing {

/// A test of whole backups of "Documents" onto the drive.
class FaultTest : public ::testing::Test, protected EngineRun
{
protected:
    [[nodiscard]] const BackupProgress& progress() const { return engine.progress(); }

    /// Makes files "f0000" and so on in Documents, or makes them anew in another version.
    void makeFiles(int count, qsizetype size = 100, int version = 1) const;
    void makeFile(const QByteArray& name, qsizetype size = 100, int version = 1) const;
    [[nodiscard]] static QByteArray fileName(int number);

    /// Does something once, as soon as so many files are copied. The run goes no further than to
    /// prepare one more file meanwhile.
    void whenCopied(qint64 count, std::function<void()> action);

    /// The names in Documents in the order in which a run comes upon them.
    [[nodiscard]] QByteArrayList walkingOrder() const;
    /// The version of the whole file of that name in the mirror of Documents; nothing where there
    /// is none. A file that is not whole fails the test.
    [[nodiscard]] std::optional<int> mirroredVersion(const QByteArray& name) const;
    /// Names of temporary files anywhere below a folder.
    [[nodiscard]] static QByteArrayList temporaryFiles(const FileURL& folder);
    [[nodiscard]] static bool exists(const FileURL& url);
    [[nodiscard]] static QString skipLine(const QByteArray& name, const char* reason);

    FileURL documents = mac.makeFolder("Users/mira/Documents");
};

} // namespace keelbright::testing
