#include "Keelbright/widgets/FrameThrottle.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace keelbright {

TEST(FrameThrottle, manyRequestsInOneTurnGiveOneRedraw)
{
    FrameThrottle throttle;
    QSignalSpy frames(&throttle, &FrameThrottle::frame);
    for (int i = 0; i < 10'000; ++i)
        throttle.request();
    EXPECT_EQ(frames.count(), 0);
    ASSERT_TRUE(frames.wait(1000));
    QTest::qWait(50);
    EXPECT_EQ(frames.count(), 1);
}

TEST(FrameThrottle, givesAtMostOneRedrawPerFrameAndNeverLosesTheLastRequest)
{
    FrameThrottle throttle;
    QSignalSpy frames(&throttle, &FrameThrottle::frame);
    int requestsAtLastFrame = 0;
    int requests = 0;
    QObject::connect(&throttle, &FrameThrottle::frame, &throttle, [&] { requestsAtLastFrame = requests; });
    QElapsedTimer time;
    time.start();
    while (time.elapsed() < 160) {
        ++requests;
        throttle.request();
        QTest::qWait(1);
    }
    QTest::qWait(50);
    EXPECT_LE(frames.count(), time.elapsed() / FrameThrottle::frameMilliseconds + 1);
    EXPECT_GE(frames.count(), 2);
    EXPECT_EQ(requestsAtLastFrame, requests);
}

TEST(FrameThrottle, givesNoRedrawWithoutARequest)
{
    FrameThrottle throttle;
    const QSignalSpy frames(&throttle, &FrameThrottle::frame);
    QTest::qWait(50);
    EXPECT_EQ(frames.count(), 0);
}

} // namespace keelbright
