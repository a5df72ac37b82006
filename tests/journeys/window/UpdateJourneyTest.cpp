// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/window/WindowJourney.h"

#include "journeys/window/Browser.h"
#include "platform/Log.h"
#include "platform/updates/FeedServer.h"
#include "platform/updates/SigningKey.h"

#include <QTcpSocket>
#include <QTest>

namespace zumeta {
namespace {

using namespace test;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

const QByteArray kFeedWithNotes = R"({"format": "zumeta-updates-1", "version": "1.3.0",
    "page": "https://zumeta.example/download",
    "notes": {"en": "Exports are faster.\nWaterlines follow <b>waves</b> & wind.",
              "ja": "書き出しが速くなりました。\n水面ラインが波に合わせて動きます。"}})";

/// A build of version 1.2.0 whose feed is served on this machine.
struct Updates : WindowJourney {
    std::unique_ptr<ZumetaApp> makeApp() override
    {
        UpdateSetup setup{BundleInfo::fromValues(
            text("1.2.0"), {},
            {{text("SUFeedURL"), server.url(text("/feed")).toString()}, {text("SUPublicEDKey"), key.publicKey()}})};
        setup.limits.schemes = FeedSchemes::httpOnLoopbackToo;
        return std::make_unique<ZumetaApp>(ZumetaApp::WrapPlayer{}, setup);
    }
    void begin(QSize size = {1400, 900})
    {
        open(size);
        confirmCamera();
        ASSERT_TRUE(waitFor([&] { return item("menuTitle0") != nullptr; }));
    }
    void publish(const QByteArray& feed)
    {
        server.put(text("/feed"), feed);
        server.put(text("/feed.sig"), key.signatureOf(feed));
    }
    QQuickItem* line() { return item("menuItem1"); }
    void openMenu()
    {
        click(item("menuTitle0"));
        ASSERT_TRUE(waitFor([&] { return line() != nullptr; }));
    }
    /// Until the menu has gone.
    void choose()
    {
        click(line());
        ASSERT_TRUE(waitFor([&] { return !item("openMenu"); }));
    }
    bool canBeChosen() { return line()->property("isEnabled").toBool(); }
    /// Chooses the item and waits for the card.
    void check()
    {
        openMenu();
        choose();
        ASSERT_TRUE(waitFor([&] { return item("alertButton0") && item("alertButton0")->hasActiveFocus(); }));
    }
    void closeCard(Qt::Key pressed)
    {
        press(pressed);
        ASSERT_TRUE(waitFor([&] { return !item("alertButton0") && app().modality().isOpen(); }));
    }
    /// All that the card says, without the window behind it.
    QQuickItem* card() { return item("alertButton0")->parentItem()->parentItem(); }
    void expectPictures(const char* name)
    {
        for (const AppLanguage language : {AppLanguage::english, AppLanguage::japanese, AppLanguage::german}) {
            app().languages().setLanguage(language);
            check();
            movePointer({700, 30});
            expectPicture(qPrintable(text("%1-%2").arg(text(name), app().languages().localeIdentifier())), card());
            closeCard(Qt::Key_Escape);
        }
    }

    SigningKey key{'a'};
    FeedServer server;
    Browser browser;
    std::vector<QString> log;
    LogCapture capture{[this](const QString& logged) { log.push_back(logged); }};
};

/// A build that has no feed.
struct NoUpdates : WindowJourney {};

TEST_F(NoUpdates, AreOfferedByABuildWithoutAFeed)
{
    open();
    confirmCamera();
    ASSERT_TRUE(waitFor([&] { return item("menuTitle0") != nullptr; }));
    click(item("menuTitle0"));
    ASSERT_TRUE(waitFor([&] { return item("menuItem0") != nullptr; }));
    EXPECT_FALSE(item("menuItem1"));
    EXPECT_FALSE(itemWithText(text("Check for Updates...")));
}

TEST_F(Updates, LeadToThePageOfTheDownload)
{
    publish(kFeedWithNotes);
    begin();
    check();
    EXPECT_TRUE(itemWithText(text("A New Version Is Available")));
    press(Qt::Key_Return);
    ASSERT_TRUE(waitFor([&] { return !browser.opened.isEmpty(); }));
    EXPECT_THAT(browser.opened, testing::ElementsAre(QUrl(text("https://zumeta.example/download"))));
    EXPECT_TRUE(waitFor([&] { return app().modality().isOpen(); }));
}

TEST_F(Updates, ThatAreNotWantedOpenNothing)
{
    publish(kFeedWithNotes);
    begin();
    check();
    closeCard(Qt::Key_Escape);
    EXPECT_TRUE(browser.opened.isEmpty());
}

TEST_F(Updates, AreAskedForOnceAtATime)
{
    server.at(text("/feed"), FeedServer::silence());
    QPointer<QTcpSocket> waiting;
    server.at(text("/feed.sig"), [&](QTcpSocket& socket) { waiting = &socket; });
    begin();
    openMenu();
    EXPECT_TRUE(canBeChosen());
    choose();
    ASSERT_TRUE(waitFor([&] { return waiting != nullptr; }));
    openMenu();
    EXPECT_FALSE(canBeChosen());
    click(line());
    EXPECT_TRUE(line()) << "stays open";
    FeedServer::answer("503 Service Unavailable", {})(*waiting); // while the menu is open
    ASSERT_TRUE(waitFor([&] { return itemWithText(text("Could Not Check for Updates")) != nullptr; }));
    closeCard(Qt::Key_Return);
    EXPECT_EQ(server.asked.size(), 2U);
    openMenu();
    EXPECT_TRUE(canBeChosen());
}

TEST_F(Updates, ThatAreNotSignedAreNotOffered)
{
    publish(kFeedWithNotes);
    server.put(text("/feed.sig"), SigningKey('b').signatureOf(kFeedWithNotes));
    begin();
    check();
    EXPECT_TRUE(itemWithText(text("Could Not Check for Updates")));
    EXPECT_TRUE(browser.opened.isEmpty());
    EXPECT_TRUE(std::ranges::count(log, text("Update check failed: not signed with this build's key")) == 1);
}

TEST_F(Updates, MayBeOnTheirWayWhenTheWindowGoes)
{
    server.at(text("/feed"), FeedServer::drip());
    server.at(text("/feed.sig"), FeedServer::silence());
    begin();
    openMenu();
    choose();
    ASSERT_TRUE(waitFor([&] { return server.asked.size() == 2; }));
    close();
    QTest::qWait(50);
    EXPECT_TRUE(browser.opened.isEmpty());
}

TEST_F(Updates, LookAsTheyWereDrawn)
{
    publish(kFeedWithNotes);
    begin({1024, 680});
    openMenu();
    movePointer({700, 500});
    expectPicture("update-menu", item("openMenu"));
    press(Qt::Key_Escape);
    ASSERT_TRUE(waitFor([&] { return !item("openMenu"); }));
    expectPictures("update-offer");
    publish(feedOf("1.2"));
    expectPictures("update-none");
    server.put(text("/feed.sig"), {});
    expectPictures("update-unknown");
}

TEST_F(Updates, WithLongNotesStayInTheWindow)
{
    const QByteArray line = QByteArray("水面ライン").repeated(7) + "\\n";
    publish(QByteArray(kFeedWithNotes).replace("書き出しが速くなりました。", line.repeated(50)));
    begin({1024, 680});
    app().languages().setLanguage(AppLanguage::japanese);
    check();
    const QQuickItem* const shown = card();
    EXPECT_GT(shown->height(), 300);
    EXPECT_GE(shown->mapToScene({0, 0}).y(), 40);
    EXPECT_LE(shown->mapToScene({0, shown->height()}).y(), 640);
}

}
}
