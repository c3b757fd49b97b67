#include "KeelbrightCore/platform/system/UniqueFunction.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <type_traits>

namespace keelbright {
namespace {

using Task = UniqueFunction<void()>;

static_assert(std::is_nothrow_move_constructible_v<Task>);
static_assert(std::is_nothrow_move_assignable_v<Task>);
static_assert(!std::is_copy_constructible_v<Task>);
static_assert(!std::is_copy_assignable_v<Task>);
static_assert(!std::is_constructible_v<Task, int>);
static_assert(!std::is_constructible_v<UniqueFunction<void(int)>, void (*)(std::string)>);

/// Counts how often the one that was not moved from is destroyed.
class CountedCallable
{
public:
    explicit CountedCallable(int& destructions)
        : m_destructions(&destructions)
    {}

    CountedCallable(CountedCallable&& other) noexcept
        : m_destructions(std::exchange(other.m_destructions, nullptr))
    {}

    CountedCallable(const CountedCallable&) = delete;
    CountedCallable& operator=(const CountedCallable&) = delete;
    CountedCallable& operator=(CountedCallable&&) = delete;

    ~CountedCallable()
    {
        if (m_destructions)
            ++*m_destructions;
    }

    void operator()() const {}

private:
    int* m_destructions;
};

TEST(UniqueFunction, isEmptyUntilItIsGivenACallable)
{
    Task task;
    EXPECT_FALSE(task);
    EXPECT_FALSE(Task(nullptr));
    task = [] {};
    EXPECT_TRUE(task);
    task = nullptr;
    EXPECT_FALSE(task);
}

TEST(UniqueFunction, callsWithItsArgumentsAndReturnsTheResult)
{
    UniqueFunction<std::string(const std::string&, int)> repeat = [](const std::string& text, int count) {
        std::string repeated;
        for (int i = 0; i < count; ++i)
            repeated += text;
        return repeated;
    };
    EXPECT_EQ(repeat("ab", 3), "ababab");
    EXPECT_EQ(repeat("c", 2), "cc") << "as often as it is called";
}

TEST(UniqueFunction, passesReferencesAndMoveOnlyArgumentsThrough)
{
    UniqueFunction<void(int&, std::unique_ptr<int>)> add = [](int& sum, std::unique_ptr<int> summand) {
        sum += *summand;
    };
    int sum = 40;
    add(sum, std::make_unique<int>(2));
    EXPECT_EQ(sum, 42);
}

TEST(UniqueFunction, keepsWhatTheCallableChangesInItself)
{
    UniqueFunction<int()> next = [count = 0]() mutable { return ++count; };
    EXPECT_EQ(next(), 1);
    EXPECT_EQ(next(), 2);
}

TEST(UniqueFunction, ignoresTheResultOfACallableWhereNoneIsAskedFor)
{
    int calls = 0;
    Task task = [&calls] { return ++calls; };
    task();
    EXPECT_EQ(calls, 1);
}

TEST(UniqueFunction, capturesValuesThatCanOnlyBeMoved)
{
    UniqueFunction<int()> value = [owned = std::make_unique<int>(7)] { return *owned; };
    UniqueFunction<int()> moved = std::move(value);
    EXPECT_EQ(moved(), 7);
}

TEST(UniqueFunction, leavesTheSourceOfAMoveEmpty)
{
    Task source = [] {};
    Task target = std::move(source);
    EXPECT_FALSE(source); // NOLINT(bugprone-use-after-move): this is what the test asks
    EXPECT_TRUE(target);
    source = std::move(target);
    EXPECT_TRUE(source);
    EXPECT_FALSE(target); // NOLINT(bugprone-use-after-move)
}

TEST(UniqueFunction, takesPlainFunctionsAndCopiesACallableThatStaysWithTheCaller)
{
    UniqueFunction<int(int)> negate = +[](int value) { return -value; };
    EXPECT_EQ(negate(3), -3);
    const auto text = std::make_shared<int>(5);
    const auto read = [text] { return *text; };
    UniqueFunction<int()> copy = read;
    EXPECT_EQ(text.use_count(), 3) << "the test's, the lambda's and the copy's";
    EXPECT_EQ(copy(), 5);
}

TEST(UniqueFunction, destroysItsCallableOnce)
{
    int destructions = 0;
    {
        Task first = CountedCallable(destructions);
        Task second = std::move(first);
        second();
        EXPECT_EQ(destructions, 0);
    }
    EXPECT_EQ(destructions, 1);
}

TEST(UniqueFunction, destroysItsCallableWhenAnotherTakesItsPlace)
{
    int destructions = 0;
    Task task = CountedCallable(destructions);
    task = [] {};
    EXPECT_EQ(destructions, 1);
}

} // namespace
} // namespace keelbright
