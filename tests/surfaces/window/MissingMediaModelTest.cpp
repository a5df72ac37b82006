// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/window/MissingMediaModel.h"

#include "languages/LanguageManager.h"
#include "media/VideoFileHelper.h"
#include "platform/FileChooser.h"
#include "session/ProjectTest.h"
#include "support/MemoryUserDefaults.h"

#include <QSignalSpy>

namespace zumeta {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// Answers after a second; notes what it was asked.
struct ScriptedChooser final : FileChooser {
    explicit ScriptedChooser(VirtualTime& virtualTime)
        : time(virtualTime)
    {}
    Task<std::vector<FileUrl>> showOpenPanel(OpenPanel panel) override
    {
        panels.push_back(panel);
        const std::vector<FileUrl> answer = chosen;
        co_await time.pass(1);
        co_return answer;
    }
    VirtualTime& time;
    std::vector<FileUrl> chosen;
    std::vector<OpenPanel> panels;
};

/// A project whose videos are not all there.
struct MissingMedia : ProjectTest {
    MissingMedia()
    {
        for (const char* path : {"/found/a1.mp4", "/found/a2.MP4", "/found/below.mp4"})
            media.add(path, {});
        chooser.chosen = {FileUrl("/found/a2.MP4"), FileUrl("/found/notes.txt"), FileUrl("/found/a1.mp4")};
    }
    void openWithout(std::set<std::string> gone)
    {
        bookmarks.gone = std::move(gone);
        open(project());
    }

    MemoryUserDefaults defaults;
    LanguageManager languages{defaults, [] { return QStringList{QStringLiteral("en")}; }};
    ScriptedChooser chooser{time};
    MissingMediaModel model{*session, chooser, languages};
};

TEST_F(MissingMedia, OfNoSideShowsNoCard)
{
    openWithout({});
    EXPECT_FALSE(model.isShown());
    session->setShowMissingFileAlert(true);
    EXPECT_FALSE(model.isShown());
}

TEST_F(MissingMedia, IsOfferedToBeReconnectedOnItsOwnSide)
{
    openWithout({"/above.mp4"});
    EXPECT_TRUE(model.isShown());
    EXPECT_TRUE(model.showAboveReconnect());
    EXPECT_FALSE(model.showBelowReconnect());
}

TEST_F(MissingMedia, OfBothSidesIsReconnectedOneAfterTheOther)
{
    const QSignalSpy told(&model, &MissingMediaModel::changed);
    openWithout({"/above.mp4", "/below.mp4"});
    EXPECT_TRUE(model.showAboveReconnect());
    EXPECT_TRUE(model.showBelowReconnect());
    model.reconnectAbove();
    advance(5);
    EXPECT_TRUE(model.isShown());
    EXPECT_FALSE(model.showAboveReconnect());
    EXPECT_TRUE(model.showBelowReconnect());
    chooser.chosen = {FileUrl("/found/below.mp4")};
    model.reconnectBelow();
    advance(5);
    EXPECT_FALSE(model.isShown());
    EXPECT_THAT(filesIn(below()), ElementsAre("/found/below.mp4"));
    EXPECT_GE(told.count(), 3);
}

TEST_F(MissingMedia, IsAskedForAsTheVideosOfOneRecording)
{
    openWithout({"/above.mp4"});
    model.reconnectAbove();
    ASSERT_THAT(chooser.panels, SizeIs(1));
    const OpenPanel& panel = chooser.panels.front();
    EXPECT_EQ(panel.title, languages.localized(QStringLiteral("Select Video Files")));
    EXPECT_EQ(panel.prompt, languages.localized(QStringLiteral("Select")));
    EXPECT_TRUE(panel.allowsMultiple);
    EXPECT_EQ(size_t(panel.extensions.size()), VideoFileHelper::supportedExtensions().size());
    EXPECT_TRUE(panel.extensions.contains(QStringLiteral("mp4")));
    advance(5);
}

TEST_F(MissingMedia, IsReplacedByTheVideosAmongTheChosenFilesInTheirOrder)
{
    openWithout({"/above.mp4"});
    model.reconnectAbove();
    advance(5);
    EXPECT_THAT(filesIn(above()), ElementsAre("/found/a1.mp4", "/found/a2.MP4"));
    EXPECT_FALSE(model.isShown());
}

TEST_F(MissingMedia, StaysMissingWhenNothingIsChosen)
{
    openWithout({"/above.mp4"});
    for (const std::vector<FileUrl>& chosen : {std::vector<FileUrl>(), {FileUrl("/found/notes.txt")}}) {
        chooser.chosen = chosen;
        model.reconnectAbove();
        advance(5);
        EXPECT_TRUE(model.showAboveReconnect());
    }
    EXPECT_THAT(chooser.panels, SizeIs(2));
}

TEST_F(MissingMedia, IsChosenInOnePanelAtATime)
{
    openWithout({"/above.mp4", "/below.mp4"});
    model.reconnectAbove();
    model.reconnectAbove();
    model.reconnectBelow();
    EXPECT_THAT(chooser.panels, SizeIs(1));
    advance(5);
    model.reconnectBelow();
    EXPECT_THAT(chooser.panels, SizeIs(2));
    advance(5);
}

TEST_F(MissingMedia, ThatWasGivenUpMeanwhileIsNotReconnected)
{
    openWithout({"/above.mp4"});
    model.reconnectAbove();
    model.reset();
    advance(5);
    EXPECT_FALSE(session->aboveVideoURL());
}

TEST_F(MissingMedia, IsGivenUpWithTheProject)
{
    openWithout({"/above.mp4"});
    model.reset();
    advance(5);
    EXPECT_FALSE(model.isShown());
    EXPECT_FALSE(session->belowVideoURL());
    EXPECT_EQ(session->currentStep(), WorkflowStep::step1);
    EXPECT_EQ(session->projectConfig(), VideoCompositionConfig());
}

TEST_F(MissingMedia, MayLoseItsCardWhileThePanelIsOpen)
{
    openWithout({"/above.mp4"});
    auto brief = std::make_unique<MissingMediaModel>(*session, chooser, languages);
    brief->reconnectAbove();
    brief.reset();
    advance(5);
    EXPECT_TRUE(model.showAboveReconnect());
}

}
}
