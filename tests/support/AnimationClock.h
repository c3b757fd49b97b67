#pragma once

#include <QAnimationDriver>
#include <QCoreApplication>

namespace keelbright::testing {

/// Stops the time of all animations while it lives; they move when a test says so, and exactly so
/// far, however busy the machine is.
class AnimationClock : public QAnimationDriver
{
public:
    AnimationClock() { install(); }

    ~AnimationClock() override { uninstall(); }

    AnimationClock(const AnimationClock&) = delete;
    AnimationClock& operator=(const AnimationClock&) = delete;

    void advance(int milliseconds)
    {
        // An animation begins with the next turn of the event loop, and its time with the one behind.
        for (int turn = 0; turn < 2; ++turn) {
            QCoreApplication::sendPostedEvents();
            advanceAnimation();
        }
        m_elapsed += milliseconds;
        advanceAnimation();
    }

    [[nodiscard]] qint64 elapsed() const override { return m_elapsed; }

protected:
    void start() override
    {
        m_elapsed = 0;
        QAnimationDriver::start();
    }

private:
    using QAnimationDriver::advance;

    qint64 m_elapsed = 0; ///< since the first of the running animations has begun
};

} // namespace keelbright::testing
