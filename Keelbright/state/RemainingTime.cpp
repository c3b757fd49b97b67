#include "Keelbright/state/RemainingTime.h"

#include "KeelbrightCore/platform/text/PluralNumber.h"

#include <QCoreApplication>
#include <algorithm>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

using std::chrono::days;
using std::chrono::hours;
using std::chrono::milliseconds;
using std::chrono::minutes;
using std::chrono::seconds;

constexpr auto pause = 1s;           ///< between two estimates
constexpr auto shortestWindow = 30s; ///< over which the speed is measured at first
constexpr auto timeOfAgreement = 5s; ///< before the first estimate is shown
constexpr auto timeOfExcess = 15s;   ///< before a value rises
constexpr auto shortestIdleTime = 30s;
constexpr auto longestIdleTime = 3min; ///< that a single large file may take; then nothing seems to move
constexpr auto longest = days(100);    ///< what seems to take more than this hardly moves at all
constexpr qint64 firstShare = 20;      ///< nothing is shown before one part in so many is done
constexpr qint64 keptMoments = 200;

/// The number that people would say.
seconds rounded(seconds time)
{
    const auto toNearest = [time](seconds unit) { return (time + unit / 2) / unit * unit; };
    if (time < 1min)
        return 0s;
    if (time < 10min)
        return toNearest(1min);
    if (time < 57min + 30s)
        return toNearest(5min);
    if (time < 4h)
        return toNearest(30min);
    if (time < days(2))
        return toNearest(1h);
    return toNearest(days(1));
}

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(RemainingTime)
};

QString textOfMinutes(qint64 count)
{
    return count == 1 ? Texts::tr("About 1 minute left")
                      : Texts::tr("About %n minutes left", nullptr, pluralNumber(count));
}

QString textOfHours(seconds time)
{
    const qint64 whole = time / hours(1);
    if (time % hours(1) != 0s)
        return Texts::tr("About %1 hours left").arg(QString::number(whole) + u"½"_s);
    return whole == 1 ? Texts::tr("About 1 hour left")
                      : Texts::tr("About %n hours left", nullptr, pluralNumber(whole));
}

} // namespace

QString RemainingTime::text() const
{
    if (!m_shown)
        return {};
    const seconds time = *m_shown;
    if (time < 1min)
        return Texts::tr("Less than a minute left");
    if (time < 1h)
        return textOfMinutes(time / minutes(1));
    if (time < days(2))
        return textOfHours(time);
    return Texts::tr("About %n days left", nullptr, pluralNumber(time / days(1)));
}

void RemainingTime::add(Milliseconds moment, qint64 doneBytes, qint64 totalBytes)
{
    if (doneBytes > totalBytes || totalBytes <= 0) {
        hide();
        return;
    }
    if (m_counted && moment - *m_counted < pause)
        return;
    m_counted = moment;
    note(moment, doneBytes);
    const auto remaining = estimate(moment, totalBytes - doneBytes);
    if (!remaining) {
        hide();
        return;
    }
    const bool isFarEnough = doneBytes >= totalBytes / firstShare;
    const bool agrees = isSteady(moment, *remaining);
    if (m_shown || (agrees && isFarEnough))
        show(moment, *remaining);
}

/// Keeps only moments at which something had been done: a large file counts when it is complete, and the
/// time that it takes must not look like a slow one.
void RemainingTime::note(Milliseconds moment, qint64 doneBytes)
{
    // The time before the first file is complete, which begins with counting, says nothing of the speed.
    if (doneBytes == 0) {
        m_moments.clear();
        return;
    }
    if (!m_moments.empty() && doneBytes == m_moments.back().doneBytes)
        return;
    if (m_moments.size() >= 2) {
        const Milliseconds gap = (moment - m_moments.front().at) / keptMoments;
        if (m_moments.back().at - m_moments[m_moments.size() - 2].at < gap)
            m_moments.pop_back();
    }
    m_moments.push_back({moment, doneBytes});
}

std::optional<RemainingTime::Seconds> RemainingTime::estimate(Milliseconds moment,
                                                              qint64 remainingBytes) const
{
    if (m_moments.size() < 2)
        return std::nullopt;
    const Moment& last = m_moments.back();
    const Milliseconds spent = last.at - m_moments.front().at;
    const Milliseconds idle = moment - last.at;
    if (idle > std::clamp<Milliseconds>(spent / 2, shortestIdleTime, longestIdleTime))
        return std::nullopt;
    // The later half of the work so far: long enough to be calm, and what is long past does not count.
    const Milliseconds window = std::max<Milliseconds>(shortestWindow, spent / 2);
    const auto after = std::ranges::upper_bound(m_moments, last.at - window, {}, &Moment::at);
    const Moment& first = after == m_moments.begin() ? *after : *std::prev(after);
    const auto done = static_cast<double>(last.doneBytes - first.doneBytes);
    if (done <= 0)
        return std::nullopt;
    const std::chrono::duration<double> time = last.at - first.at;
    const auto remaining = time * (static_cast<double>(remainingBytes) / done) - idle;
    if (remaining > longest)
        return std::nullopt;
    return std::max(std::chrono::duration_cast<Seconds>(remaining), 0s);
}

bool RemainingTime::isSteady(Milliseconds moment, Seconds remaining)
{
    m_guesses.push_back({moment, moment + remaining});
    while (m_guesses.size() > 2 && m_guesses[1].at <= moment - timeOfAgreement)
        m_guesses.pop_front();
    if (moment - m_guesses.front().at < timeOfAgreement)
        return false;
    const auto [earliest, latest] = std::ranges::minmax(m_guesses, {}, &Guess::end);
    return latest.end - earliest.end <= std::max<Milliseconds>(timeOfAgreement, remaining / 5);
}

void RemainingTime::show(Milliseconds moment, Seconds remaining)
{
    const Seconds next = rounded(remaining);
    if (!m_shown || next <= *m_shown) {
        m_shown = next;
        m_excess.reset();
        return;
    }
    // A little more than is shown is no reason to change it.
    if (remaining <= *m_shown + *m_shown / 3) {
        m_excess.reset();
        return;
    }
    if (!m_excess)
        m_excess = Excess{moment, next};
    m_excess->lowest = std::min(m_excess->lowest, next);
    if (moment - m_excess->since < timeOfExcess)
        return;
    m_shown = m_excess->lowest;
    m_excess.reset();
}

void RemainingTime::hide()
{
    m_guesses.clear();
    m_shown.reset();
    m_excess.reset();
}

} // namespace keelbright
