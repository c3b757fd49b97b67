#include "Keelbright/state/Delivery.h"

#include <QCoreApplication>
#include <QPromise>
#include <QThread>
#include <gtest/gtest.h>
#include <memory>
#include <thread>

namespace keelbright::testing {

namespace {

class DeliveryTest : public ::testing::Test
{
protected:
    void start(QObject* owner)
    {
        promise.start();
        deliver(promise.future(), owner, [this](int number) {
            received.append(number);
            receivingThread = QThread::currentThread();
        });
    }

    void finishFromAnotherThread()
    {
        std::thread([this] {
            promise.addResult(7);
            promise.finish();
        }).join();
    }

    int argc = 1;
    char program[5] = "test";
    char* argv[1] = {program};
    QCoreApplication application{argc, argv};
    QPromise<int> promise;
    QList<int> received;
    QThread* receivingThread = nullptr;
};

} // namespace

TEST_F(DeliveryTest, theResultComesOnceAndOnTheOwnersThread)
{
    QObject owner;
    start(&owner);
    finishFromAnotherThread();
    EXPECT_TRUE(received.isEmpty());
    QCoreApplication::processEvents();
    EXPECT_EQ(received, QList{7});
    EXPECT_EQ(receivingThread, owner.thread());
    QCoreApplication::processEvents();
    EXPECT_EQ(received, QList{7});
}

TEST_F(DeliveryTest, aResultThatIsThereAlreadyStillComesLater)
{
    QObject owner;
    promise.start();
    finishFromAnotherThread();
    deliver(promise.future(), &owner, [this](int number) { received.append(number); });
    EXPECT_TRUE(received.isEmpty());
    QCoreApplication::processEvents();
    EXPECT_EQ(received, QList{7});
}

TEST_F(DeliveryTest, nothingIsLeftBehindInTheOwner)
{
    QObject owner;
    start(&owner);
    finishFromAnotherThread();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(owner.children().isEmpty());
}

TEST_F(DeliveryTest, anOwnerDestroyedBeforeTheResultReceivesNothing)
{
    auto owner = std::make_unique<QObject>();
    start(owner.get());
    owner.reset();
    finishFromAnotherThread();
    QCoreApplication::processEvents();
    EXPECT_TRUE(received.isEmpty());
}

TEST_F(DeliveryTest, anOwnerDestroyedWithTheResultOnItsWayReceivesNothing)
{
    auto owner = std::make_unique<QObject>();
    start(owner.get());
    finishFromAnotherThread();
    owner.reset();
    QCoreApplication::processEvents();
    EXPECT_TRUE(received.isEmpty());
}

TEST_F(DeliveryTest, aCancelledOperationDeliversNothing)
{
    QObject owner;
    start(&owner);
    promise.future().cancel();
    finishFromAnotherThread();
    QCoreApplication::processEvents();
    EXPECT_TRUE(received.isEmpty());
}

TEST_F(DeliveryTest, anOwnerMayGoWhileItReceives)
{
    auto owner = std::make_unique<QObject>();
    promise.start();
    deliver(promise.future(), owner.get(), [&](int number) {
        received.append(number);
        owner.reset();
    });
    finishFromAnotherThread();
    QCoreApplication::processEvents();
    EXPECT_EQ(received, QList{7});
}

} // namespace keelbright::testing
