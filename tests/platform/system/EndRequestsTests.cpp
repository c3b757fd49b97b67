#include "KeelbrightCore/platform/system/EndRequests.h"

#include <QCoreApplication>
#include <csignal>
#include <gtest/gtest.h>

namespace keelbright {
namespace {

class EndRequestsTest : public ::testing::Test
{
protected:
    ~EndRequestsTest() override
    {
        for (const int number : {SIGTERM, SIGINT})
            static_cast<void>(std::signal(number, SIG_DFL));
    }

    static void sendToOneself(int number) { ASSERT_EQ(std::raise(number), 0); }

    /// The action of the process for a signal.
    static auto action(int number)
    {
        struct sigaction present = {};
        ::sigaction(number, nullptr, &present);
        return present.sa_handler;
    }

    int argc = 1;
    char name[5] = "test";
    char* argv[1] = {name};
    QCoreApplication application{argc, argv};
};

TEST_F(EndRequestsTest, eachRequestArrivesInTheEventLoop)
{
    for (const int number : {SIGTERM, SIGINT}) {
        static_cast<void>(std::signal(number, SIG_DFL));
        EndRequests requests;
        int count = 0;
        QObject::connect(&requests, &EndRequests::received, &requests, [&count] {
            ++count;
            QCoreApplication::quit();
        });
        sendToOneself(number);
        EXPECT_EQ(count, 0);
        QCoreApplication::exec();
        EXPECT_EQ(count, 1);
    }
}

TEST_F(EndRequestsTest, aSecondRequestEndsTheProcess)
{
    const EndRequests requests;
    sendToOneself(SIGTERM);
    EXPECT_EQ(action(SIGTERM), SIG_DFL);
    EXPECT_EXIT(static_cast<void>(std::raise(SIGTERM)), ::testing::KilledBySignal(SIGTERM), "");
}

TEST_F(EndRequestsTest, afterwardsTheProcessEndsAsBefore)
{
    {
        const EndRequests requests;
        EXPECT_NE(action(SIGTERM), SIG_DFL);
    }
    EXPECT_EQ(action(SIGTERM), SIG_DFL);
    EXPECT_EQ(action(SIGINT), SIG_DFL);
}

TEST_F(EndRequestsTest, whatTheProcessWasStartedToIgnoreStaysIgnored)
{
    static_cast<void>(std::signal(SIGINT, SIG_IGN));
    const EndRequests requests;
    EXPECT_EQ(action(SIGINT), SIG_IGN);
    EXPECT_NE(action(SIGTERM), SIG_IGN);
}

} // namespace
} // namespace keelbright
