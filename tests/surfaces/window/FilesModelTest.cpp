// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/window/FilesModel.h"
#include "../../session/SessionHarness.h"
#include "languages/LanguageManager.h"
#include "platform/FileChooser.h"
#include "support/MemoryUserDefaults.h"
#include "surfaces/window/DropTarget.h"

#include <QCoreApplication>
#include <QMimeData>

namespace zumeta::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Answers after a second of virtual time.
class FakeChooser final : public FileChooser {
public:
    explicit FakeChooser(VirtualTime& time)
        : m_time(time)
    {}
    Task<std::vector<FileUrl>> showOpenPanel(OpenPanel panel) override
    {
        panels.push_back(panel);
        co_await m_time.pass(1);
        co_return chosen;
    }

    std::vector<OpenPanel> panels;
    std::vector<FileUrl> chosen;

private:
    VirtualTime& m_time;
};

struct Files : SessionTest {
    FakeChooser chooser{time};
    MemoryUserDefaults settings;
    LanguageManager languages{settings, [] { return QStringList{QStringLiteral("en")}; }};
    std::unique_ptr<FilesModel> model = std::make_unique<FilesModel>(*session, chooser, languages);

    ~Files()
    {
        advance(10); // what still waits for an answer
        model.reset();
    }

    FileUrl add(const char* path, const FakeVideo& video = {}) { return media.add(path, video); }
    void choose(std::vector<FileUrl> urls)
    {
        chooser.chosen = std::move(urls);
        model->chooseVideos();
        advance(2);
    }
    void drop(const QByteArray& addresses)
    {
        QMimeData data;
        data.setData(QStringLiteral("text/uri-list"), addresses);
        model->handleCentralDrop(droppedItems(data));
        QCoreApplication::processEvents();
        advance(2);
    }
    std::vector<FileUrl> aboveFiles()
    {
        const std::optional<VideoAsset>& video = session->projectState().aboveVideo;
        return video ? video->fileURLs : std::vector<FileUrl>();
    }
    std::vector<FileUrl> belowFiles()
    {
        const std::optional<VideoAsset>& video = session->projectState().belowVideo;
        return video ? video->fileURLs : std::vector<FileUrl>();
    }
};

TEST_F(Files, AreAskedForByACardWhileTheStepLacksItsVideo)
{
    EXPECT_TRUE(model->shouldShowCentralDropInstruction());
    loadAbove("/above.mp4");
    EXPECT_FALSE(model->shouldShowCentralDropInstruction());
    session->setCurrentStep(WorkflowStep::step2);
    EXPECT_TRUE(model->shouldShowCentralDropInstruction());
    loadBelow("/below.mp4");
    EXPECT_FALSE(model->shouldShowCentralDropInstruction());
}

TEST_F(Files, AreNotAskedForInTheLaterSteps)
{
    session->setCurrentStep(WorkflowStep::step3);
    EXPECT_FALSE(model->shouldShowCentralDropInstruction());
    session->setCurrentStep(WorkflowStep::step4);
    EXPECT_FALSE(model->shouldShowCentralDropInstruction());
    EXPECT_EQ(model->centralDropInstructionText(), QString());
    EXPECT_EQ(model->centralDropInstructionDescription(), QString());
    EXPECT_EQ(model->centralDropButtonTitle(), QString());
}

TEST_F(Files, AreAskedForInTheWordsOfTheStep)
{
    EXPECT_EQ(model->centralDropInstructionText(), QStringLiteral("Above Video"));
    EXPECT_EQ(model->centralDropInstructionDescription(), QStringLiteral("Above Video Drop Description"));
    EXPECT_EQ(model->centralDropButtonTitle(), QStringLiteral("Choose Above Video"));
    EXPECT_TRUE(model->isDropZoneHighlighted());
    session->setCurrentStep(WorkflowStep::step2);
    EXPECT_EQ(model->centralDropInstructionText(), QStringLiteral("Below Video"));
    EXPECT_EQ(model->centralDropInstructionDescription(), QStringLiteral("Below Video Drop Description"));
    EXPECT_EQ(model->centralDropButtonTitle(), QStringLiteral("Choose Below Video"));
}

TEST_F(Files, ThatAreChosenAreLoadedInTheirOrder)
{
    choose({add("/GX020042.MP4"), add("/GX010042.MP4")});
    EXPECT_THAT(aboveFiles(), ElementsAre(FileUrl("/GX010042.MP4"), FileUrl("/GX020042.MP4")));
}

TEST_F(Files, AreAskedForInAPanelOfVideosAlone)
{
    choose({});
    ASSERT_EQ(chooser.panels.size(), 1u);
    EXPECT_EQ(chooser.panels[0].title, QStringLiteral("Select Video Files"));
    EXPECT_EQ(chooser.panels[0].prompt, QStringLiteral("Select"));
    EXPECT_TRUE(chooser.panels[0].allowsMultiple);
    EXPECT_TRUE(chooser.panels[0].extensions.contains(QStringLiteral("mp4")));
    EXPECT_EQ(size_t(chooser.panels[0].extensions.size()), VideoFileHelper::supportedExtensions().size());
}

TEST_F(Files, ThatAreNotChosenLeaveTheSessionAsItWas)
{
    loadAbove("/above.mp4");
    session->seek(5, true);
    choose({});
    EXPECT_EQ(session->aboveVideoURL(), FileUrl("/above.mp4"));
    EXPECT_EQ(session->currentTime(), 5);
}

TEST_F(Files, OfNoVideoKindAreNotLoaded)
{
    choose({FileUrl("/notes.txt")});
    EXPECT_FALSE(session->aboveVideoURL());
}

TEST_F(Files, AreAskedForInOnePanelAtATime)
{
    model->chooseVideos();
    model->chooseVideos();
    EXPECT_EQ(chooser.panels.size(), 1u);
    advance(2);
    model->chooseVideos();
    EXPECT_EQ(chooser.panels.size(), 2u);
}

TEST_F(Files, GoToTheSideForWhichTheyWereAsked)
{
    chooser.chosen = {add("/below.mp4")};
    session->setCurrentStep(WorkflowStep::step2);
    model->chooseVideos();
    session->setCurrentStep(WorkflowStep::step1);
    advance(2);
    EXPECT_EQ(session->belowVideoURL(), FileUrl("/below.mp4"));
    EXPECT_FALSE(session->aboveVideoURL());
}

TEST_F(Files, AreNotLoadedOnceTheStepIsALaterOne)
{
    chooser.chosen = {add("/above.mp4")};
    model->chooseVideos();
    session->setCurrentStep(WorkflowStep::step3);
    advance(2);
    EXPECT_FALSE(session->aboveVideoURL());
    EXPECT_THAT(fileAccess.started, ElementsAre(FileUrl("/above.mp4"))) << "held all the same";
}

TEST_F(Files, ReplaceThoseOfTheirSide)
{
    loadAbove("/first.mp4");
    session->seek(3, true);
    session->toggleAboveLock();
    const FileUrl second = add("/second.mp4");
    model->loadSelectedVideoURLs({second}, zumeta::Side::above);
    EXPECT_FALSE(session->manualSyncTimeAbove()) << "cleared before the load";
    EXPECT_FALSE(session->aboveVideoURL());
    advance(2);
    EXPECT_EQ(session->aboveVideoURL(), second);
}

TEST_F(Files, ThatAreDroppedGoToTheSideOfTheStepAtTheDrop)
{
    add("/GX010117.MP4");
    add("/GX020117.MP4");
    session->setCurrentStep(WorkflowStep::step2);
    drop("file:///GX020117.MP4\r\nfile:///GX010117.MP4\r\n");
    EXPECT_THAT(belowFiles(), ElementsAre(FileUrl("/GX010117.MP4"), FileUrl("/GX020117.MP4")));
}

TEST_F(Files, ThatAreDroppedTogetherAreNamedInTheLog)
{
    add("/GX010117.MP4");
    add("/GX020117.MP4");
    drop("file:///GX020117.MP4\r\nfile:///GX010117.MP4\r\n");
    EXPECT_THAT(log, testing::Contains(QStringLiteral("📎 Multiple files dropped: GX010117.MP4, GX020117.MP4")));
}

TEST_F(Files, ThatIsDroppedAloneIsNotNamedInTheLog)
{
    add("/above.mp4");
    drop("file:///above.mp4\r\n");
    EXPECT_THAT(log, testing::Not(testing::Contains(testing::ResultOf(
                         [](const QString& line) { return line.startsWith(QStringLiteral("📎 Multiple")); }, true))));
}

TEST_F(Files, ThatAreDroppedOntoALaterStepAreNotLoaded)
{
    add("/above.mp4");
    session->setCurrentStep(WorkflowStep::step3);
    drop("file:///above.mp4\r\n");
    EXPECT_FALSE(session->aboveVideoURL());
    EXPECT_THAT(fileAccess.started, IsEmpty());
}

TEST_F(Files, OfTheDropThatAreNoVideosAreLeftOut)
{
    add("/above.mp4");
    drop("file:///notes.txt\r\nhttp://example.org/film.mp4\r\nfile:///above.mp4\r\n");
    EXPECT_THAT(aboveFiles(), ElementsAre(FileUrl("/above.mp4")));
}

TEST_F(Files, AreNotClearedByADropWithoutAVideo)
{
    loadAbove("/above.mp4");
    drop("file:///notes.txt\r\n");
    EXPECT_EQ(session->aboveVideoURL(), FileUrl("/above.mp4"));
}

TEST(DroppedItems, AreTheLinesOfTheListOfAddresses)
{
    QMimeData data;
    data.setData(QStringLiteral("text/uri-list"), "# a comment\r\nfile:///a%20b.mp4\r\n\r\nfile:///%FF.mp4");
    const std::vector<DroppedItem> items = droppedItems(data);
    ASSERT_EQ(items.size(), 2u);
    EXPECT_EQ(std::get<QByteArray>(items[0]), "file:///a%20b.mp4");
    EXPECT_EQ(std::get<QByteArray>(items[1]), "file:///%FF.mp4");
}

TEST(DroppedItems, OfAnotherKindAreNoFiles)
{
    QMimeData data;
    data.setText(QStringLiteral("/a.mp4"));
    const std::vector<DroppedItem> items = droppedItems(data);
    ASSERT_EQ(items.size(), 1u);
    EXPECT_TRUE(std::holds_alternative<DropOfAnotherKind>(items[0]));
    EXPECT_THAT(VideoFileHelper::loadDroppedVideoURLs(items), IsEmpty());
}

TEST_F(Files, AreNamedInTheBar)
{
    EXPECT_FALSE(model->above()->isPresent());
    EXPECT_EQ(model->above()->name(), QString());
    loadAbove("/films/GX010042.MP4");
    EXPECT_TRUE(model->above()->isPresent());
    EXPECT_EQ(model->above()->name(), QStringLiteral("GX010042.MP4"));
    EXPECT_FALSE(model->below()->isPresent());
}

TEST_F(Files, OfTheCurrentStepAreMarked)
{
    EXPECT_TRUE(model->above()->isActive());
    EXPECT_FALSE(model->below()->isActive());
    session->setCurrentStep(WorkflowStep::step2);
    EXPECT_FALSE(model->above()->isActive());
    EXPECT_TRUE(model->below()->isActive());
    session->setCurrentStep(WorkflowStep::step3);
    EXPECT_FALSE(model->below()->isActive());
}

TEST_F(Files, ThatCannotBeReadAreWarnedOfOnceTheLoadHasEnded)
{
    FakeVideo broken;
    broken.isReadable = false;
    session->loadAboveVideo({add("/broken.mp4", broken)});
    advance(0.05);
    EXPECT_TRUE(model->above()->isPresent());
    EXPECT_FALSE(model->above()->isUnreadable()) << "it may still come";
    advance(2);
    EXPECT_TRUE(model->above()->isUnreadable());
    model->above()->clear();
    EXPECT_FALSE(model->above()->isUnreadable());
    EXPECT_FALSE(model->above()->isPresent());
}

TEST_F(Files, ThatWereReadAreNotWarnedOf)
{
    loadAbove("/above.mp4");
    EXPECT_FALSE(model->above()->isUnreadable());
}

TEST_F(Files, AreClearedSideBySide)
{
    loadBoth();
    model->below()->clear();
    EXPECT_TRUE(session->aboveVideoURL());
    EXPECT_FALSE(session->belowVideoURL());
    model->above()->clear();
    EXPECT_FALSE(session->aboveVideoURL());
}

TEST_F(Files, ProxiesAreToldOfInWholePercents)
{
    SideFile& file = *model->above();
    EXPECT_FALSE(file.isProxyGenerated());
    session->proxyService().setAboveVideoStatus(ProxyStatus::generating(0.29));
    advance(0.1);
    EXPECT_TRUE(file.isProxyGenerated());
    EXPECT_EQ(file.proxyPercent(), 29);
    session->proxyService().setAboveVideoStatus(ProxyStatus::generating(0.999));
    advance(0.1);
    EXPECT_EQ(file.proxyPercent(), 99);
    session->proxyService().setAboveVideoStatus(ProxyStatus::completed());
    advance(0.1);
    EXPECT_FALSE(file.isProxyGenerated());
    EXPECT_EQ(file.proxyPercent(), 99) << "while its badge fades";
    EXPECT_FALSE(model->below()->isProxyGenerated());
}

TEST_F(Files, AProxyThatFailedIsToldOf)
{
    session->proxyService().setBelowVideoStatus(ProxyStatus::failed(QStringLiteral("no space")));
    advance(0.1);
    EXPECT_TRUE(model->below()->hasProxyFailed());
    EXPECT_FALSE(model->below()->isProxyGenerated());
    EXPECT_FALSE(model->above()->hasProxyFailed());
}

}
}
