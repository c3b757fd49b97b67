#pragma once

#include "Keelbright/state/OrganizerVM.h"
#include "KeelbrightCore/platform/system/TaskPools.h"
#include "KeelbrightCore/records/ActivityStore.h"
#include "tests/support/FakeFolderChooser.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <QCoreApplication>
#include <QTest>
#include <gtest/gtest.h>

namespace keelbright::testing {

/// A machine with a Downloads folder and the organizer's model.
class OrganizerVMFixture : public ::testing::Test
{
protected:
    ~OrganizerVMFixture() override { waitForTasks(); }

    /// Until no background task reads the machine any more.
    static void waitForTasks()
    {
        EXPECT_TRUE(QTest::qWaitFor([] { return !TaskPools::isAtWork(); }, 20'000));
    }

    void write(const QByteArray& path, qsizetype bytes) const
    {
        mac.writeFile("Users/mira/Downloads/" + path, QByteArray(bytes, 'x'));
    }

    [[nodiscard]] FileURL downloads() const { return mac.home().appending(QStringLiteral("Downloads")); }

    [[nodiscard]] bool exists(const QString& path)
    {
        return mac.fileManager().fileExists(downloads().appending(path)).exists;
    }

    /// Scans the Downloads folder and waits for the plan.
    void scanDownloads()
    {
        model.scan(OrganizerVM::QuickTarget::downloads);
        waitForPlan();
    }

    void waitForPlan()
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return !model.isScanning(); }, 20'000));
    }

    /// "category: names" of each proposal.
    [[nodiscard]] QStringList plan() const
    {
        QStringList lines;
        for (const OrganizeProposal& each : model.proposals()) {
            QStringList names;
            for (const FileProposal& file : each.files)
                names.append(file.name());
            lines.append(rawValue(each.category) + QStringLiteral(": ") + names.join(QStringLiteral(", ")));
        }
        return lines;
    }

    [[nodiscard]] const OrganizeProposal& proposal(qsizetype index) const { return model.proposals()[index]; }

    [[nodiscard]] QUuid fileId(qsizetype proposalIndex, qsizetype index) const
    {
        return proposal(proposalIndex).files[index].id;
    }

    /// The ids of all files and of all categories of the plan.
    [[nodiscard]] QSet<QUuid> allFiles() const
    {
        QSet<QUuid> ids;
        for (const OrganizeProposal& each : model.proposals()) {
            for (const FileProposal& file : each.files)
                ids.insert(file.id);
        }
        return ids;
    }

    [[nodiscard]] QSet<QUuid> allCategories() const
    {
        QSet<QUuid> ids;
        for (const OrganizeProposal& each : model.proposals())
            ids.insert(each.id);
        return ids;
    }

    int argc = 1;
    char name[5] = "test";
    char* argv[1] = {name};
    QCoreApplication application{argc, argv};
    TestMac mac;
    ActivityStore activityStore{mac.fileManager().applicationSupportDirectory()};
    FakeFolderChooser chooser;
    OrganizerVM model{activityStore, chooser, mac.clock()};
};

} // namespace keelbright::testing
