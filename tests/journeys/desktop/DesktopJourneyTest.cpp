// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/desktop/DesktopJourney.h"
#include "support/FootageMaker.h"

#include <QMimeData>

namespace zumeta {
namespace {

using namespace test;
using testing::ElementsAre;

/// Takes every drop on a window, and notes what was dropped.
class DropCatcher final : public QObject {
public:
    std::vector<std::string> files;
    QPointF place; ///< in the window

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() != QEvent::DragEnter && event->type() != QEvent::DragMove && event->type() != QEvent::Drop)
            return false;
        auto* const drop = static_cast<QDropEvent*>(event);
        drop->acceptProposedAction();
        if (event->type() == QEvent::Drop) {
            place = drop->position();
            for (const QUrl& url : drop->mimeData()->urls())
                files.push_back(url.toLocalFile().toStdString());
        }
        return true;
    }
};

struct OnTheDesktop : DesktopJourney {
    QString text(const char* key) { return app().languages().localized(QString::fromLatin1(key)); }
};

TEST_F(OnTheDesktop, TheApplicationStartsAndStartIsClickedWithThePointer)
{
    openOnDesktop();
    ASSERT_TRUE(item("startButton"));
    const QPoint button = onScreen(item("startButton"));
    // What the screen shows there is the button: lime, with dark letters.
    const QColor shown = screenshot().pixelColor(button + QPoint(0, -18));
    EXPECT_GT(shown.green(), 200);
    EXPECT_LT(shown.blue(), 120);
    clickItem(item("startButton"));
    EXPECT_TRUE(waitFor([&] { return !item("startButton"); }));
    EXPECT_TRUE(app().session().isCameraSelectionConfirmed());
    EXPECT_TRUE(waitFor([&] {
        const QColor after = screenshot().pixelColor(button + QPoint(0, -18));
        return after.green() < 100; // the workplace
    }));
}

TEST_F(OnTheDesktop, TheCameraIsChosenWithThePointer)
{
    openOnDesktop();
    clickItem(itemWithText(QStringLiteral("Insta360")));
    EXPECT_TRUE(waitFor([&] { return app().session().selectedCamera() == CameraType::insta360; }));
}

TEST_F(OnTheDesktop, TheLanguageChangesByKeys)
{
    openOnDesktop();
    pressKeys({QStringLiteral("Tab"), QStringLiteral("Tab"), QStringLiteral("Tab"), QStringLiteral("Tab"),
               QStringLiteral("Return")});
    ASSERT_TRUE(waitFor([&] { return itemWithText(rawValue(AppLanguage::german)) != nullptr; }));
    pressKeys(QStringList(8, QStringLiteral("Down")) + QStringList{QStringLiteral("Return")});
    EXPECT_TRUE(waitFor([&] { return app().languages().currentLanguage() == AppLanguage::german; }));
    EXPECT_TRUE(waitFor([&] { return itemWithText(text("Select Camera")) != nullptr; }));
}

TEST_F(OnTheDesktop, TheExportSheetIsWalkedThroughByKeys)
{
    openOnDesktop();
    confirmCamera();
    app().session().setShowExportSheet(true);
    ASSERT_TRUE(waitFor([&] { return item("exportSheetExport") && item("exportSheetExport")->hasActiveFocus(); }));
    pressKeys({QStringLiteral("Up"), QStringLiteral("Down")});
    EXPECT_TRUE(waitFor([&] { return app().session().selectedResolution() == ExportResolutionType::hd1080; }));
    pressKeys({QStringLiteral("Return")}); // without videos
    ASSERT_TRUE(waitFor([&] { return item("alertButton0") && item("alertButton0")->hasActiveFocus(); }));
    pressKeys({QStringLiteral("Escape")});
    ASSERT_TRUE(waitFor([&] { return item("exportSheetExport")->hasActiveFocus(); }));
    EXPECT_TRUE(app().session().showExportSheet());
    pressKeys({QStringLiteral("Escape")});
    EXPECT_TRUE(waitFor([&] { return !app().session().showExportSheet(); }));
}

TEST_F(OnTheDesktop, FilesOfAnotherProgramAreDroppedOnTheWindow)
{
    openOnDesktop();
    confirmCamera();
    const std::filesystem::path file = FootageMaker::make({});
    FootageSpec otherSpec;
    otherSpec.firstNumber = 500;
    const std::filesystem::path other = FootageMaker::make(otherSpec);
    DropCatcher catcher;
    window().installEventFilter(&catcher);
    startDragSource({1460, 20}, {file, other});
    const QPoint target = window().mapToGlobal(QPoint(400, 400));
    dragFilesTo(target);
    EXPECT_EQ(endOfDrag(), "copied");
    EXPECT_THAT(catcher.files, ElementsAre(file.native(), other.native()));
    EXPECT_NEAR(catcher.place.x(), 402, 1);
    EXPECT_NEAR(catcher.place.y(), 401, 1);
}

}
}
