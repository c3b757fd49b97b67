#include "Keelbright/screens/shell/ApplicationService.h"

#include "tests/support/Printing.h"
#include "tests/support/PrivateBus.h"

#include <QDBusConnectionInterface>
#include <QDBusPendingCall>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

constexpr int patience = 60'000; // milliseconds

class ApplicationServiceTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (!bus.reasonMissing().empty())
            GTEST_SKIP() << bus.reasonMissing();
        ASSERT_TRUE(bus.client().isConnected());
    }

    /// What the desktop gets for a call of the program; the name of the error if there is one.
    QString answerTo(const QString& method, const QVariantList& arguments,
                     const QString& interface = u"org.freedesktop.Application"_s)
    {
        QDBusMessage message = QDBusMessage::createMethodCall(
            ApplicationService::serviceName(), ApplicationService::objectPath(), interface, method);
        message.setArguments(arguments);
        QDBusPendingCall call = bus.server().asyncCall(message);
        EXPECT_TRUE(QTest::qWaitFor([&] { return call.isFinished(); }, patience));
        if (call.isError())
            return call.error().name();
        return call.reply().arguments().isEmpty() ? QString() : call.reply().arguments().first().toString();
    }

    [[nodiscard]] QString ownerOfName()
    {
        return bus.server().interface()->serviceOwner(ApplicationService::serviceName()).value();
    }

    testing::PrivateBus bus;
};

std::optional<WindowAction> actionOf(const QSignalSpy& requests, int index)
{
    return requests.at(index).first().value<std::optional<WindowAction>>();
}

} // namespace

TEST_F(ApplicationServiceTest, passesOnThatTheDesktopWantsTheWindow)
{
    const ApplicationService service(bus.client());
    bus.carryEverythingOver();
    const QSignalSpy requests(&service, &ApplicationService::activationRequested);
    EXPECT_EQ(answerTo(u"Activate"_s, {QVariantMap()}), QString());
    EXPECT_EQ(answerTo(u"Open"_s, {QStringList{u"file:///tmp/a"_s}, QVariantMap()}), QString());
    ASSERT_EQ(requests.count(), 2);
    EXPECT_EQ(actionOf(requests, 0), std::nullopt);
    EXPECT_EQ(actionOf(requests, 1), std::nullopt);
}

TEST_F(ApplicationServiceTest, passesOnTheActionsOfTheMenu)
{
    const ApplicationService service(bus.client());
    bus.carryEverythingOver();
    const QSignalSpy requests(&service, &ApplicationService::activationRequested);
    for (const QString& action : {u"back-up-now"_s, u"storage-browser"_s})
        EXPECT_EQ(answerTo(u"ActivateAction"_s, {action, QVariantList(), QVariantMap()}), QString());
    ASSERT_EQ(requests.count(), 2);
    EXPECT_EQ(actionOf(requests, 0), WindowAction::backUpNow);
    EXPECT_EQ(actionOf(requests, 1), WindowAction::storageBrowser);
}

TEST_F(ApplicationServiceTest, refusesWhatItDoesNotKnow)
{
    const ApplicationService service(bus.client());
    bus.carryEverythingOver();
    const QSignalSpy requests(&service, &ApplicationService::activationRequested);
    EXPECT_EQ(answerTo(u"ActivateAction"_s, {u"format-drive"_s, QVariantList(), QVariantMap()}),
              u"org.freedesktop.DBus.Error.InvalidArgs"_s);
    EXPECT_EQ(answerTo(u"ActivateAction"_s, {}), u"org.freedesktop.DBus.Error.InvalidArgs"_s);
    EXPECT_EQ(answerTo(u"Quit"_s, {}), u"org.freedesktop.DBus.Error.UnknownMethod"_s);
    EXPECT_NE(answerTo(u"Activate"_s, {QVariantMap()}, u"org.example.Other"_s), QString());
    EXPECT_EQ(requests.count(), 0);
}

TEST_F(ApplicationServiceTest, describesItself)
{
    const ApplicationService service(bus.client());
    bus.carryEverythingOver();
    const QString description = answerTo(u"Introspect"_s, {}, u"org.freedesktop.DBus.Introspectable"_s);
    for (const QString& part : {u"<interface name=\"org.freedesktop.Application\">"_s, u"\"Activate\""_s,
                                u"\"Open\""_s, u"\"ActivateAction\""_s})
        EXPECT_TRUE(description.contains(part)) << part.toStdString();
}

TEST_F(ApplicationServiceTest, leavesTheNameToTheNextAtItsEnd)
{
    {
        const ApplicationService service(bus.client());
        bus.carryEverythingOver();
        EXPECT_EQ(ownerOfName(), bus.client().baseService());
    }
    bus.carryEverythingOver();
    EXPECT_EQ(ownerOfName(), QString());
    EXPECT_EQ(answerTo(u"Activate"_s, {QVariantMap()}), u"org.freedesktop.DBus.Error.ServiceUnknown"_s);
}

TEST_F(ApplicationServiceTest, goesWithoutTheNameWhereAnotherHasIt)
{
    ASSERT_TRUE(bus.server().registerService(ApplicationService::serviceName()));
    {
        const ApplicationService service(bus.client());
        bus.carryEverythingOver();
        EXPECT_EQ(ownerOfName(), bus.server().baseService());
    }
    bus.carryEverythingOver();
    EXPECT_EQ(ownerOfName(), bus.server().baseService());
}

TEST(ApplicationService, offersNothingWithoutABus)
{
    const ApplicationService service{QDBusConnection(u"no such connection"_s)};
    const QSignalSpy requests(&service, &ApplicationService::activationRequested);
    EXPECT_EQ(requests.count(), 0);
}

} // namespace keelbright
