// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/window/WindowModel.h"

#include "session/CompositorViewModel.h"
#include "surfaces/theme/SurfaceContext.h"

#include <QQmlEngine>
#include <memory>

namespace zumeta {

WindowModel::WindowModel(CompositorViewModel& session, QObject* parent)
    : QObject(parent)
    , m_session(session)
{
    for (const auto signal : {&CompositorViewModel::currentStepChanged, &CompositorViewModel::isFullScreenChanged,
                              &CompositorViewModel::isCameraSelectionConfirmedChanged})
        connect(&session, signal, this, &WindowModel::changed);
}

WindowModel* WindowModel::create(QQmlEngine* engine, QJSEngine*)
{
    return std::make_unique<WindowModel>(SurfaceContext::of(*engine).session()).release(); // the engine takes it over
}

int WindowModel::step() const
{
    return int(m_session.currentStep());
}

bool WindowModel::isFullScreen() const
{
    return m_session.isFullScreen();
}

bool WindowModel::isStartScreenShown() const
{
    return !m_session.isCameraSelectionConfirmed();
}

}
