// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/LauncherProgress.h"

#include "platform/desktop/FakeDesktop.h"
#include "support/VirtualTime.h"

#include <gmock/gmock.h>

namespace zumeta::test {
namespace {

using testing::ElementsAre;

class LauncherOnAPrivateBus : public testing::Test {
protected:
    ~LauncherOnAPrivateBus() override
    {
        for (const QString& name : {kClient, kDock})
            QDBusConnection::disconnectFromBus(name);
    }
    /// What the dock has been told up to now, as progress, or -1 for none.
    std::vector<double> told()
    {
        // Signals come in order: behind this one of the same sender all others have been told.
        QDBusMessage last = QDBusMessage::createSignal(
            QStringLiteral("/end"), QStringLiteral("com.canonical.Unity.LauncherEntry"), QStringLiteral("Update"));
        last << QStringLiteral("end") << QVariantMap();
        client.send(last);
        const auto isThrough = [&] {
            return !dock.updates.empty() && dock.updates.back().application == QLatin1String("end");
        };
        EXPECT_TRUE(becomesTrue(isThrough));
        dock.updates.pop_back();
        std::vector<double> values;
        for (const FakeDock::Update& update : dock.updates) {
            EXPECT_EQ(update.application, QStringLiteral("application://com.zumetaapp.Zumeta.desktop"));
            values.push_back(update.isVisible ? update.progress : -1);
        }
        return values;
    }

    const QString kClient = QStringLiteral("launcher-client");
    const QString kDock = QStringLiteral("launcher-dock");
    PrivateBus bus;
    QDBusConnection client = bus.connection(kClient);
    FakeDock dock{bus.connection(kDock)};
    VirtualTime time;
    std::unique_ptr<LauncherProgress> launcher = std::make_unique<LauncherProgress>(client, time);
};

TEST_F(LauncherOnAPrivateBus, TellsTheBeginningAtOnce)
{
    launcher->show(0);
    EXPECT_THAT(told(), ElementsAre(0));
}

TEST_F(LauncherOnAPrivateBus, TellsNoMoreThanFiveTimesASecondAndAlwaysTheNewest)
{
    for (int i = 0; i < 60; ++i) { // for 60/64 of a second
        launcher->show(i / 64.0);
        time.advance(1 / 64.0);
    }
    EXPECT_THAT(told(), ElementsAre(0, 12 / 64.0, 25 / 64.0, 38 / 64.0, 51 / 64.0));
    time.advance(1);
    EXPECT_THAT(told(), ElementsAre(0, 12 / 64.0, 25 / 64.0, 38 / 64.0, 51 / 64.0, 59 / 64.0));
}

TEST_F(LauncherOnAPrivateBus, TellsTheSameOnlyOnce)
{
    for (int i = 0; i < 5; ++i) {
        launcher->show(0.5);
        time.advance(1);
    }
    EXPECT_THAT(told(), ElementsAre(0.5));
}

TEST_F(LauncherOnAPrivateBus, ClearsAtOnceAndForGood)
{
    launcher->show(0.1);
    launcher->show(0.2); // waits
    launcher->clear();
    launcher->clear();
    EXPECT_THAT(told(), ElementsAre(0.1, -1));
    time.advance(1);
    EXPECT_THAT(told(), ElementsAre(0.1, -1));
    launcher->show(0);
    EXPECT_THAT(told(), ElementsAre(0.1, -1, 0));
}

TEST_F(LauncherOnAPrivateBus, HasNothingToClearBeforeItHasShownAnything)
{
    launcher->clear();
    launcher.reset();
    EXPECT_TRUE(told().empty());
}

TEST_F(LauncherOnAPrivateBus, ClearsWhenTheProgramEnds)
{
    launcher->show(0.1);
    launcher->show(0.2);
    launcher.reset();
    time.advance(1);
    EXPECT_THAT(told(), ElementsAre(0.1, -1));
}

TEST_F(LauncherOnAPrivateBus, NobodyNeedListen)
{
    LauncherProgress alone(QDBusConnection(QStringLiteral("no such connection")), time);
    alone.show(0.5);
    time.advance(1);
    alone.clear();
    EXPECT_TRUE(told().empty());
}

}
}
