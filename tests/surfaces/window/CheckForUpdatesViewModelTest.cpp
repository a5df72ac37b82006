// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/window/CheckForUpdatesViewModel.h"

#include "journeys/window/Browser.h"
#include "languages/LanguageManager.h"
#include "platform/BundleInfo.h"
#include "platform/Log.h"
#include "platform/updates/FeedServer.h"
#include "platform/updates/SigningKey.h"
#include "support/MemoryUserDefaults.h"

#include <QCoreApplication>
#include <QTest>
#include <gmock/gmock.h>

namespace zumeta {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

/// Answers at once, and notes what it was asked.
class AnsweringDialogs final : public Dialogs {
public:
    Task<int> showAlert(Alert alert) override
    {
        alerts.push_back(std::move(alert));
        co_return answer;
    }
    Task<std::optional<FileUrl>> showSavePanel(SavePanel) override { co_return std::nullopt; }

    int answer = 0;
    std::vector<Alert> alerts;
};

/// A build of version 1.2.0 whose feed is served on this machine.
struct CheckForUpdates : testing::Test {
    void publish(const char* version)
    {
        server.put(text("/feed"), feedOf(version));
        server.put(text("/feed.sig"), key.signatureOf(feedOf(version)));
    }
    /// Until the user has been told.
    void check()
    {
        const size_t before = dialogs.alerts.size();
        model.checkForUpdates();
        ASSERT_TRUE(QTest::qWaitFor([&] { return dialogs.alerts.size() > before; }));
    }
    static FetchLimits onThisMachine()
    {
        FetchLimits limits;
        limits.schemes = FeedSchemes::httpOnLoopbackToo;
        return limits;
    }

    SigningKey key{'a'};
    FeedServer server;
    MemoryUserDefaults defaults;
    LanguageManager languages{defaults, [] { return QStringList{QStringLiteral("en")}; }};
    AnsweringDialogs dialogs;
    Browser browser;
    std::vector<QString> log;
    LogCapture capture{[this](const QString& line) { log.push_back(line); }};
    UpdateService updates{BundleInfo::fromValues(text("1.2.0"), {},
                                                 {{text("SUFeedURL"), server.url(text("/feed")).toString()},
                                                  {text("SUPublicEDKey"), key.publicKey()}}),
                          onThisMachine()};
    CheckForUpdatesViewModel model{updates, dialogs, languages};
};

TEST_F(CheckForUpdates, AnOfferLeadsToItsPage)
{
    publish("1.3");
    check();
    EXPECT_EQ(dialogs.alerts[0].title, text("A New Version Is Available"));
    EXPECT_EQ(dialogs.alerts[0].message, text("Zumeta 1.3 can be downloaded. You are using version 1.2.0. "
                                              "The download page opens in your browser."));
    EXPECT_THAT(dialogs.alerts[0].buttons, ElementsAre(text("Open Page"), text("Not Now")));
    EXPECT_THAT(browser.opened, ElementsAre(QUrl(text("https://zumeta.example/download"))));
}

TEST_F(CheckForUpdates, AnOfferThatIsNotWantedOpensNothing)
{
    publish("1.3");
    dialogs.answer = 1;
    check();
    EXPECT_THAT(browser.opened, IsEmpty());
}

TEST_F(CheckForUpdates, WhoAskedLearnsThatThereIsNothingNew)
{
    publish("1.2");
    check();
    EXPECT_EQ(dialogs.alerts[0].title, text("Zumeta Is Up to Date"));
    EXPECT_EQ(dialogs.alerts[0].message, text("Version 1.2.0 is the newest one."));
    EXPECT_THAT(dialogs.alerts[0].buttons, ElementsAre(text("OK")));
    EXPECT_THAT(browser.opened, IsEmpty());
}

TEST_F(CheckForUpdates, WhoAskedLearnsThatItCouldNotBeFoundOut)
{
    publish("1.3");
    server.put(text("/feed.sig"), SigningKey('b').signatureOf(feedOf("1.3")));
    check();
    EXPECT_EQ(dialogs.alerts[0].title, text("Could Not Check for Updates"));
    EXPECT_THAT(dialogs.alerts[0].buttons, ElementsAre(text("OK")));
    EXPECT_THAT(browser.opened, IsEmpty());
    EXPECT_THAT(log, ElementsAre(text("Update check failed: not signed with this build's key")));
}

TEST_F(CheckForUpdates, CannotBeAskedForWhileTheAnswerIsOnItsWay)
{
    publish("1.3");
    std::vector<bool> told;
    QObject::connect(&model, &CheckForUpdatesViewModel::canCheckForUpdatesChanged,
                     [&] { told.push_back(model.canCheckForUpdates()); });
    EXPECT_TRUE(model.canCheckForUpdates());
    check();
    EXPECT_THAT(told, ElementsAre(false, true));
}

TEST_F(CheckForUpdates, IsToldInTheUsersLanguage)
{
    const UpdateFeed offer{*ReleaseVersion::parsed(text("2")),
                           text("2"),
                           QUrl(text("https://zumeta.example/")),
                           {{text("en"), text("Faster.")}, {text("ja"), text("速くなりました。")}}};
    languages.setLanguage(AppLanguage::japanese);
    const Alert japanese = updateAlert(offer, text("1.2.0"), languages);
    EXPECT_EQ(japanese.title, text("新しいバージョンがあります"));
    EXPECT_TRUE(japanese.message.endsWith(text("\n\n速くなりました。"))) << japanese.message.toStdString();
    languages.setLanguage(AppLanguage::german);
    EXPECT_TRUE(updateAlert(offer, text("1.2.0"), languages).message.endsWith(text("\n\nFaster.")));
    for (const AppLanguage language : kAllAppLanguages) {
        languages.setLanguage(language);
        const Alert alert = updateAlert(offer, text("1.2.0"), languages);
        EXPECT_TRUE(alert.message.indexOf(text("2")) < alert.message.indexOf(text("1.2.0")))
            << rawValue(language).toStdString();
    }
}

TEST_F(CheckForUpdates, LongNotesAreShortened)
{
    UpdateFeed offer{*ReleaseVersion::parsed(text("2")), text("2"), QUrl(text("https://zumeta.example/")), {}};
    const auto shown = [&](const QString& notes) {
        offer.notes[text("en")] = notes;
        return updateAlert(offer, text("1.2.0"), languages).message.section(text("\n\n"), 1);
    };
    EXPECT_EQ(shown(QString(200, QLatin1Char('n'))), QString(200, QLatin1Char('n')));
    EXPECT_EQ(shown(QString(201, QLatin1Char('n'))), QString(199, QLatin1Char('n')) + text("…"));
    EXPECT_EQ(shown(QString(60'000, QLatin1Char('n'))).size(), 200);
    EXPECT_EQ(shown(text("1\n2\n3\n4\n5\n6")), text("1\n2\n3\n4\n5\n6"));
    EXPECT_EQ(shown(text("1\n2\n3\n4\n5\n6\n7")), text("1\n2\n3\n4\n5\n6…"));
}

}
}
