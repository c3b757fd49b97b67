#include "KeelbrightCore/records/ActivityStore.h"
#include "KeelbrightCore/records/BackupConfigStore.h"
#include "tests/support/StandardOutput.h"
#include "tests/support/TestMac.h"
#include "tests/support/UnprivilegedUser.h"

#include <sys/stat.h>

namespace keelbright {
namespace {

using testing::standardOutputOf;
using testing::TestMac;
using testing::UnprivilegedUser;

/// The folder of the program's records, which its user may not read or write.
class RecordFaultTest : public ::testing::Test
{
protected:
    static void setMode(const FileURL& url, mode_t mode)
    {
        EXPECT_EQ(::chmod(url.nativePath().constData(), mode), 0);
    }

    TestMac mac;
    FileURL support = mac.fileManager().applicationSupportDirectory();
};

TEST_F(RecordFaultTest, anUnreadableConfigurationIsSilentlyEmptyAndStaysWhenItCannotBeSaved)
{
    BackupConfigStore store(support);
    AppConfiguration configuration;
    configuration.enabledRecommendedFolders = {QStringLiteral("Documents")};
    store.save(configuration);
    const QByteArray before = TestMac::read(store.configURL());
    setMode(mac.root(), 0755);
    setMode(store.configURL(), 0);
    setMode(store.configURL().deletingLastPathComponent(), 0555);
    const QString printed = standardOutputOf([&] {
        const UnprivilegedUser user;
        EXPECT_EQ(store.load(), AppConfiguration{});
    });
    EXPECT_EQ(printed, QString());
    const QString printedBySave = standardOutputOf([&] {
        const UnprivilegedUser user;
        store.save({});
    });
    EXPECT_EQ(printedBySave, QStringLiteral("Failed to encode or write config: “config.json” could not be "
                                            "written: you don't have permission.\n"));
    setMode(store.configURL(), 0600);
    EXPECT_EQ(TestMac::read(store.configURL()), before);
}

TEST_F(RecordFaultTest, anUnreadableLogIsEmptyAndBlocksNothing)
{
    const ActivityStore store(support);
    const ActivityEntry entry{.id = QUuid::createUuid(),
                              .timestamp = mac.clock()(),
                              .kind = ActivityEntry::Kind::clean,
                              .title = QStringLiteral("t"),
                              .detail = QStringLiteral("d"),
                              .bytesAffected = 1,
                              .itemCount = 1};
    store.append(entry);
    const QByteArray before = TestMac::read(store.fileURL());
    setMode(mac.root(), 0755);
    setMode(store.fileURL(), 0);
    setMode(store.fileURL().deletingLastPathComponent(), 0555);
    const QString printed = standardOutputOf([&] {
        const UnprivilegedUser user;
        EXPECT_TRUE(store.load().isEmpty());
        store.append(entry);
        store.clear();
    });
    EXPECT_EQ(printed, QString());
    setMode(store.fileURL(), 0600);
    EXPECT_EQ(TestMac::read(store.fileURL()), before);
}

} // namespace
} // namespace keelbright
