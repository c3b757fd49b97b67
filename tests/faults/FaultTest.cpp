#include "tests/faults/FaultTest.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "tests/faults/SealedContent.h"

#include <sys/stat.h>
#include <sys/statvfs.h>

namespace keelbright::testing {

namespace {

/// Puts the files of the tests into memory: hundreds of backups flush their drive at the end, and would
/// wait for everything else that the machine writes.
class TestsInMemory : public ::testing::Environment
{
public:
    void SetUp() override
    {
        constexpr const char* memory = "/dev/shm";
        constexpr quint64 enough = 2'000'000'000;
        struct statvfs status = {};
        if (!qEnvironmentVariableIsSet("TMPDIR") && ::access(memory, W_OK) == 0 &&
            ::statvfs(memory, &status) == 0 && status.f_bavail * status.f_frsize >= enough)
            qputenv("TMPDIR", memory);
    }
};

const ::testing::Environment* const testsInMemory =
    ::testing::AddGlobalTestEnvironment(new TestsInMemory); // owned by the framework

} // namespace

void FaultTest::makeFiles(int count, qsizetype size, int version) const
{
    for (int number = 0; number < count; ++number)
        makeFile(fileName(number), size, version);
}

void FaultTest::makeFile(const QByteArray& name, qsizetype size, int version) const
{
    mac.writeFile("Users/mira/Documents/" + name, sealedContent(name, version, size));
}

QByteArray FaultTest::fileName(int number)
{
    return "f" + QByteArray::number(number).rightJustified(4, '0');
}

void FaultTest::whenCopied(qint64 count, std::function<void()> action)
{
    QObject::connect(&engine, &BackupEngine::progressChanged,
                     [this, count, action = std::move(action), isDone = false]() mutable {
                         if (isDone || engine.progress().filesCopied < count)
                             return;
                         isDone = true;
                         action();
                     });
}

QByteArrayList FaultTest::walkingOrder() const
{
    QByteArrayList names;
    const auto items = DirectoryEnumerator::open(documents, {});
    while (items && (*items)->next())
        names.append((*items)->name().toByteArray());
    return names;
}

std::optional<int> FaultTest::mirroredVersion(const QByteArray& name) const
{
    const FileURL file = mirrored("Documents/" + name);
    if (!exists(file))
        return std::nullopt;
    const auto content = FileManager::defaultManager().contents(file);
    const auto version = content ? sealedVersion(name, *content) : std::nullopt;
    EXPECT_TRUE(version.has_value()) << name.toStdString() << " is not whole";
    return version;
}

QByteArrayList FaultTest::temporaryFiles(const FileURL& folder)
{
    QByteArrayList names = everythingBelow(folder);
    names.removeIf([](const QByteArray& name) { return !name.endsWith(".tmp"); });
    return names;
}

bool FaultTest::exists(const FileURL& url)
{
    struct stat status = {};
    return ::lstat(url.nativePath().constData(), &status) == 0;
}

QString FaultTest::skipLine(const QByteArray& name, const char* reason)
{
    const QString text = QString::fromUtf8(name);
    return QStringLiteral("Skip %1: “%1” could not be %2").arg(text, QString::fromUtf8(reason));
}

} // namespace keelbright::testing
