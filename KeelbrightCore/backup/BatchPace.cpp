#include "KeelbrightCore/backup/BatchPace.h"

#include <algorithm>

namespace keelbright {

namespace {

/// A file costs as much as this many bytes of data, roughly, on every drive that was measured.
constexpr double bytesWorthAFile = 50'000;
constexpr int burstsInAMeasure = 4;
constexpr auto shortestMeasure = std::chrono::milliseconds(20);
/// A setting has to be this much cheaper: one and the same setting differs by less from measure to measure.
constexpr double worthChanging = 0.95;
constexpr double muchMore = 1.5;
constexpr int longestRest = 64;
constexpr BatchPace::Setting first = {64, 2};

} // namespace

BatchPace::BatchPace(qsizetype maximumItems, int maximumWorkers)
{
    for (const Setting wanted :
         {Setting{16, 1}, Setting{64, 1}, first, Setting{256, 2}, Setting{1'000, 2}, Setting{1'000, 4}}) {
        const Setting possible = {std::min(wanted.items, maximumItems),
                                  std::min(wanted.workers, maximumWorkers)};
        if (wanted == first)
            m_current = m_settings.size();
        if (m_settings.empty() || m_settings.back() != possible)
            m_settings.push_back(possible);
        m_current = std::min(m_current, m_settings.size() - 1);
    }
    m_best = m_current;
}

void BatchPace::note(qsizetype items, qint64 bytes, std::chrono::nanoseconds time)
{
    m_work += static_cast<double>(items) + static_cast<double>(bytes) / bytesWorthAFile;
    m_time += time;
    ++m_bursts;
    if (m_bursts < burstsInAMeasure || m_time < shortestMeasure)
        return;
    judge(static_cast<double>(m_time.count()) / m_work);
    m_bursts = 0;
    m_work = 0;
    m_time = {};
}

void BatchPace::judge(double cost)
{
    if (m_current == m_best) {
        // The drive or the machine is no longer what it was.
        if (cost > m_bestCost * muchMore || cost * muchMore < m_bestCost)
            m_restingTime = 1;
        m_bestCost = cost;
        if (++m_rested >= m_restingTime)
            tryNeighbour();
        return;
    }
    if (cost < m_bestCost * worthChanging) {
        m_best = m_current;
        m_bestCost = cost;
        m_restingTime = 1;
    } else {
        m_current = m_best;
        m_goesUp = !m_goesUp;
        m_restingTime = std::min(2 * m_restingTime, longestRest);
    }
    m_rested = 0;
}

void BatchPace::tryNeighbour()
{
    if (m_current == 0)
        m_goesUp = true;
    else if (m_current + 1 == m_settings.size())
        m_goesUp = false;
    if (m_settings.size() > 1)
        m_current = m_goesUp ? m_current + 1 : m_current - 1;
}

} // namespace keelbright
