#include "Keelbright/state/RemainingTime.h"

#include "tests/support/Printing.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

#include <cmath>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

constexpr qint64 megabyte = 1'000'000;

/// A piece of work that is looked at once a second.
class RemainingTimeTest : public ::testing::Test
{
protected:
    /// Goes on at a speed in bytes a second.
    void work(std::chrono::seconds time, qint64 speed)
    {
        for (std::chrono::seconds passed = 0s; passed < time; passed += 1s)
            step(speed);
    }

    void step(qint64 bytes)
    {
        remaining.add(now, done, total);
        note();
        now += 1s;
        done += bytes;
    }

    /// Keeps each text that differs from the one before.
    void note()
    {
        if (texts.isEmpty() || texts.last() != remaining.text())
            texts.append(remaining.text());
    }

    /// Works at that speed up to the first text, and gives it.
    [[nodiscard]] QString firstText(qint64 speed)
    {
        while (remaining.text().isEmpty() && done < total)
            step(speed);
        return remaining.text();
    }

    qint64 total = 1'000 * megabyte;
    qint64 done = 0;
    std::chrono::milliseconds now = 5'000s; // of a clock that began at any time
    RemainingTime remaining;
    QStringList texts;
};

/// The text when a work that goes at a steady speed still takes so long.
QString textBefore(std::chrono::seconds rest)
{
    const std::chrono::seconds spent = 60s + rest / 10;
    const std::chrono::seconds step = std::max<std::chrono::seconds>(1s, spent / 600);
    const qint64 total = (spent + rest).count() * megabyte;
    RemainingTime remaining;
    for (std::chrono::seconds passed = spent % step; passed <= spent; passed += step)
        remaining.add(passed, passed.count() * megabyte, total);
    return remaining.text();
}

} // namespace

TEST_F(RemainingTimeTest, isUnknownBeforeAnythingIsDone)
{
    EXPECT_EQ(remaining.value(), std::nullopt);
    EXPECT_EQ(remaining.text(), QString());
    work(60s, 0);
    EXPECT_EQ(texts, QStringList{QString()});
}

TEST_F(RemainingTimeTest, isShownFromATwentiethOn)
{
    EXPECT_EQ(firstText(2 * megabyte), u"About 8 minutes left"_s);
    EXPECT_GE(done - 2 * megabyte, total / 20);
    EXPECT_LE(done - 2 * megabyte, total / 20 + 2 * megabyte);
    EXPECT_EQ(remaining.value(), 8min);
}

TEST_F(RemainingTimeTest, isNotShownBeforeItsEstimatesAgreeForFiveSeconds)
{
    EXPECT_EQ(firstText(50 * megabyte), u"Less than a minute left"_s);
    EXPECT_GE(now, 5'006s);
    EXPECT_LE(now, 5'009s);
}

TEST_F(RemainingTimeTest, isNotShownWhileTheSpeedIsUnsteady)
{
    // Each stretch is a third as fast as the one before, so the end moves away faster than time goes by.
    qint64 speed = 9 * megabyte;
    for (int stretch = 0; stretch < 4; ++stretch, speed /= 3)
        work(4s, speed);
    EXPECT_EQ(texts, QStringList{QString()});
    EXPECT_GE(done, total / 20);
}

TEST_F(RemainingTimeTest, goesDownStepByStepAtASteadySpeed)
{
    work(250s, 4 * megabyte);
    EXPECT_EQ(texts, (QStringList{QString(), u"About 4 minutes left"_s, u"About 3 minutes left"_s,
                                  u"About 2 minutes left"_s, u"About 1 minute left"_s,
                                  u"Less than a minute left"_s}));
}

TEST_F(RemainingTimeTest, neverRisesAtASpeedThatVaries)
{
    // Fast and slow spells of some seconds, and a third more or less within them.
    const auto speedAt = [](int second) {
        const double spell = 1 + 0.3 * std::sin(second / 4.0);
        const double noise = 1 + 0.33 * std::sin(second * 2.7);
        return static_cast<qint64>(spell * noise * static_cast<double>(megabyte));
    };
    std::optional<std::chrono::seconds> before;
    for (int second = 0; done <= total; ++second) {
        step(speedAt(second));
        if (before && remaining.value()) {
            EXPECT_LE(*remaining.value(), *before) << "after " << second << " s";
        }
        EXPECT_FALSE(before && !remaining.value()) << "it goes again after " << second << " s";
        before = remaining.value();
    }
    EXPECT_EQ(before, 0s);
}

TEST_F(RemainingTimeTest, risesOnlyAfterItWasTooLowForAWhile)
{
    work(100s, 4 * megabyte);
    EXPECT_EQ(remaining.text(), u"About 3 minutes left"_s); // 150 s and a little
    const std::chrono::milliseconds slowSince = now;
    while (remaining.value() <= 3min && now < slowSince + 300s)
        step(megabyte);
    EXPECT_GE(now, slowSince + 15s) << "a slow spell is no news";
    EXPECT_LT(now, slowSince + 90s);
    EXPECT_GE(*remaining.value(), 4min);
}

TEST_F(RemainingTimeTest, doesNotRiseForASpellThatEnds)
{
    work(100s, 4 * megabyte);
    const auto before = remaining.value();
    work(12s, megabyte / 10);
    work(20s, 4 * megabyte);
    EXPECT_LE(remaining.value(), before);
    EXPECT_EQ(texts.count(u"About 4 minutes left"_s), 1);
}

TEST_F(RemainingTimeTest, largeFilesThatCountWhenTheyAreCompleteDoNotShakeIt)
{
    total = 40'000 * megabyte;
    // A file of 1,000 MB every 25 seconds.
    for (int file = 0; file < 40; ++file) {
        work(24s, 0);
        step(1'000 * megabyte);
    }
    std::optional<int> first;
    for (qsizetype i = 0; i < texts.size(); ++i) {
        if (!texts.at(i).isEmpty() && !first)
            first = static_cast<int>(i);
    }
    ASSERT_TRUE(first.has_value());
    EXPECT_EQ(
        texts.mid(*first),
        (QStringList{u"About 15 minutes left"_s, u"About 10 minutes left"_s, u"About 9 minutes left"_s,
                     u"About 8 minutes left"_s, u"About 7 minutes left"_s, u"About 6 minutes left"_s,
                     u"About 5 minutes left"_s, u"About 4 minutes left"_s, u"About 3 minutes left"_s,
                     u"About 2 minutes left"_s, u"About 1 minute left"_s, u"Less than a minute left"_s}));
}

TEST_F(RemainingTimeTest, goesWhileNothingMoves)
{
    work(60s, 4 * megabyte);
    EXPECT_EQ(remaining.text(), u"About 3 minutes left"_s);
    work(60s, 0);
    EXPECT_EQ(remaining.text(), QString());
    work(120s, 4 * megabyte);
    EXPECT_NE(remaining.text(), QString());
}

TEST_F(RemainingTimeTest, goesWhereThereIsMoreThanWasExpected)
{
    work(60s, 4 * megabyte);
    EXPECT_NE(remaining.text(), QString());
    done = total + 1;
    step(0);
    EXPECT_EQ(remaining.text(), QString());
}

TEST_F(RemainingTimeTest, isUnknownWhereNothingIsToBeDone)
{
    total = 0;
    work(30s, 0);
    EXPECT_EQ(remaining.text(), QString());
}

TEST_F(RemainingTimeTest, doesNotCountTheTimeBeforeTheFirstByte)
{
    work(300s, 0);
    EXPECT_EQ(firstText(4 * megabyte), u"About 4 minutes left"_s);
}

TEST_F(RemainingTimeTest, forgetsTheSpeedOfLongAgo)
{
    total = 10'000 * megabyte;
    work(100s, 50 * megabyte);
    work(300s, 5 * megabyte);
    // 3,500 MB at 5 MB a second.
    EXPECT_EQ(done, 6'500 * megabyte);
    EXPECT_EQ(remaining.text(), u"About 10 minutes left"_s);
}

TEST_F(RemainingTimeTest, passesOverWhatComesTooSoon)
{
    for (int call = 0; call < 100; ++call)
        remaining.add(now + std::chrono::milliseconds(call * 9), total / 10 + call, total);
    EXPECT_EQ(remaining.value(), std::nullopt);
}

TEST(RemainingTime, isRoundedAsPeopleDo)
{
    EXPECT_EQ(textBefore(100s), u"About 2 minutes left"_s);
    EXPECT_EQ(textBefore(4min), u"About 4 minutes left"_s);
    EXPECT_EQ(textBefore(10min), u"About 10 minutes left"_s);
    EXPECT_EQ(textBefore(28min), u"About 30 minutes left"_s);
    EXPECT_EQ(textBefore(60min), u"About 1 hour left"_s);
    EXPECT_EQ(textBefore(85min), u"About 1½ hours left"_s);
    EXPECT_EQ(textBefore(2h), u"About 2 hours left"_s);
    EXPECT_EQ(textBefore(7h + 20min), u"About 7 hours left"_s);
    EXPECT_EQ(textBefore(75h), u"About 3 days left"_s);
    EXPECT_EQ(textBefore(200 * 24h), QString());
}

} // namespace keelbright
