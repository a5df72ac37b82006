// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/panels/CameraChoice.h"

#include "session/CompositorViewModel.h"
#include "surfaces/theme/SurfaceContext.h"

#include <QQmlEngine>
#include <memory>

namespace zumeta {

CameraChoice::CameraChoice(CompositorViewModel& session, QObject* parent)
    : QObject(parent)
    , m_session(session)
{
    connect(&session, &CompositorViewModel::selectedCameraChanged, this, &CameraChoice::changed);
    connect(&session, &CompositorViewModel::isCameraSelectionConfirmedChanged, this, &CameraChoice::changed);
}

CameraChoice* CameraChoice::create(QQmlEngine* engine, QJSEngine*)
{
    return std::make_unique<CameraChoice>(SurfaceContext::of(*engine).session()).release(); // the engine takes it over
}

int CameraChoice::selected() const
{
    return m_session.selectedCamera() == CameraType::gopro ? 0 : 1;
}

bool CameraChoice::isConfirmed() const
{
    return m_session.isCameraSelectionConfirmed();
}

void CameraChoice::select(int index)
{
    m_session.setSelectedCamera(index == 0 ? CameraType::gopro : CameraType::insta360);
}

void CameraChoice::confirm()
{
    m_session.setCameraSelectionConfirmed(true);
    // A session that has just begun shows composites; its first video would be cut off at the waterline.
    using Session = CompositorViewModel;
    if (m_session.currentStep() == Session::WorkflowStep::step1 && m_session.viewMode() == Session::ViewMode::split)
        m_session.setCurrentStep(Session::WorkflowStep::step1);
}

}
