// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/window/ExportScene.h"

#include "session/ProjectTest.h"

#include <QTest>

namespace zumeta::test {

ExportScene::ExportScene()
{
    harness.localized = [this](const QString& key) { return languages.localized(key); };
    surfaces = std::make_unique<SurfaceContext>(SurfaceEnvironment{languages, *harness.session, harness.notifications,
                                                                   harness.time, defaults, windowDialogs, windowDialogs,
                                                                   alerts, modality});
}

ExportScene::~ExportScene() = default;

void ExportScene::openScene(QSize size)
{
    engine = std::make_unique<QQmlApplicationEngine>();
    surfaces->installOn(*engine);
    engine->load(QUrl::fromLocalFile(QStringLiteral(SCENES_FOLDER "/ExportScene.qml")));
    ASSERT_FALSE(engine->rootObjects().isEmpty());
    window().resize(size);
    window().show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window()));
    window().requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
}

QQuickWindow& ExportScene::window()
{
    return *qobject_cast<QQuickWindow*>(engine->rootObjects().constFirst());
}

void ExportScene::exportUpTo(double fraction)
{
    harness.enterComposite(WorkflowStep::step4, {20, 5}, {18, 3});
    harness.dialogs.savePlace = FileUrl("/nowhere/Zumeta_1080p_2026_1115_1852.mp4");
    harness.session->exportVideo(false);
    advance(1.1001 + 10 * fraction); // the panel's second, the look at the disk, and what has been written since
    ASSERT_EQ(harness.session->exportProgress(), fraction);
}

void ExportScene::openWithoutVideos()
{
    harness.bookmarks.gone = {"/above.mp4", "/below.mp4"};
    harness.projectFiles.files[kProject.path().native()] = ProjectTest::project();
    harness.session->loadProject(kProject);
    advance(5);
    ASSERT_TRUE(harness.session->showMissingFileAlert());
}

}
