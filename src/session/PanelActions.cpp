// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Log.h"
#include "session/CompositorViewModel.h"

namespace zumeta {

void CompositorViewModel::beginStep3Adjustment()
{
    const Operation operation(*this);
    recordStepEditUndoSnapshot();
    markStep3OnboardingInteracted();
}

void CompositorViewModel::beginStep4Adjustment()
{
    const Operation operation(*this);
    recordStepEditUndoSnapshot();
    markStep4ExportControlsInteracted();
}

void CompositorViewModel::markStep4ExportControlsInteracted()
{
    if (m_fields.currentStep == WorkflowStep::step4)
        assign(m_fields.hasInteractedWithStep4ExportControls, true);
}

void CompositorViewModel::pressLoopPlayback()
{
    const Operation operation(*this);
    beginStep3Adjustment();
    m_fields.isStep3LoopEnabled = !m_fields.isStep3LoopEnabled;
}

void CompositorViewModel::pressSlowPlayback()
{
    const Operation operation(*this);
    beginStep3Adjustment();
    toggleStep3SlowPlayback();
}

void CompositorViewModel::pressResetAdjustmentValues()
{
    const Operation operation(*this);
    beginStep3Adjustment();
    resetStep3AdjustmentValues();
}

void CompositorViewModel::pressGoToStep4()
{
    const Operation operation(*this);
    beginStep3Adjustment();
    setCurrentStep(WorkflowStep::step4);
}

void CompositorViewModel::pressStartOver()
{
    const Operation operation(*this);
    if (m_fields.currentStep == WorkflowStep::step3)
        beginStep3Adjustment();
    resetProject();
    m_fields.hasSliderBeenMoved = false;
    logLine(QStringLiteral("Application Reset Complete"));
}

void CompositorViewModel::pressTrimStartToPlayhead()
{
    const Operation operation(*this);
    beginStep4Adjustment();
    applyCurrentTimeToTrimStartIfAllowed();
}

void CompositorViewModel::pressTrimEndToPlayhead()
{
    const Operation operation(*this);
    beginStep4Adjustment();
    applyCurrentTimeToTrimEndIfAllowed();
}

}
