// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QByteArray>
#include <functional>

namespace zumeta {

/// How the window is drawn. Without graphics hardware OpenGL is computed on the processor, pixel by pixel and for the
/// whole window; Qt Quick's own painter draws only what has changed.
enum class SceneGraph { platformDefault, software };

struct RendererFacts {
    bool isChosenByUser = false;    ///< the environment names a renderer, and that counts
    bool isSoftwareForced = false;  ///< the environment asks for OpenGL without hardware
    bool hasGraphicsDevice = false; ///< the system has a device that could draw
    /// What OpenGL calls its renderer; empty when there is no OpenGL. Asked last: it takes time.
    std::function<QByteArray()> openGlRenderer;
};

/// Whether that renderer computes on the processor.
bool isSoftwareRenderer(const QByteArray& openGlRenderer);
SceneGraph sceneGraphFor(const RendererFacts& facts);

/// Of this machine. To be called before the first window is made, and with an application.
void chooseSceneGraph();

}
