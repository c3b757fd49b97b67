#include "tests/support/TestMac.h"

#include <QProcess>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

/// What a fresh process writes to both streams when it speaks in every category.
class LoggingTests : public ::testing::Test
{
protected:
    [[nodiscard]] QStringList linesWith(const QString& rules, const QStringList& arguments = {}) const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove(u"QT_LOGGING_CONF"_s);
        environment.remove(u"QT_MESSAGE_PATTERN"_s);
        // Below standard error some systems have a journal.
        environment.insert(u"QT_FORCE_STDERR_LOGGING"_s, u"1"_s);
        environment.insert(u"QT_LOGGING_RULES"_s, rules);
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(QStringLiteral(LOGGING_PROBE), arguments);
        EXPECT_TRUE(process.waitForFinished());
        EXPECT_EQ(process.exitCode(), 0);
        return QString::fromUtf8(process.readAll()).split(u'\n', Qt::SkipEmptyParts);
    }

    TestMac m_mac; ///< its home holds no logging rules of a developer
};

const QStringList floors{u"platform"_s, u"backup"_s, u"records"_s, u"storage"_s, u"apps"_s,
                         u"health"_s,   u"state"_s,  u"widgets"_s, u"screens"_s};

} // namespace

TEST_F(LoggingTests, aFreshProcessPrintsNothing)
{
    EXPECT_EQ(linesWith({}), QStringList());
}

TEST_F(LoggingTests, oneRuleTurnsEveryFloorOn)
{
    QStringList expected;
    for (const QString& floor : floors)
        expected << u"keelbright."_s + floor + u": debug"_s << u"keelbright."_s + floor + u": info"_s;
    EXPECT_EQ(linesWith(u"keelbright.*=true"_s), expected);
}

TEST_F(LoggingTests, oneFloorIsTurnedOnAlone)
{
    EXPECT_EQ(linesWith(u"keelbright.backup=true"_s),
              (QStringList{u"keelbright.backup: debug"_s, u"keelbright.backup: info"_s}));
}

TEST_F(LoggingTests, warningsArePrintedWithoutARule)
{
    QStringList expected;
    for (const QString& floor : floors)
        expected << u"keelbright."_s + floor + u": warning"_s;
    EXPECT_EQ(linesWith({}, {u"warn"_s}), expected);
}

} // namespace keelbright::testing
