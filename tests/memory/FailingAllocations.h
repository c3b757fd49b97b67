#pragma once

namespace keelbright::testing {

/// Lets `operator new` fail, in the program that this is linked into: in all threads but the one that arms
/// it, counted from then on. One at a time; disarmed when it goes.
///
/// What the containers of Qt take from the C library is left alone: some of them do not look whether they
/// got it, and end the program.
class FailingAllocations
{
public:
    /// Whose allocations are counted and fail.
    enum class Of {
        all,
        program, ///< not those that a library makes by itself: Qt's reader of XML ends the program then
    };

    /// Every allocation from the `first` on (counted from 0), `count` in all, fails.
    FailingAllocations(long first, long count, Of of = Of::all);
    ~FailingAllocations();
    FailingAllocations(const FailingAllocations&) = delete;
    FailingAllocations& operator=(const FailingAllocations&) = delete;

    /// How many have failed.
    [[nodiscard]] long failed() const;
};

} // namespace keelbright::testing
