#include "Keelbright/widgets/theme/DesktopSettings.h"

#include "tests/support/PrivateBus.h"

#include <QDBusMessage>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace keelbright {

/// A settings portal on the test's private bus.
class FakePortal : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    uint scheme = 0;
    bool hasAnimations = true;
    bool hasHighContrast = false;
    int answers = 0;

public Q_SLOTS:

    QDBusVariant Read(const QString& nameSpace, const QString& key)
    {
        ++answers;
        // The portal's older method wraps its value twice.
        if (key == QStringLiteral("color-scheme"))
            return QDBusVariant(QVariant::fromValue(QDBusVariant(scheme)));
        if (nameSpace == QStringLiteral("org.gnome.desktop.interface"))
            return QDBusVariant(QVariant::fromValue(QDBusVariant(hasAnimations)));
        if (key == QStringLiteral("high-contrast"))
            return QDBusVariant(QVariant::fromValue(QDBusVariant(hasHighContrast)));
        return QDBusVariant(QVariant::fromValue(QDBusVariant(0U)));
    }

Q_SIGNALS:
    void SettingChanged(const QString& nameSpace, const QString& key, const QDBusVariant& value);
};

namespace {

using namespace Qt::StringLiterals;

constexpr int patience = 60'000; // milliseconds
constexpr int allAnswers = 5;    // to what is asked at the start

class DesktopSettingsTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (!bus.reasonMissing().empty())
            GTEST_SKIP() << bus.reasonMissing();
        ASSERT_TRUE(bus.client().isConnected());
        ASSERT_TRUE(
            bus.server().registerObject(u"/org/freedesktop/portal/desktop"_s, &portal,
                                        QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals));
    }

    void startPortal() { ASSERT_TRUE(bus.server().registerService(u"org.freedesktop.portal.Desktop"_s)); }

    FakePortal portal;
    testing::PrivateBus bus;
};

} // namespace

TEST_F(DesktopSettingsTest, takesDarkFromThePortalWithoutWaitingForIt)
{
    portal.scheme = 1;
    startPortal();
    DesktopSettings settings(bus.client());
    EXPECT_EQ(settings.colorScheme(), ColorScheme::light); // the constructor does not wait
    QSignalSpy changes(&settings, &DesktopSettings::colorSchemeChanged);
    ASSERT_TRUE(changes.wait(patience));
    EXPECT_EQ(settings.colorScheme(), ColorScheme::dark);
}

TEST_F(DesktopSettingsTest, followsThePortalWhileItRuns)
{
    startPortal();
    const DesktopSettings settings(bus.client());
    // An answer that arrives later would undo what is announced now.
    ASSERT_TRUE(QTest::qWaitFor([this] { return portal.answers == allAnswers; }, patience));
    EXPECT_EQ(settings.colorScheme(), ColorScheme::light);
    QSignalSpy changes(&settings, &DesktopSettings::colorSchemeChanged);
    const auto announceScheme = [this](uint scheme) {
        Q_EMIT portal.SettingChanged(u"org.freedesktop.appearance"_s, u"color-scheme"_s,
                                     QDBusVariant(scheme));
    };
    announceScheme(1);
    ASSERT_TRUE(changes.wait(patience));
    EXPECT_EQ(settings.colorScheme(), ColorScheme::dark);
    announceScheme(2);
    ASSERT_TRUE(changes.wait(patience));
    EXPECT_EQ(settings.colorScheme(), ColorScheme::light);
}

TEST_F(DesktopSettingsTest, withoutAPreferenceThePaletteDecides)
{
    portal.scheme = 1;
    startPortal();
    const DesktopSettings settings(bus.client());
    QSignalSpy changes(&settings, &DesktopSettings::colorSchemeChanged);
    ASSERT_TRUE(changes.wait(patience));
    Q_EMIT portal.SettingChanged(u"org.freedesktop.appearance"_s, u"color-scheme"_s, QDBusVariant(0U));
    ASSERT_TRUE(changes.wait(patience));
    EXPECT_EQ(settings.colorScheme(), ColorScheme::light); // this platform's palette
}

TEST_F(DesktopSettingsTest, takesHighContrastFromThePortalWhileItRuns)
{
    startPortal();
    const DesktopSettings settings(bus.client());
    ASSERT_TRUE(QTest::qWaitFor([this] { return portal.answers == allAnswers; }, patience));
    EXPECT_FALSE(settings.isContrastHigh());
    QSignalSpy changes(&settings, &DesktopSettings::isContrastHighChanged);
    for (const uint contrast : {1U, 0U}) {
        Q_EMIT portal.SettingChanged(u"org.freedesktop.appearance"_s, u"contrast"_s, QDBusVariant(contrast));
        ASSERT_TRUE(changes.wait(patience));
        EXPECT_EQ(settings.isContrastHigh(), contrast == 1);
    }
}

TEST_F(DesktopSettingsTest, takesHighContrastFromADesktopWhosePortalHasNoSettingForIt)
{
    portal.hasHighContrast = true;
    startPortal();
    const DesktopSettings settings(bus.client());
    QSignalSpy changes(&settings, &DesktopSettings::isContrastHighChanged);
    ASSERT_TRUE(changes.wait(patience));
    EXPECT_TRUE(settings.isContrastHigh());
    ASSERT_TRUE(QTest::qWaitFor([this] { return portal.answers == allAnswers; }, patience));
    Q_EMIT portal.SettingChanged(u"org.gnome.desktop.a11y.interface"_s, u"high-contrast"_s,
                                 QDBusVariant(false));
    ASSERT_TRUE(changes.wait(patience));
    EXPECT_FALSE(settings.isContrastHigh());
}

TEST_F(DesktopSettingsTest, keepsHighContrastWhileOneOfTheSettingsAsksForIt)
{
    startPortal();
    const DesktopSettings settings(bus.client());
    ASSERT_TRUE(QTest::qWaitFor([this] { return portal.answers == allAnswers; }, patience));
    const auto announceGnome = [this](bool isHigh) {
        Q_EMIT portal.SettingChanged(u"org.gnome.desktop.a11y.interface"_s, u"high-contrast"_s,
                                     QDBusVariant(isHigh));
    };
    const auto announcePortal = [this](uint contrast) {
        Q_EMIT portal.SettingChanged(u"org.freedesktop.appearance"_s, u"contrast"_s, QDBusVariant(contrast));
    };
    const QSignalSpy changes(&settings, &DesktopSettings::isContrastHighChanged);
    announceGnome(true);
    announcePortal(1);
    announcePortal(0);
    bus.carryEverythingOver();
    EXPECT_TRUE(settings.isContrastHigh());
    EXPECT_EQ(changes.count(), 1);
    announceGnome(false);
    bus.carryEverythingOver();
    EXPECT_FALSE(settings.isContrastHigh());
}

TEST_F(DesktopSettingsTest, reducesMotionIfTheDesktopSwitchedAnimationsOff)
{
    portal.hasAnimations = false;
    startPortal();
    const DesktopSettings settings(bus.client());
    QSignalSpy changes(&settings, &DesktopSettings::isMotionReducedChanged);
    ASSERT_TRUE(changes.wait(patience));
    EXPECT_TRUE(settings.isMotionReduced());
    Q_EMIT portal.SettingChanged(u"org.gnome.desktop.interface"_s, u"enable-animations"_s,
                                 QDBusVariant(true));
    ASSERT_TRUE(changes.wait(patience));
    EXPECT_FALSE(settings.isMotionReduced());
}

TEST_F(DesktopSettingsTest, otherSettingsAreIgnored)
{
    startPortal();
    const DesktopSettings settings(bus.client());
    const QSignalSpy changes(&settings, &DesktopSettings::colorSchemeChanged);
    ASSERT_TRUE(QTest::qWaitFor([this] { return portal.answers == allAnswers; }, patience));
    Q_EMIT portal.SettingChanged(u"org.example.other"_s, u"color-scheme"_s, QDBusVariant(1U));
    bus.carryEverythingOver();
    EXPECT_EQ(changes.count(), 0);
}

TEST_F(DesktopSettingsTest, withoutAPortalOnTheBusThePaletteDecides)
{
    const DesktopSettings settings(bus.client());
    bus.carryEverythingOver();
    EXPECT_EQ(settings.colorScheme(), ColorScheme::light);
    EXPECT_FALSE(settings.isMotionReduced());
}

TEST(DesktopSettings, withoutABusThePaletteDecides)
{
    const DesktopSettings settings{QDBusConnection(u"no such connection"_s)};
    EXPECT_EQ(settings.colorScheme(), ColorScheme::light);
}

} // namespace keelbright

#include "DesktopSettingsTests.moc"
