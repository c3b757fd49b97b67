#pragma once

#include <QtGlobal>

#include <deque>
#include <optional>

namespace keelbright {

/// How fast a check goes, from what it has read in the last seconds. One thread.
class CheckPace
{
public:
    /// What has been read so far, at a moment of a clock that only goes on.
    void add(qint64 milliseconds, qint64 readBytes);

    /// Bytes a second over the last ten seconds; nothing before a second has been seen.
    [[nodiscard]] std::optional<qint64> speed() const;

private:
    struct Moment
    {
        qint64 milliseconds;
        qint64 readBytes;
    };

    std::deque<Moment> m_moments; ///< the oldest first
};

} // namespace keelbright
