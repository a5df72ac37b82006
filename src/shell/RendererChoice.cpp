// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/RendererChoice.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QQuickWindow>
#include <algorithm>

namespace zumeta {

namespace {

QByteArray askOpenGl()
{
    QOpenGLContext context;
    if (!context.create())
        return {};
    QOffscreenSurface surface;
    surface.setFormat(context.format());
    surface.create();
    if (!context.makeCurrent(&surface))
        return {};
    const auto* const name = reinterpret_cast<const char*>(context.functions()->glGetString(GL_RENDERER));
    const QByteArray renderer(name);
    context.doneCurrent();
    return renderer;
}

bool systemHasGraphicsDevice()
{
    const bool hasRenderNode =
        !QDir(QStringLiteral("/dev/dri")).entryList({QStringLiteral("renderD*")}, QDir::System).isEmpty();
    return hasRenderNode || QFile::exists(QStringLiteral("/dev/nvidiactl"));
}

RendererFacts factsOfThisMachine()
{
    const auto isNamed = [](const char* variable) { return !qEnvironmentVariableIsEmpty(variable); };
    return {.isChosenByUser = isNamed("QT_QUICK_BACKEND") || isNamed("QSG_RHI_BACKEND"),
            .isSoftwareForced = qEnvironmentVariable("LIBGL_ALWAYS_SOFTWARE") == QLatin1String("1"),
            .hasGraphicsDevice = systemHasGraphicsDevice(),
            .openGlRenderer = askOpenGl};
}

}

bool isSoftwareRenderer(const QByteArray& openGlRenderer)
{
    const QByteArray name = openGlRenderer.toLower();
    constexpr const char* kComputed[] = {"llvmpipe", "softpipe", "software rasterizer", "swrast", "swiftshader"};
    return std::any_of(std::begin(kComputed), std::end(kComputed),
                       [&](const char* computed) { return name.contains(computed); });
}

SceneGraph sceneGraphFor(const RendererFacts& facts)
{
    if (facts.isChosenByUser)
        return SceneGraph::platformDefault;
    if (facts.isSoftwareForced || !facts.hasGraphicsDevice)
        return SceneGraph::software;
    const QByteArray renderer = facts.openGlRenderer();
    return renderer.isEmpty() || isSoftwareRenderer(renderer) ? SceneGraph::software : SceneGraph::platformDefault;
}

void chooseSceneGraph()
{
    if (sceneGraphFor(factsOfThisMachine()) == SceneGraph::software)
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

}
