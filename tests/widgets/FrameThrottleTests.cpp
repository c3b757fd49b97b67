#include "Keelbright/widgets/FrameThrottle.h"

#include "tests/support/Frames.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace keelbright {

namespace {

constexpr int patience = 60'000; // milliseconds

} // namespace

TEST(FrameThrottle, manyRequestsInOneTurnGiveOneRedraw)
{
    FrameThrottle throttle;
    const QSignalSpy frames(&throttle, &FrameThrottle::frame);
    for (int i = 0; i < 10'000; ++i)
        throttle.request();
    EXPECT_EQ(frames.count(), 0);
    testing::turnFrames();
    EXPECT_EQ(frames.count(), 1);
}

TEST(FrameThrottle, givesAtMostOneRedrawPerFrameAndNeverLosesTheLastRequest)
{
    FrameThrottle throttle;
    const QSignalSpy frames(&throttle, &FrameThrottle::frame);
    int requestsAtLastFrame = 0;
    int requests = 0;
    QObject::connect(&throttle, &FrameThrottle::frame, &throttle, [&] { requestsAtLastFrame = requests; });
    QElapsedTimer time;
    time.start();
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            ++requests;
            throttle.request();
            return frames.count() >= 10;
        },
        patience));
    EXPECT_LE(frames.count(), time.elapsed() / FrameThrottle::frameMilliseconds + 1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return requestsAtLastFrame == requests; }, patience));
}

TEST(FrameThrottle, givesNoRedrawWithoutARequest)
{
    FrameThrottle throttle;
    const QSignalSpy frames(&throttle, &FrameThrottle::frame);
    testing::turnFrames();
    EXPECT_EQ(frames.count(), 0);
}

} // namespace keelbright
