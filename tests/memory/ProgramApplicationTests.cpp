// Event handlers of the program for which memory runs out.

#include "Keelbright/screens/shell/ProgramApplication.h"
#include "tests/memory/FailingAllocations.h"

#include <QEvent>
#include <QSemaphore>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <thread>
#include <tuple>
#include <vector>

namespace keelbright::testing {
namespace {

/// While it lives, no allocation of this thread succeeds.
class NoMemory
{
public:
    NoMemory() { m_hasBegun.acquire(); }

    ~NoMemory()
    {
        m_mayEnd.release();
        m_thread.join();
    }

    NoMemory(const NoMemory&) = delete;
    NoMemory& operator=(const NoMemory&) = delete;

private:
    QSemaphore m_hasBegun;
    QSemaphore m_mayEnd;
    // The thread that begins it is spared.
    std::thread m_thread{[this] {
        const FailingAllocations failing(0, std::numeric_limits<long>::max());
        m_hasBegun.release();
        m_mayEnd.acquire();
    }};
};

/// Needs memory for each event.
class Keeper : public QObject
{
public:
    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::User)
            return QObject::event(event);
        ++begun;
        kept.push_back(std::make_unique<int>(begun));
        return true;
    }

    int begun = 0;
    std::vector<std::unique_ptr<int>> kept;
};

class ProgramApplicationTests : public ::testing::Test
{
protected:
    // Before the application that looks at it.
    bool m_isOffscreen = qputenv("QT_QPA_PLATFORM", "offscreen");
    int m_argumentCount = 1;
    char m_name[6] = "tests";
    char* m_arguments[2] = {m_name, nullptr};
    ProgramApplication m_application{m_argumentCount, m_arguments};
    Keeper m_keeper;
};

} // namespace

TEST_F(ProgramApplicationTests, anEventThatMemoryRunsOutForIsLeftUndone)
{
    QEvent event(QEvent::User);
    bool isDone = true;
    {
        const NoMemory noMemory;
        isDone = QCoreApplication::sendEvent(&m_keeper, &event);
    }
    EXPECT_FALSE(isDone);
    EXPECT_EQ(m_keeper.begun, 1);
    EXPECT_TRUE(m_keeper.kept.empty());
}

TEST_F(ProgramApplicationTests, theNextEventIsHandledLikeAnyOther)
{
    QEvent event(QEvent::User);
    {
        const NoMemory noMemory;
        std::ignore = QCoreApplication::sendEvent(&m_keeper, &event);
    }
    EXPECT_TRUE(QCoreApplication::sendEvent(&m_keeper, &event));
    EXPECT_EQ(m_keeper.begun, 2);
    EXPECT_EQ(m_keeper.kept.size(), 1U);
}

TEST_F(ProgramApplicationTests, theEventLoopGoesOnBehindAnEventThatMemoryRunsOutFor)
{
    bool isPassed = false;
    const auto runOut = [this, &isPassed] {
        const NoMemory noMemory;
        m_keeper.kept.push_back(std::make_unique<int>(0));
        isPassed = true;
    };
    bool isNextDone = false;
    QMetaObject::invokeMethod(&m_keeper, runOut, Qt::QueuedConnection);
    QMetaObject::invokeMethod(
        &m_keeper,
        [&isNextDone] {
            isNextDone = true;
            QCoreApplication::exit(5);
        },
        Qt::QueuedConnection);
    EXPECT_EQ(QCoreApplication::exec(), 5);
    EXPECT_FALSE(isPassed);
    EXPECT_TRUE(isNextDone);
}

} // namespace keelbright::testing
