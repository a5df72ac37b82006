// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/window/WindowJourney.h"
#include "render/preview/CompositePlayerNSView.h"
#include "support/BarCode.h"
#include "support/FootageMaker.h"

#include <QApplication>
#include <QDropEvent>
#include <QFileDialog>
#include <QLineEdit>
#include <QMimeData>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QTest>
#include <fstream>

namespace zumeta {
namespace {

using namespace test;

using WorkflowStep = CompositorViewModel::WorkflowStep;

constexpr double kGoProScale = 1.22;
constexpr QPoint kNowhere(5, 600); ///< nothing is hovered there

RawPicture brightnessOf(const QImage& image)
{
    PictureFormat format;
    format.width = image.width();
    format.height = image.height();
    format.range = ColourRange::full;
    RawPicture picture(format);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            picture.setSample(0, x, y, qGray(image.pixel(x, y)));
    }
    return picture;
}

struct PreviewJourney : WindowJourney {
    CompositorViewModel& session() { return app().session(); }

    CompositePlayerNSView* surface()
    {
        QQuickItem* const view = item("previewSurface");
        return view ? view->findChild<CompositePlayerNSView*>() : nullptr;
    }
    /// Where the picture stands in the window.
    QRectF frame()
    {
        CompositePlayerNSView* const shown = surface();
        return shown ? shown->mapRectToScene(QRectF(QPointF(), shown->size())) : QRectF();
    }
    QPoint placeAt(double x, double height)
    {
        const QRectF picture = frame();
        return QPointF(picture.x() + x * picture.width(), picture.bottom() - height * picture.height()).toPoint();
    }
    /// The number of the frame that a side shows in the window.
    std::optional<int> shownNumber(test::Side side)
    {
        const QImage picture = window().grabWindow().copy(frame().toRect());
        const double scale = side == test::Side::above ? kGoProScale : 1;
        const double width = picture.width();
        const double height = picture.height();
        const Placement placement{(1 - scale) / 2 * width, (1 - scale) / 2 * height, scale * width, scale * height};
        const CodeStrip strip = side == test::Side::above ? CodeStrip::upper : CodeStrip::lower;
        const std::optional<BarCode> code = readBarCode(brightnessOf(picture), strip, placement);
        return code && code->side == side ? std::optional(code->number) : std::nullopt;
    }
    bool shows(test::Side side, int number)
    {
        return waitFor([&] { return shownNumber(side) == number; }, 15000);
    }
    double middleY(const char* objectName)
    {
        QQuickItem* const found = item(objectName);
        return found ? found->mapToScene(QPointF(0, found->height() / 2)).y() : -1;
    }
    /// Step 1 with its video, locked at a second, so that a click picks the water.
    void openPick(QSize size = {1400, 900})
    {
        open(size);
        confirmCamera();
        loadVideo(zumeta::Side::above);
        session().seek(1, true);
        session().toggleAboveLock();
        ASSERT_TRUE(shows(test::Side::above, 30));
    }
    /// Step 1 in a small window with a grey picture that is locked.
    void openGreyPick()
    {
        open({1024, 680});
        confirmCamera();
        FootageSpec spec;
        spec.scene = Scene::plain;
        spec.frames = 90;
        loadFiles(zumeta::Side::above, {FileUrl(FootageMaker::make(spec).native())});
        session().setCurrentStep(WorkflowStep::step1);
        session().seek(1, true);
        session().toggleAboveLock();
        ASSERT_TRUE(shows(test::Side::above, 30));
        movePointer(kNowhere);
    }
    void drop(const std::vector<std::filesystem::path>& files)
    {
        QByteArray addresses;
        for (const std::filesystem::path& file : files)
            addresses += FileUrl(file.native()).absoluteString() + "\r\n";
        QMimeData data;
        data.setData(QStringLiteral("text/uri-list"), addresses);
        const QPoint place = QPoint(300, 300);
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&window(), &enter);
        wasOffered = enter.isAccepted();
        if (!wasOffered)
            return;
        QDropEvent event(place, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&window(), &event);
    }
    std::vector<FileUrl> aboveFiles()
    {
        const std::optional<VideoAsset>& video = session().projectState().aboveVideo;
        return video ? video->fileURLs : std::vector<FileUrl>();
    }
    /// Three seconds in two files, as a camera splits and names them.
    std::vector<std::filesystem::path> chapters(const TemporaryFolder& folder)
    {
        std::vector<std::filesystem::path> files;
        for (const int chapter : {1, 2}) {
            FootageSpec spec;
            spec.frames = 45;
            spec.firstNumber = (chapter - 1) * 45;
            files.push_back(folder.file("GX0" + std::to_string(chapter) + "0042.MP4"));
            std::filesystem::copy_file(FootageMaker::make(spec), files.back());
        }
        return files;
    }

    bool wasOffered = false;
};

TEST_F(PreviewJourney, ShowsEachStepsPicture)
{
    open();
    confirmCamera();
    EXPECT_TRUE(item("dropInstructionCard"));
    EXPECT_FALSE(item("previewSurface"));
    loadVideo(zumeta::Side::above);
    EXPECT_TRUE(shows(test::Side::above, 0));
    EXPECT_FALSE(item("dropInstructionCard"));
    session().seek(1, true);
    EXPECT_TRUE(shows(test::Side::above, 30));
    session().setCurrentStep(WorkflowStep::step2);
    ASSERT_TRUE(waitFor([&] { return item("dropInstructionCard") != nullptr; }));
    EXPECT_FALSE(item("previewSurface")) << "the card takes the picture's place";
    loadVideo(zumeta::Side::below);
    session().seek(2, true);
    EXPECT_TRUE(shows(test::Side::below, 1060));
}

TEST_F(PreviewJourney, ShowsBothSidesOfOneMomentInTheComposite)
{
    openStep(3);
    for (const int frame : {0, 60, 15}) {
        session().seek(frame / 30.0, true);
        EXPECT_TRUE(shows(test::Side::above, frame));
        EXPECT_TRUE(shows(test::Side::below, 1000 + frame));
    }
}

TEST_F(PreviewJourney, FitsThePictureAndLeavesRoomForTheMarkers)
{
    openStep(3);
    ASSERT_TRUE(waitFor([&] { return frame().width() == 1010; }));
    EXPECT_EQ(frame().height(), 568) << "16:9 in even pixels";
    const double middle = frame().center().y();
    session().setCurrentStep(WorkflowStep::step4);
    EXPECT_TRUE(waitFor([&] { return frame().center().y() == middle - 12; }));
    EXPECT_EQ(frame().width(), 1010);
    session().setFullScreen(true);
    EXPECT_TRUE(waitFor([&] { return frame().width() > 1390; }));
    EXPECT_LE(frame().bottom(), item("previewSurface")->mapToScene(QPointF(0, item("previewSurface")->height())).y());
}

TEST_F(PreviewJourney, PicksTheWaterByAClick)
{
    openPick();
    EXPECT_TRUE(item("tapGuide"));
    EXPECT_EQ(surface()->cursor().shape(), Qt::CrossCursor);
    movePointer(placeAt(0.3, 0.75));
    ASSERT_TRUE(waitFor([&] { return item("pointerLine") != nullptr; }));
    EXPECT_NEAR(middleY("pointerLine"), placeAt(0.3, 0.75).y(), 1);
    QTest::mouseClick(&window(), Qt::LeftButton, {}, placeAt(0.3, 0.75));
    ASSERT_TRUE(waitFor([&] { return session().alignmentPointAbove().has_value(); }));
    EXPECT_NEAR(*session().alignmentPointAbove(), 0.75, 0.002);
    ASSERT_TRUE(waitFor([&] { return item("fixedLine") != nullptr; }));
    EXPECT_NEAR(middleY("fixedLine"), placeAt(0.3, 0.75).y(), 1);
    EXPECT_FALSE(item("tapGuide"));
    movePointer(QPoint(1200, 300)); // the panel
    EXPECT_TRUE(waitFor([&] { return !item("pointerLine"); }));
}

TEST_F(PreviewJourney, AClickOnTheGuidesReachesThePicture)
{
    openPick();
    ASSERT_TRUE(item("tapGuide"));
    QTest::mouseClick(&window(), Qt::LeftButton, {}, middleOf(item("tapGuide")));
    EXPECT_TRUE(waitFor([&] { return session().alignmentPointAbove().has_value(); }));
}

TEST_F(PreviewJourney, WithoutAPickHasTheUsualCursorAndNoLines)
{
    open();
    confirmCamera();
    loadVideo(zumeta::Side::above);
    ASSERT_TRUE(shows(test::Side::above, 0));
    EXPECT_EQ(surface()->cursor().shape(), Qt::ArrowCursor);
    movePointer(placeAt(0.3, 0.75));
    QTest::mouseClick(&window(), Qt::LeftButton, {}, placeAt(0.3, 0.75));
    QTest::qWait(50);
    EXPECT_FALSE(item("pointerLine"));
    EXPECT_FALSE(session().alignmentPointAbove());
    EXPECT_TRUE(item("verticalGuideLine"));
}

TEST_F(PreviewJourney, PicksTheWaterByKeys)
{
    openPick();
    for (int i = 0; i < 40 && !item("previewFocusRing"); ++i)
        press(Qt::Key_Tab);
    ASSERT_TRUE(item("previewFocusRing"));
    ASSERT_TRUE(waitFor([&] { return item("pointerLine") != nullptr; }));
    EXPECT_NEAR(middleY("pointerLine"), placeAt(0, 0.5).y(), 1);
    press(Qt::Key_PageUp);
    press(Qt::Key_PageUp);
    press(Qt::Key_PageDown, Qt::ShiftModifier);
    press(Qt::Key_Return);
    ASSERT_TRUE(waitFor([&] { return session().alignmentPointAbove().has_value(); }));
    EXPECT_DOUBLE_EQ(*session().alignmentPointAbove(), 339.0 / 600);
}

TEST_F(PreviewJourney, KeepsTheLinesOnThePictureInATallWindow)
{
    openPick({1024, 1500});
    ASSERT_GT(frame().top(), 300) << "bars above the picture";
    session().onPickWaterline(1);
    ASSERT_TRUE(waitFor([&] { return item("fixedLine") != nullptr; }));
    EXPECT_NEAR(middleY("fixedLine"), frame().top(), 0.5);
    session().onPickWaterline(0.25);
    ASSERT_TRUE(waitFor([&] { return std::abs(middleY("fixedLine") - placeAt(0, 0.25).y()) < 1; }));
    const double guideTop = item("verticalGuideLine")->mapToScene(QPointF()).y();
    EXPECT_EQ(guideTop, frame().top());
    QTest::mouseClick(&window(), Qt::LeftButton, {}, QPoint(300, int(frame().top()) - 100));
    QTest::qWait(50);
    EXPECT_EQ(session().alignmentPointAbove(), 0.25) << "a click beside the picture is none";
}

TEST_F(PreviewJourney, TakesSeveralChaptersThatAreDropped)
{
    open();
    confirmCamera();
    const TemporaryFolder folder;
    const std::vector<std::filesystem::path> files = chapters(folder);
    drop({files[1], files[0]});
    EXPECT_TRUE(wasOffered);
    ASSERT_TRUE(waitFor([&] { return aboveFiles().size() == 2; }, 15000));
    EXPECT_EQ(aboveFiles()[0], FileUrl(files[0].native()));
    EXPECT_TRUE(waitFor([&] { return itemWithText(QStringLiteral("GX010042.MP4")) != nullptr; }));
    ASSERT_TRUE(waitFor([&] { return session().duration() > 2.9; }, 15000));
    session().seek(2, true);
    EXPECT_TRUE(shows(test::Side::above, 60)) << "in the second file";
}

TEST_F(PreviewJourney, TakesNoDropsOnceThereIsAVideo)
{
    openPick();
    const TemporaryFolder folder;
    drop(chapters(folder));
    EXPECT_FALSE(wasOffered);
}

TEST_F(PreviewJourney, TakesNoDropsUnderAQuestionOrOnTheStartScreen)
{
    open();
    const TemporaryFolder folder;
    const std::vector<std::filesystem::path> files = chapters(folder);
    drop(files);
    EXPECT_FALSE(wasOffered);
    confirmCamera();
    Alert alert;
    alert.buttons = {QStringLiteral("OK")};
    app().dialogs().showAlert(alert);
    ASSERT_TRUE(waitFor([&] { return item("alertButton0") != nullptr; }));
    drop(files);
    EXPECT_FALSE(wasOffered);
    EXPECT_FALSE(session().aboveVideoURL());
}

TEST_F(PreviewJourney, LoadsWhatIsChosenInTheDesktopsDialog)
{
    open();
    confirmCamera();
    const TemporaryFolder folder;
    const std::vector<std::filesystem::path> files = chapters(folder);
    click(item("chooseVideoButton"));
    ASSERT_TRUE(waitFor([&] { return fileDialog() != nullptr; }));
    EXPECT_EQ(fileDialog()->windowTitle(), QStringLiteral("Select Video Files"));
    EXPECT_TRUE(fileDialog()->nameFilters().constFirst().contains(QStringLiteral("*.MP4")));
    drop(files);
    EXPECT_FALSE(wasOffered) << "while the dialog is open";
    fileDialog()->reject();
    ASSERT_TRUE(waitFor([&] { return fileDialog() == nullptr; }));
    EXPECT_FALSE(session().aboveVideoURL());
    click(item("chooseVideoButton"));
    ASSERT_TRUE(waitFor([&] { return fileDialog() != nullptr; }));
    fileDialog()->setDirectory(QString::fromStdString(folder.path().native()));
    auto* const name = fileDialog()->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    ASSERT_TRUE(name);
    name->setText(QStringLiteral("\"GX020042.MP4\" \"GX010042.MP4\""));
    QTest::keyClick(name, Qt::Key_Return);
    ASSERT_TRUE(waitFor([&] { return aboveFiles().size() == 2; }, 15000));
    EXPECT_EQ(aboveFiles()[0], FileUrl(files[0].native()));
}

TEST_F(PreviewJourney, AVideoGoesByItsButtonInTheBar)
{
    openStep(1);
    ASSERT_TRUE(item("clearButton"));
    click(item("clearButton"));
    EXPECT_TRUE(waitFor([&] { return !session().aboveVideoURL(); }));
    EXPECT_TRUE(waitFor([&] { return item("dropInstructionCard") != nullptr; }));
    EXPECT_FALSE(item("clearButton"));
}

TEST_F(PreviewJourney, WarnsOfAFileThatIsNoVideo)
{
    open();
    confirmCamera();
    const TemporaryFolder folder;
    const std::filesystem::path file = folder.file("GX010042.MP4");
    std::ofstream(file) << "no movie";
    drop({file});
    ASSERT_TRUE(waitFor([&] { return session().aboveVideoURL().has_value(); }));
    QTest::qWait(300);
    movePointer(kNowhere + QPoint(0, 9)); // from where the pointer of an earlier test stood
    movePointer(kNowhere);
    expectPicture("file-unreadable", item("aboveFile"));
}

TEST_F(PreviewJourney, ShowsProxiesInTheMaking)
{
    open({1024, 680});
    confirmCamera();
    session().proxyService().setAboveVideoStatus(ProxyStatus::generating(0.87));
    session().proxyService().setBelowVideoStatus(ProxyStatus::generating(0.42));
    ASSERT_TRUE(waitFor([&] { return itemWithText(QStringLiteral("42%")) != nullptr; }));
    EXPECT_TRUE(itemWithText(QStringLiteral("87%")));
    expectPicture("proxies", item("fileBar"));
    session().proxyService().setAboveVideoStatus(ProxyStatus::completed());
    session().proxyService().setBelowVideoStatus(ProxyStatus::failed(QStringLiteral("no space")));
    EXPECT_TRUE(waitFor([&] { return !item("aboveProxyBadge"); }));
    expectPicture("proxy-failed", item("belowProxyBadge"));
}

TEST_F(PreviewJourney, AsksForAVideoAsItWasDrawn)
{
    open();
    confirmCamera();
    movePointer(kNowhere);
    expectPicture("drop-card-above", item("dropInstructionCard"));
    session().setCurrentStep(WorkflowStep::step2);
    expectPicture("drop-card-below", item("dropInstructionCard"));
    QMimeData data;
    data.setData(QStringLiteral("text/uri-list"), "file:///GX010042.MP4\r\n");
    QDragEnterEvent enter(QPoint(20, 200), Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&window(), &enter);
    expectPicture("drop-card-drag-over", item("dropInstructionCard"));
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(&window(), &leave);
    expectPicture("drop-card-below", item("dropInstructionCard"));
    app().languages().setLanguage(AppLanguage::german);
    window().resize(1024, 680);
    expectPicture("drop-card-german-1024", item("previewArea"));
}

TEST_F(PreviewJourney, ShowsItsGuidesAsTheyWereDrawn)
{
    openGreyPick();
    expectPicture("pick-open", item("previewArea"));
    session().onPickWaterline(0.4);
    movePointer(placeAt(0.3, 0.7));
    ASSERT_TRUE(waitFor([&] { return item("pointerLine") && item("fixedLine"); }));
    expectPicture("pick-made", item("previewArea"));
    session().toggleAboveLock();
    movePointer(kNowhere);
    ASSERT_TRUE(waitFor([&] { return !item("lockBadge"); }));
    expectPicture("guide-inactive", item("previewArea"));
}

TEST_F(PreviewJourney, ShowsWhereTheKeyboardIs)
{
    openGreyPick();
    for (int i = 0; i < 40 && !item("previewFocusRing"); ++i)
        press(Qt::Key_Tab);
    ASSERT_TRUE(item("previewFocusRing"));
    expectPicture("pick-by-keys", item("previewArea"));
}

// Nothing sets its flag yet, so it is shown apart.
TEST_F(PreviewJourney, ShowsTheWaterlineAsItWasDrawn)
{
    openGreyPick();
    QQmlComponent component(qmlEngine(item("previewArea")));
    component.setData("import Zumeta\nWaterlineIndicator { width: 634; position: 20; isShown: true }", {});
    const std::unique_ptr<QObject> made(component.create());
    ASSERT_TRUE(made) << component.errorString().toStdString();
    auto* const line = qobject_cast<QQuickItem*>(made.get());
    EXPECT_EQ(line->y() + line->height() / 2, 20);
    line->setParentItem(item("previewSurface"));
    expectPicture("waterline", line);
    line->setProperty("isShown", false);
    EXPECT_TRUE(waitFor([&] { return line->opacity() == 0; }));
}

TEST_F(PreviewJourney, TellsOfMissingMedia)
{
    const TemporaryFolder folder;
    const std::vector<std::filesystem::path> files = chapters(folder);
    std::ofstream(files[0], std::ios::app) << "like no other file, lest one be found in its place";
    open();
    confirmCamera();
    session().loadAboveVideo({FileUrl(files[0].native())});
    ASSERT_TRUE(waitFor([&] { return !aboveFiles().empty(); }, 15000));
    session().setCurrentStep(WorkflowStep::step3);
    session().prepareProjectForSave();
    ASSERT_TRUE(waitFor([&] { return session().showSaveProjectPanel(); }, 15000));
    session().setShowSaveProjectPanel(false);
    const FileUrl project(folder.file("swim.zumetaproj").native());
    session().saveProject(project);
    ASSERT_TRUE(waitFor([&] { return std::filesystem::exists(project.path()); }));
    session().resetProject();
    std::filesystem::remove(files[0]);
    confirmCamera();
    session().loadProject(project);
    ASSERT_TRUE(waitFor([&] { return session().isAboveMissing(); }, 15000));
    EXPECT_TRUE(waitFor([&] { return item("missingMediaView") != nullptr; }));
    session().setShowMissingFileAlert(false);
    window().resize(1024, 680);
    expectPicture("missing-media", item("missingMediaView"));
    session().setCurrentStep(WorkflowStep::step2);
    EXPECT_TRUE(waitFor([&] { return !item("missingMediaView"); })) << "the step's own side is not missing";
}

}
}
