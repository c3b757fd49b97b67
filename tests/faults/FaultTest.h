#pragma once

#include "tests/support/EngineRun.h"
#include "tests/support/Printing.h"

#include <functional>
#include <gmock/gmock.h>

namespace keelbright::testing {

/// The fixture of tests that back "Documents" up to the drive.
class FaultTest : public ::testing::Test, protected EngineRun
{
protected:
    [[nodiscard]] const BackupProgress& progress() const { return engine.progress(); }

    /// Makes files "f0000" and so on in Documents, or replaces them by another version.
    void makeFiles(int count, qsizetype size = 100, int version = 1) const;
    void makeFile(const QByteArray& name, qsizetype size = 100, int version = 1) const;
    [[nodiscard]] static QByteArray fileName(int number);

    /// Runs `action` once, as soon as `count` files are copied. Meanwhile the run at most prepares one
    /// more file.
    void whenCopied(qint64 count, std::function<void()> action);

    /// The names in Documents in the order in which a run finds them.
    [[nodiscard]] QByteArrayList walkingOrder() const;
    /// The version of the whole file with this name in the mirror of Documents; nothing if there is
    /// none. A file that is not whole fails the test.
    [[nodiscard]] std::optional<int> mirroredVersion(const QByteArray& name) const;
    /// The names of the temporary files anywhere below a folder.
    [[nodiscard]] static QByteArrayList temporaryFiles(const FileURL& folder);
    [[nodiscard]] static bool exists(const FileURL& url);
    [[nodiscard]] static QString skipLine(const QByteArray& name, const char* reason);

    FileURL documents = mac.makeFolder("Users/mira/Documents");
};

} // namespace keelbright::testing
