#pragma once

#include "KeelbrightCore/backup/BackupEngine.h"
#include "KeelbrightCore/backup/PendingItems.h"
#include "tests/backup/FakeCopyDestination.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QSemaphore>
#include <QThread>
#include <atomic>
#include <functional>
#include <gtest/gtest.h>
#include <thread>

namespace keelbright::testing {

/// The fixture of tests that complete pending items on a destination without a file system.
class PendingItemsTest : public ::testing::Test
{
protected:
    using Prepared = std::expected<std::unique_ptr<PreparedCopy>, FileError>;

    /// Does the part of the run on a thread of its own while the event loop turns.
    void onRunThread(const std::function<void()>& part)
    {
        QEventLoop loop;
        std::thread thread([&] {
            runThread = QThread::currentThread();
            part();
            QCoreApplication::postEvent(&loop, new QEvent(QEvent::Quit));
        });
        loop.exec();
        thread.join();
    }

    void run(const std::function<void(PendingItems&)>& part, qsizetype maximum = 1'000)
    {
        FakeCopyDestination destination(maximum, preparing());
        onRunThread([&] {
            PendingItems pending(*task, destination);
            part(pending);
        });
    }

    [[nodiscard]] Preparing preparing()
    {
        return [this](const QByteArray& item, const Cancellation&) {
            noteThread(item);
            return prepare(item);
        };
    }

    /// Adds copies of these items and completes them.
    void runWhole(const QByteArrayList& items, qsizetype maximum = 1'000)
    {
        run(
            [&](PendingItems& pending) {
                for (const QByteArray& item : items)
                    pending.addCopy({nullptr, nullptr, item, EntryType::regularFile},
                                    QString::fromUtf8(item));
                pending.completeAll();
            },
            maximum);
    }

    /// Holds the first item, where the run prepares it, until another thread has begun to work.
    void noteThread(const QByteArray& item)
    {
        const bool isRun = QThread::currentThread() == runThread;
        if (!isRun && ++elsewhere == 1)
            othersWork.release();
        if (isRun && item == waitsForOthers) {
            othersWork.acquire();
            waitsForOthers.clear(); // an item may be prepared twice
        }
    }

    [[nodiscard]] static QByteArrayList numbered(int count)
    {
        QByteArrayList items;
        for (int number = 0; number < count; ++number)
            items.append("f" + QByteArray::number(number).rightJustified(4, '0'));
        return items;
    }

    [[nodiscard]] static std::unexpected<FileError> failed(const QByteArray& item, int code)
    {
        return failure(FileError::Operation::copied, item, code);
    }

    std::function<Prepared(const QByteArray&)> prepare = [this](const QByteArray& item) -> Prepared {
        record.append("prepared " + item);
        return std::make_unique<RecordedCopy>(item, record, 1);
    };

    int argc = 1;
    char name[5] = "test";
    char* argv[1] = {name};
    QCoreApplication application{argc, argv};
    BackupEngine engine;
    std::shared_ptr<BackupTask> task = BackupTask::create(engine);
    CopyRecord record;
    std::atomic<QThread*> runThread = nullptr;
    std::atomic<int> elsewhere = 0; ///< items that other threads have prepared
    QByteArray waitsForOthers;
    QSemaphore othersWork;
};

} // namespace keelbright::testing
