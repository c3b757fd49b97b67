#pragma once

#include "Keelbright/state/JunkCleanerVM.h"
#include "KeelbrightCore/records/ActivityStore.h"
#include "tests/support/BackgroundWork.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"
#include "tests/support/WatchedTrash.h"

#include <QCoreApplication>
#include <QTest>
#include <gtest/gtest.h>

namespace keelbright::testing {

/// A machine with junk and the model of the junk cleaner.
class JunkCleanerVMFixture : public ::testing::Test
{
protected:
    ~JunkCleanerVMFixture() override { waitForBackgroundWork(); }

    /// A folder of junk below the home's Library, with a file of that many bytes.
    FileURL junk(const QByteArray& path, qsizetype bytes) const
    {
        mac.writeFile("Users/mira/Library/" + path + "/file", QByteArray(bytes, 'x'));
        return mac.home().appendingNative("Library/" + path);
    }

    /// Two caches (30 and 10 bytes), two logs (9 and 8 bytes) and one device backup (1 byte).
    void addJunk() const
    {
        junk("Caches/large", 30);
        junk("Caches/small", 10);
        junk("Logs/one", 9);
        junk("Logs/two", 8);
        junk("Application Support/MobileSync/Backup/phone", 1);
    }

    void scan()
    {
        model.scan();
        ASSERT_TRUE(QTest::qWaitFor([&] { return !model.isScanning(); }, 20'000));
    }

    [[nodiscard]] JunkItem item(const QString& name) const
    {
        for (const JunkCategory& category : model.categories()) {
            for (const JunkItem& one : category.items) {
                if (one.name() == name)
                    return one;
            }
        }
        ADD_FAILURE() << "not listed: " << name.toStdString();
        return {.url = {}, .sizeBytes = 0};
    }

    void select(const QStringList& names)
    {
        for (const QString& name : names)
            model.setSelected(item(name).id, true);
    }

    /// "userCaches: large small" for each category.
    [[nodiscard]] QStringList listed() const
    {
        QStringList lines;
        for (const JunkCategory& category : model.categories()) {
            QStringList names;
            for (const JunkItem& one : category.items)
                names.append(one.name());
            lines.append(category.id + QStringLiteral(": ") + names.join(u' '));
        }
        return lines;
    }

    [[nodiscard]] FileURL trashed(const QByteArray& name) const
    {
        return mac.home().appendingNative(".local/share/Trash/files/" + name);
    }

    [[nodiscard]] bool exists(const FileURL& url) { return fileManager.fileExists(url).exists; }

    /// "scanning; userLogs: one; shows userLogs; 1 selected": the model as an observer finds it.
    [[nodiscard]] QString summary() const
    {
        const QString shown = model.selectedCategoryID().value_or(QStringLiteral("nothing"));
        return (model.isScanning() ? QStringLiteral("scanning; ") : QString()) +
               listed().join(QStringLiteral(", ")) + QStringLiteral("; shows ") + shown +
               QStringLiteral("; ") + QString::number(model.selectedItemIDs().size()) +
               QStringLiteral(" selected");
    }

    /// What an observer finds at each change that `act` makes.
    [[nodiscard]] QStringList changesOf(const std::function<void()>& act) const
    {
        QStringList summaries;
        QObject context;
        QObject::connect(&model, &JunkCleanerVM::changed, &context, [&] { summaries.append(summary()); });
        act();
        return summaries;
    }

    int argc = 1;
    char program[5] = "test";
    char* argv[1] = {program};
    QCoreApplication application{argc, argv};
    TestMac mac;
    WatchedTrash fileManager{mac.root()};
    FileManagerGuard guard{fileManager};
    ActivityStore activityStore{fileManager.applicationSupportDirectory()};
    JunkCleanerVM model{activityStore, mac.clock()};
};

} // namespace keelbright::testing
