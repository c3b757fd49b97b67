#include "KeelbrightCore/check/CheckPace.h"

namespace keelbright {

namespace {

constexpr qint64 second = 1'000;
constexpr qint64 window = 10 * second;

} // namespace

void CheckPace::add(qint64 milliseconds, qint64 readBytes)
{
    m_moments.push_back({milliseconds, readBytes});
    // One moment before the window stays, so that the whole window is measured.
    while (m_moments.size() > 2 && m_moments[1].milliseconds <= milliseconds - window)
        m_moments.pop_front();
}

std::optional<qint64> CheckPace::speed() const
{
    if (m_moments.empty())
        return std::nullopt;
    const qint64 time = m_moments.back().milliseconds - m_moments.front().milliseconds;
    if (time < second)
        return std::nullopt;
    const double bytes = static_cast<double>(m_moments.back().readBytes - m_moments.front().readBytes);
    return static_cast<qint64>(bytes * static_cast<double>(second) / static_cast<double>(time));
}

} // namespace keelbright
