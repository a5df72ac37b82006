// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/panels/StepPanelModel.h"

#include "languages/Format.h"
#include "languages/LanguageManager.h"
#include "platform/NotificationCenter.h"
#include "session/CompositorViewModel.h"
#include "surfaces/panels/StepBar.h"
#include "surfaces/theme/SurfaceContext.h"

#include <QQmlEngine>
#include <memory>
#include <utility>

namespace zumeta {

using WorkflowStep = CompositorViewModel::WorkflowStep;

StepPanelModel::StepPanelModel(CompositorViewModel& session, NotificationCenter& notifications, Dialogs& dialogs,
                               const LanguageManager& languages, QObject* parent)
    : QObject(parent)
    , m_session(session)
    , m_notifications(notifications)
    , m_languages(languages)
    , m_confirmation(session, dialogs)
    , m_aboveSetup(session, Side::above)
    , m_belowSetup(session, Side::below)
    , m_shown(currentState())
{
    connect(&session, &CompositorViewModel::changed, this, &StepPanelModel::follow);
}

StepPanelModel* StepPanelModel::create(QQmlEngine* engine, QJSEngine*)
{
    SurfaceContext& context = SurfaceContext::of(*engine);
    // The engine takes it over.
    return std::make_unique<StepPanelModel>(context.session(), context.notifications(), context.dialogs(),
                                            context.languages())
        .release();
}

StepPanelModel::PillLook StepPanelModel::pillLook(int step, int currentStep, int maxReachedStep) const
{
    static_assert(int(StepPillLook::ahead) == Ahead && int(StepPillLook::current) == Current);
    return PillLook(stepPillLook(step, currentStep, maxReachedStep));
}

bool StepPanelModel::isConnectorCompleted(int stepBefore, int maxReachedStep) const
{
    return zumeta::isConnectorCompleted(stepBefore, maxReachedStep);
}

void StepPanelModel::goToStep(int step)
{
    leaveField();
    m_session.setCurrentStep(WorkflowStep(step));
}

void StepPanelModel::save()
{
    leaveField();
    m_session.prepareProjectForSave();
}

void StepPanelModel::open()
{
    leaveField();
    m_session.setShowOpenProjectPanel(true);
}

void StepPanelModel::changeCamera()
{
    leaveField();
    m_session.setCameraSelectionConfirmed(false);
}

void StepPanelModel::toggleLoop()
{
    m_session.pressLoopPlayback();
}

void StepPanelModel::toggleSlow()
{
    m_session.pressSlowPlayback();
}

void StepPanelModel::goToStep4()
{
    leaveField();
    m_session.pressGoToStep4();
}

void StepPanelModel::resetAboveOnly()
{
    askForReset(m_aboveSetup.partialResetKey(), &CompositorViewModel::resetAboveStepOnly);
}

void StepPanelModel::resetBelowOnly()
{
    askForReset(m_belowSetup.partialResetKey(), &CompositorViewModel::resetBelowStepOnly);
}

void StepPanelModel::resetAdjustmentValues()
{
    askForReset(QStringLiteral("Reset Adjustment Values"), &CompositorViewModel::pressResetAdjustmentValues);
}

void StepPanelModel::startOver()
{
    leaveField();
    m_confirmation.ask(
        {.title = m_languages.localized(QStringLiteral("Confirm Reset Title")),
         .message = m_languages.localized(QStringLiteral("Confirm Reset All Message")),
         .buttons = {m_languages.localized(QStringLiteral("Run")), m_languages.localized(QStringLiteral("Cancel"))}},
        [this] { m_session.pressStartOver(); });
}

void StepPanelModel::askForReset(const QString& titleKey, void (CompositorViewModel::*reset)())
{
    leaveField();
    m_confirmation.ask(
        {.title = m_languages.localized(QStringLiteral("Confirm Reset Title")),
         .message = formatted(m_languages.localized(QStringLiteral("Confirm Action Message")),
                              {m_languages.localized(titleKey)}),
         .buttons = {m_languages.localized(QStringLiteral("Run")), m_languages.localized(QStringLiteral("Cancel"))}},
        [this, reset] { (m_session.*reset)(); });
}

// A field that is destroyed with its view tells of no loss of focus, and the shortcuts would rest for ever.
void StepPanelModel::leaveField()
{
    m_notifications.post(notifications::kClearTextFieldFocus);
}

StepPanelModel::State StepPanelModel::currentState() const
{
    return {.step = int(m_session.currentStep()),
            .maxReachedStep = int(m_session.maxReachedStep()),
            .canExport = m_session.canExport(),
            .isLoopOn = m_session.isStep3LoopEnabled(),
            .isSlowOn = m_session.isStep3SlowPlaybackEnabled()};
}

void StepPanelModel::follow()
{
    const State state = currentState();
    const State shown = std::exchange(m_shown, state);
    if (shown == state)
        return;
    // QML changes the view when it is told, whoever has changed the step.
    if (shown.step != state.step)
        leaveField();
    Q_EMIT changed();
}

}
