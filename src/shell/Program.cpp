// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Program.h"

#include "platform/instance/ScreenName.h"
#include "platform/instance/SingleInstance.h"
#include "platform/interrupts/InterruptWatcher.h"
#include "shell/RendererChoice.h"
#include "shell/ZumetaApp.h"

#include <QApplication>
#include <QStandardPaths>
#include <cstdlib>

namespace zumeta {

namespace {

QString thisScreen()
{
    return screenName(
        {QGuiApplication::platformName(), qEnvironmentVariable("DISPLAY"), qEnvironmentVariable("WAYLAND_DISPLAY")});
}

}

int runProgram(QApplication& application, const std::function<void(ZumetaApp&)>& whenShown)
{
    const QString screen = thisScreen();
    SingleInstance instance(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation),
                            QStringLiteral("zumeta-") + screen);
    const bool isServed =
        !screen.isEmpty() && instance.start(qgetenv("XDG_ACTIVATION_TOKEN")) == SingleInstance::Start::isServed;
    if (isServed)
        return EXIT_SUCCESS;
    const InterruptWatcher interrupts;
    chooseSceneGraph();
    ZumetaApp zumeta;
    if (!zumeta.window())
        return EXIT_FAILURE;
    QObject::connect(&instance, &SingleInstance::startedAgain, zumeta.window(),
                     [&zumeta](const QByteArray& token) { zumeta.showAgain(token); });
    QObject::connect(&interrupts, &InterruptWatcher::interrupted, zumeta.window(), [&zumeta] { zumeta.terminate(); });
    // What an export has begun may take a moment to be tidied up; whoever starts now gets a window of its own.
    QObject::connect(&application, &QCoreApplication::aboutToQuit, &instance, &SingleInstance::release);
    zumeta.showWindow();
    if (whenShown)
        whenShown(zumeta);
    return QApplication::exec();
}

}
