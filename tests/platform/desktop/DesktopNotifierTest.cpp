// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/DesktopNotifier.h"

#include "platform/desktop/FakeDesktop.h"

#include <QCoreApplication>
#include <QDBusPendingCallWatcher>
#include <gmock/gmock.h>

namespace zumeta::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

const DesktopNotifier::Message kDone{text("書き出し完了"), text("Lane 4 & <b>5</b>.mp4"), text("Zumeta")};

class NotifierOnAPrivateBus : public testing::Test {
protected:
    NotifierOnAPrivateBus()
    {
        QObject::connect(&notifier, &DesktopNotifier::activated,
                         [this](const QString& token) { tokens.push_back(token); });
    }
    ~NotifierOnAPrivateBus() override
    {
        for (const QString& name : {kClient, kService})
            QDBusConnection::disconnectFromBus(name);
    }
    /// Shows this and waits until it can be seen.
    void show(const DesktopNotifier::Message& message)
    {
        const size_t before = service.shown.size();
        notifier.show(message);
        ASSERT_TRUE(becomesTrue([&] { return service.shown.size() > before; }));
        settle();
    }
    /// A bus answers in order: behind this question everything before it has been told.
    void settle()
    {
        for (const QDBusConnection& end : {client, server}) {
            const QDBusPendingCallWatcher asked(end.asyncCall(QDBusMessage::createMethodCall(
                text("org.freedesktop.DBus"), text("/"), text("org.freedesktop.DBus"), text("GetId"))));
            ASSERT_TRUE(becomesTrue([&] { return asked.isFinished(); }));
        }
        QCoreApplication::processEvents();
    }

    const QString kClient = text("notifier-client");
    const QString kService = text("notifier-service");
    PrivateBus bus;
    QDBusConnection server = bus.connection(kService);
    QDBusConnection client = bus.connection(kClient);
    FakeNotifications service{server};
    DesktopNotifier notifier{client};
    std::vector<QString> tokens;
};

TEST_F(NotifierOnAPrivateBus, ShowsTitleAndTextUnderTheProgramsName)
{
    show(kDone);
    ASSERT_EQ(service.shown.size(), 1U);
    const FakeNotifications::Shown& shown = service.shown[0];
    EXPECT_EQ(shown.application, text("Zumeta"));
    EXPECT_EQ(shown.icon, text("com.zumetaapp.Zumeta"));
    EXPECT_EQ(shown.title, kDone.title);
    EXPECT_EQ(shown.body, kDone.body);
    EXPECT_EQ(shown.actions, QStringList({text("default"), text("Zumeta")}));
    EXPECT_EQ(shown.hints.value(text("desktop-entry")).toString(), text("com.zumetaapp.Zumeta"));
    EXPECT_EQ(shown.time, -1);
}

TEST_F(NotifierOnAPrivateBus, KeepsAFilesNameFromBeingReadAsMarkup)
{
    service.capabilities << text("body-markup");
    show(kDone);
    EXPECT_EQ(service.shown[0].body, text("Lane 4 &amp; &lt;b&gt;5&lt;/b&gt;.mp4"));
}

TEST_F(NotifierOnAPrivateBus, OffersNoActionWhereThereAreNone)
{
    service.capabilities = QStringList{text("body")};
    show(kDone);
    EXPECT_TRUE(service.shown[0].actions.isEmpty());
}

TEST_F(NotifierOnAPrivateBus, TellsOfAClick)
{
    show(kDone);
    service.click(service.shown[0].id);
    ASSERT_TRUE(becomesTrue([&] { return !tokens.empty(); }));
    EXPECT_THAT(tokens, ElementsAre(QString()));
}

TEST_F(NotifierOnAPrivateBus, HandsOnTheRightToComeToTheFront)
{
    show(kDone);
    service.giveToken(service.shown[0].id + 1, text("somebody else's"));
    service.giveToken(service.shown[0].id, text("token-7"));
    service.click(service.shown[0].id);
    service.click(service.shown[0].id); // has none any more
    ASSERT_TRUE(becomesTrue([&] { return tokens.size() == 2; }));
    EXPECT_THAT(tokens, ElementsAre(text("token-7"), QString()));
}

TEST_F(NotifierOnAPrivateBus, OtherProgramsClicksAndOtherActionsAreNoClicks)
{
    show(kDone);
    const uint id = service.shown[0].id;
    service.click(id + 1);
    service.click(id, text("settings"));
    service.dismiss(id + 1);
    service.click(id);
    ASSERT_TRUE(becomesTrue([&] { return !tokens.empty(); }));
    EXPECT_EQ(tokens.size(), 1U);
}

TEST_F(NotifierOnAPrivateBus, TheNextTakesThePlaceOfTheLast)
{
    show(kDone);
    show({text("second"), {}, {}});
    EXPECT_EQ(service.shown[1].replaced, service.shown[0].id);
    service.dismiss(service.shown[1].id);
    settle();
    show({text("third"), {}, {}});
    EXPECT_EQ(service.shown[2].replaced, 0U);
}

TEST_F(NotifierOnAPrivateBus, OfTwoInOneTurnTheNewestIsShown)
{
    notifier.show(kDone);
    show({text("second"), {}, {}});
    ASSERT_EQ(service.shown.size(), 1U);
    EXPECT_EQ(service.shown[0].title, text("second"));
}

TEST_F(NotifierOnAPrivateBus, IsWithdrawn)
{
    notifier.withdraw(); // there is nothing yet
    show(kDone);
    EXPECT_THAT(service.closed, IsEmpty());
    notifier.withdraw();
    ASSERT_TRUE(becomesTrue([&] { return !service.closed.empty(); }));
    notifier.withdraw();
    service.click(service.shown[0].id);
    settle();
    EXPECT_THAT(service.closed, ElementsAre(service.shown[0].id));
    EXPECT_THAT(tokens, IsEmpty());
}

TEST_F(NotifierOnAPrivateBus, IsWithdrawnBeforeItIsShown)
{
    notifier.show(kDone);
    notifier.withdraw();
    settle();
    settle();
    EXPECT_THAT(service.shown, IsEmpty());
}

TEST_F(NotifierOnAPrivateBus, IsWithdrawnBeforeTheServiceHasAnswered)
{
    service.isHesitant = true;
    show(kDone);
    notifier.withdraw();
    settle();
    EXPECT_THAT(service.closed, IsEmpty());
    service.answer();
    ASSERT_TRUE(becomesTrue([&] { return !service.closed.empty(); }));
    EXPECT_THAT(service.closed, ElementsAre(service.shown[0].id));
}

TEST_F(NotifierOnAPrivateBus, NothingHappensWithoutAService)
{
    const QString kAlone = text("notifier-alone");
    const PrivateBus empty;
    {
        DesktopNotifier alone(empty.connection(kAlone));
        alone.show(kDone);
        settle();
        alone.withdraw();
        settle();
    }
    QDBusConnection::disconnectFromBus(kAlone);
    DesktopNotifier withoutABus{QDBusConnection(text("no such connection"))};
    withoutABus.show(kDone);
    settle();
    withoutABus.withdraw();
    EXPECT_THAT(service.shown, IsEmpty());
}

}
}
