#pragma once

#include <QtGlobal>
#include <chrono>
#include <vector>

namespace keelbright {

/// How many copies a burst names, and how many threads prepare them. What is quickest differs by drive, by
/// file system and by what else the machine does, so it is found by trying: now and then some bursts go
/// with more or with less, and what took less time stays. A value of the run's thread.
class BatchPace
{
public:
    struct Setting
    {
        qsizetype items;
        int workers;
        friend bool operator==(const Setting&, const Setting&) = default;
    };

    /// `maximumItems` 1 or more in a burst, `maximumWorkers` 1 or more.
    BatchPace(qsizetype maximumItems, int maximumWorkers);

    [[nodiscard]] const Setting& setting() const { return m_settings[m_current]; }

    /// To be called after each burst, with what it named and the time since the burst before.
    void note(qsizetype items, qint64 bytes, std::chrono::nanoseconds time);

private:
    void judge(double cost);
    void tryNeighbour();

    std::vector<Setting> m_settings; ///< from the smallest to the largest
    size_t m_current = 0;
    size_t m_best = 0;
    double m_bestCost = 0;
    bool m_goesUp = true;  ///< where the next trial goes
    int m_restingTime = 1; ///< measures of the best setting before the next trial
    int m_rested = 0;
    int m_bursts = 0; ///< in the measure under way
    double m_work = 0;
    std::chrono::nanoseconds m_time{0};
};

} // namespace keelbright
