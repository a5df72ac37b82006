// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sleep/LogindSleepInhibitor.h"

#include "PrivateBus.h"

#include <QDBusPendingCallWatcher>
#include <QElapsedTimer>
#include <gmock/gmock.h>

namespace zumeta::test {
namespace {

using Answer = FakeLoginService::Answer;
using testing::ElementsAre;

const QString kClient = QStringLiteral("client");

class SleepOnAPrivateBus : public testing::Test {
protected:
    ~SleepOnAPrivateBus() override
    {
        for (const QString& name : {kClient, kService})
            QDBusConnection::disconnectFromBus(name);
    }

    /// Everything that was asked before has been dealt with, and its answer taken, when this returns.
    bool settles()
    {
        // Not a ping: that is answered by a thread of the bus's library, ahead of the service.
        bool isAnswered = false;
        const QDBusPendingCallWatcher answer(m_client.asyncCall(QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
            QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("ListInhibitors"))));
        QObject::connect(&answer, &QDBusPendingCallWatcher::finished, &answer, [&] { isAnswered = true; });
        return becomesTrue([&] { return isAnswered; });
    }

    const QString kService = QStringLiteral("service");
    PrivateBus m_bus;
    QDBusConnection m_client = m_bus.connection(kClient);
    LogindSleepInhibitor m_inhibitor{m_client};
};

}

TEST_F(SleepOnAPrivateBus, IsKeptAwayWhileTheInhibitionLives)
{
    FakeLoginService service(m_bus.connection(kService), Answer::atOnce);
    auto inhibition = m_inhibitor.inhibit(QStringLiteral("Exporting"));
    ASSERT_TRUE(settles());
    EXPECT_TRUE(service.isHeld());
    inhibition.reset();
    EXPECT_TRUE(becomesTrue([&] { return !service.isHeld(); }));
}

TEST_F(SleepOnAPrivateBus, IsAskedForWithTheReason)
{
    FakeLoginService service(m_bus.connection(kService), Answer::atOnce);
    const auto inhibition = m_inhibitor.inhibit(QStringLiteral("Der Film wird größer"));
    ASSERT_TRUE(becomesTrue([&] { return !service.requests.empty(); }));
    ASSERT_EQ(service.requests.size(), 1U);
    EXPECT_EQ(service.requests[0].member(), QStringLiteral("Inhibit"));
    EXPECT_THAT(service.requests[0].arguments(),
                ElementsAre(QVariant(QStringLiteral("idle:sleep")), QVariant(QStringLiteral("Zumeta")),
                            QVariant(QStringLiteral("Der Film wird größer")), QVariant(QStringLiteral("block"))));
}

TEST_F(SleepOnAPrivateBus, MayComeWhenTheAnswerIsLaterThanTheInhibition)
{
    FakeLoginService service(m_bus.connection(kService), Answer::whenAsked);
    auto inhibition = m_inhibitor.inhibit(QStringLiteral("Exporting"));
    ASSERT_TRUE(becomesTrue([&] { return !service.requests.empty(); }));
    inhibition.reset();
    service.answer();
    ASSERT_TRUE(settles());
    EXPECT_TRUE(becomesTrue([&] { return !service.isHeld(); }));
}

TEST_F(SleepOnAPrivateBus, IsKeptAwayByEachInhibitionForItself)
{
    FakeLoginService service(m_bus.connection(kService), Answer::atOnce);
    auto first = m_inhibitor.inhibit(QStringLiteral("Exporting"));
    auto second = m_inhibitor.inhibit(QStringLiteral("Exporting"));
    ASSERT_TRUE(settles());
    first.reset();
    ASSERT_TRUE(settles());
    EXPECT_TRUE(service.isHeld());
    second.reset();
    EXPECT_TRUE(becomesTrue([&] { return !service.isHeld(); }));
}

TEST_F(SleepOnAPrivateBus, MayComeWhenTheProcessIsKilled)
{
    FakeLoginService service(m_bus.connection(kService), Answer::atOnce);
    Companion process({KEEP_AWAKE, m_bus.address().toStdString()});
    ASSERT_TRUE(becomesTrue([&] { return process.hasSaidMore(); }));
    ASSERT_EQ(process.line(), "awake");
    EXPECT_TRUE(service.isHeld());
    process.kill();
    EXPECT_TRUE(becomesTrue([&] { return !service.isHeld(); }));
}

TEST_F(SleepOnAPrivateBus, IsNothingToWaitForWhereTheServiceRefuses)
{
    for (const Answer answer : {Answer::refusal, Answer::nonsense}) {
        FakeLoginService service(m_bus.connection(kService), answer);
        const auto inhibition = m_inhibitor.inhibit(QStringLiteral("Exporting"));
        EXPECT_NE(inhibition, nullptr);
        EXPECT_TRUE(becomesTrue([&] { return service.requests.size() == 1; }));
        EXPECT_TRUE(settles());
        EXPECT_FALSE(service.isHeld());
    }
}

TEST_F(SleepOnAPrivateBus, IsNothingToWaitForWhereTheServiceDoesNotAnswer)
{
    FakeLoginService service(m_bus.connection(kService), Answer::whenAsked);
    QElapsedTimer timer;
    timer.start();
    auto inhibition = m_inhibitor.inhibit(QStringLiteral("Exporting"));
    inhibition.reset();
    EXPECT_LT(timer.elapsed(), 1000);
}

TEST_F(SleepOnAPrivateBus, IsNothingToWaitForWhereThereIsNoService)
{
    const auto inhibition = m_inhibitor.inhibit(QStringLiteral("Exporting"));
    EXPECT_NE(inhibition, nullptr);
    EXPECT_TRUE(settles());
}

TEST(SleepInhibitor, DoesNothingWhereThereIsNoBus)
{
    const QDBusConnection none = QDBusConnection::connectToBus(QStringLiteral("unix:path=/nowhere/bus"), kClient);
    ASSERT_FALSE(none.isConnected());
    LogindSleepInhibitor inhibitor(none);
    QElapsedTimer timer;
    timer.start();
    auto inhibition = inhibitor.inhibit(QStringLiteral("Exporting"));
    EXPECT_NE(inhibition, nullptr);
    becomesTrue([] { return true; });
    inhibition.reset();
    EXPECT_LT(timer.elapsed(), 1000);
    QDBusConnection::disconnectFromBus(kClient);
}

}
