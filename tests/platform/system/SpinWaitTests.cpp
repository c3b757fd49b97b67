#include "KeelbrightCore/platform/system/SpinWait.h"

#include <QThread>
#include <chrono>
#include <gtest/gtest.h>
#include <thread>

#ifdef Q_OS_LINUX
#include <sched.h>
#endif

namespace keelbright {
namespace {

/// A condition that becomes true at a given check and counts how often it is checked.
class CountedCondition
{
public:
    explicit CountedCondition(int trueAt)
        : m_trueAt(trueAt)
    {}

    bool operator()() { return ++checks >= m_trueAt; }

    int checks = 0;

private:
    int m_trueAt;
};

constexpr int never = 1'000'000'000;

TEST(SpinWait, checksOnceWhereTheConditionIsTrueAtFirst)
{
    SpinWait wait;
    const SpinWait other;
    CountedCondition condition(1);
    EXPECT_TRUE(wait.until(std::ref(condition), other));
    EXPECT_EQ(condition.checks, 1);
}

TEST(SpinWait, seesAConditionThatBecomesTrueMeanwhile)
{
    SpinWait wait;
    const SpinWait other;
    CountedCondition condition(5);
    EXPECT_TRUE(wait.until(std::ref(condition), other));
    EXPECT_EQ(condition.checks, 5);
}

TEST(SpinWait, givesUpAfterAMoment)
{
    SpinWait wait;
    const SpinWait other;
    CountedCondition condition(never);
    EXPECT_FALSE(wait.until(std::ref(condition), other));
    EXPECT_GT(condition.checks, 16) << "it has spun";
}

TEST(SpinWait, doesNotSpinWhereTheOtherThreadRunsOnTheSameProcessor)
{
    SpinWait wait;
    SpinWait other;
    CountedCondition condition(never);
    other.noteProcessor();
    EXPECT_FALSE(wait.until(std::ref(condition), other));
    EXPECT_EQ(condition.checks, 2) << "before and after";
}

TEST(SpinWait, staysWhereItDoesNotKnowThatBothAreOnOneProcessor)
{
    SpinWait wait;
    const SpinWait other;
    EXPECT_FALSE(wait.leaveProcessorOf(other));
    wait.noteProcessor();
    EXPECT_FALSE(wait.leaveProcessorOf(other));
}

#ifdef Q_OS_LINUX

cpu_set_t allowedProcessors()
{
    cpu_set_t processors;
    CPU_ZERO(&processors);
    EXPECT_EQ(::sched_getaffinity(0, sizeof processors, &processors), 0);
    return processors;
}

/// Whether it is on another processor than one that was noted on this thread just before. The system may
/// bring the thread back at any moment.
bool hasLeft(SpinWait& wait)
{
    SpinWait other;
    other.noteProcessor();
    wait.noteProcessor();
    if (!wait.leaveProcessorOf(other))
        return false;
    CountedCondition condition(never);
    EXPECT_FALSE(wait.until(std::ref(condition), other));
    return condition.checks > 2; // it has spun
}

TEST(SpinWait, leavesTheProcessorOfTheOtherThreadAndMayUseAllAgain)
{
    if (QThread::idealThreadCount() < 2)
        GTEST_SKIP() << "there is no other processor";
    const cpu_set_t before = allowedProcessors();
    SpinWait wait;
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    bool left = false;
    while (!left && std::chrono::steady_clock::now() < deadline)
        left = hasLeft(wait);
    EXPECT_TRUE(left);
    const cpu_set_t after = allowedProcessors();
    EXPECT_TRUE(CPU_EQUAL(&before, &after));
}

TEST(SpinWait, leavesAtMostOnceAMillisecond)
{
    const auto start = std::chrono::steady_clock::now();
    SpinWait wait;
    int moves = 0;
    std::chrono::nanoseconds time{0};
    while (time < std::chrono::milliseconds(20)) {
        SpinWait other;
        other.noteProcessor();
        wait.noteProcessor();
        moves += wait.leaveProcessorOf(other) ? 1 : 0;
        time = std::chrono::steady_clock::now() - start;
    }
    EXPECT_LE(moves, time / std::chrono::milliseconds(1) + 1);
}

TEST(SpinWait, staysWhereTheThreadMayUseOneProcessorOnly)
{
    std::thread([] {
        cpu_set_t one;
        CPU_ZERO(&one);
        CPU_SET(static_cast<size_t>(::sched_getcpu()), &one);
        ASSERT_EQ(::sched_setaffinity(0, sizeof one, &one), 0);
        SpinWait wait;
        SpinWait other;
        other.noteProcessor();
        wait.noteProcessor();
        EXPECT_FALSE(wait.leaveProcessorOf(other));
        const cpu_set_t after = allowedProcessors();
        EXPECT_TRUE(CPU_EQUAL(&one, &after));
    }).join();
}

#endif

} // namespace
} // namespace keelbright
