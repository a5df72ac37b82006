// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/guides/OnboardingModel.h"

#include "platform/NotificationCenter.h"
#include "platform/UserDefaults.h"
#include "session/CompositorViewModel.h"
#include "surfaces/theme/SurfaceContext.h"

#include <QQmlEngine>
#include <memory>
#include <utility>

namespace zumeta {

OnboardingModel::OnboardingModel(CompositorViewModel& session, NotificationCenter& notifications,
                                 UserDefaults& defaults, QObject* parent)
    : QObject(parent)
    , m_session(session)
    , m_defaults(defaults)
    , m_hasSeenFirstRunOnboarding(defaults.boolean(kHasSeenFirstRunOnboardingKey).value_or(false))
{
    for (OnboardingCardModel* const card : {&m_firstCard, &m_secondCard}) {
        QQmlEngine::setObjectOwnership(card, QQmlEngine::CppOwnership); // they are members
        connect(card, &OnboardingCardModel::contentHeightChanged, this, &OnboardingModel::placeCards);
    }
    connect(&session, &CompositorViewModel::changed, this, &OnboardingModel::follow);
    connect(&session, &CompositorViewModel::exportNotificationChanged, this, &OnboardingModel::noteFinishedExport);
    notifications.observe(notifications::kShowFirstRunGuide, this, [this](const QVariantMap&) { showAgain(); });
    follow();
}

OnboardingModel* OnboardingModel::create(QQmlEngine* engine, QJSEngine*)
{
    SurfaceContext& context = SurfaceContext::of(*engine);
    return std::make_unique<OnboardingModel>(context.session(), context.notifications(), context.defaults())
        .release(); // the engine takes it over
}

std::optional<InteractiveOnboardingGuideKey> OnboardingModel::currentOnboardingGuideKey() const
{
    OnboardingFacts facts;
    facts.isFirstRunOnboardingEnabled = isFirstRunOnboardingEnabled;
    facts.isCameraSelectionConfirmed = m_session.isCameraSelectionConfirmed();
    facts.hasSeenFirstRunOnboarding = m_hasSeenFirstRunOnboarding;
    facts.currentStep = m_session.currentStep();
    const ProjectState& project = m_session.projectState();
    const bool isBelow = facts.currentStep == PublishedFields::WorkflowStep::step2;
    facts.sideHasVideo = m_session.currentVideoURL() && (isBelow ? project.belowVideo : project.aboveVideo);
    facts.sideIsLocked = m_session.currentManualSyncTime().has_value();
    facts.sideHasAlignmentPoint =
        (isBelow ? m_session.alignmentPointBelow() : m_session.alignmentPointAbove()).has_value();
    facts.isTimelineSliderDragging = m_session.isTimelineSliderDragging();
    facts.hasSliderBeenMoved = m_session.hasSliderBeenMoved();
    facts.currentTime = m_session.currentTime();
    facts.hasInteractedWithStep3Adjustments = m_session.hasInteractedWithStep3Adjustments();
    facts.hasInteractedWithStep4ExportControls = m_session.hasInteractedWithStep4ExportControls();
    return zumeta::currentOnboardingGuideKey(facts);
}

void OnboardingModel::follow()
{
    const std::optional<InteractiveOnboardingGuideKey> key = currentOnboardingGuideKey();
    const std::optional<Shown> wanted = key ? std::optional(Shown{*key, m_session.currentStep()}) : std::nullopt;
    const std::optional<Shown> before = std::exchange(m_wanted, wanted);
    if (before != wanted)
        m_asksForSight = wanted && isInPanel(cardTargets(wanted->key).front());
    // The panel of another step has controls of its own.
    if (before && wanted && before->step != wanted->step)
        m_frames = {};
    presentFirstRunOnboardingIfNeeded();
}

// Also for a key that comes back: only what was waved away stays away. A running export has the window for itself.
void OnboardingModel::presentFirstRunOnboardingIfNeeded()
{
    m_showFirstRunOnboarding =
        m_wanted && !m_dismissedFirstRunGuideKeys.contains(m_wanted->key) && !m_session.isExporting();
    present();
    if (m_showFirstRunOnboarding && m_shown != m_wanted)
        Q_EMIT framesWanted();
}

void OnboardingModel::setFrames(const OnboardingFrames& frames, QSizeF overlay)
{
    const bool areNew = std::exchange(m_frames, frames) != frames;
    const bool isResized = std::exchange(m_overlay, overlay) != overlay;
    if (!areNew && !isResized && !m_asksForSight && m_shown == m_wanted)
        return;
    askForSight();
    present();
}

void OnboardingModel::present()
{
    SpotlightShape spotlight;
    if (m_showFirstRunOnboarding)
        spotlight = spotlightShape(m_wanted->key, m_frames.seen);
    const bool isPresented = m_showFirstRunOnboarding && spotlight.isUsable();
    if (isPresented) {
        const bool isAnother = !m_isPresented || m_shown != m_wanted;
        const bool hasMoved = m_spotlight != spotlight;
        m_shown = m_wanted;
        m_spotlight = std::move(spotlight);
        if (isAnother) {
            showCards();
            Q_EMIT cardChanged();
        }
        placeCards();
        if (hasMoved)
            Q_EMIT spotlightMoved();
    }
    if (std::exchange(m_isPresented, isPresented) != isPresented)
        Q_EMIT isPresentedChanged();
}

void OnboardingModel::showCards()
{
    const std::vector<InteractiveOnboardingTarget> targets = cardTargets(m_shown->key);
    m_firstCard.show(onboardingCardText(targets.front(), m_shown->step));
    if (targets.size() > 1)
        m_secondCard.show(onboardingCardText(targets.back(), m_shown->step));
    else
        m_secondCard.hide();
}

void OnboardingModel::placeCards()
{
    if (!m_shown)
        return;
    const std::vector<InteractiveOnboardingTarget> targets = cardTargets(m_shown->key);
    const auto place = [&](OnboardingCardModel& card, InteractiveOnboardingTarget target) {
        const QPointF middle = targets.size() > 1 ? simultaneousCardPosition(target, m_frames.whole, m_overlay)
                                                  : cardPosition(target, m_frames.whole, m_overlay);
        card.setFrame(cardFrame(middle, card.contentHeight(), usableAnchor(m_frames.whole, target), m_overlay));
    };
    place(m_firstCard, targets.front());
    if (targets.size() > 1)
        place(m_secondCard, targets.back());
}

void OnboardingModel::askForSight()
{
    if (!m_asksForSight || !m_showFirstRunOnboarding)
        return;
    const std::optional<QRectF> part = panelPartFor(cardTargets(m_wanted->key), m_frames.whole);
    if (!part)
        return;
    m_asksForSight = false;
    Q_EMIT sightWanted(*part);
}

void OnboardingModel::dismissGuide()
{
    if (m_showFirstRunOnboarding)
        dismissFirstRunOnboardingGuide(m_wanted->key);
}

void OnboardingModel::dismissFirstRunOnboardingGuide(const InteractiveOnboardingGuideKey& key)
{
    m_dismissedFirstRunGuideKeys.insert(key);
    presentFirstRunOnboardingIfNeeded();
}

void OnboardingModel::skipGuide()
{
    setHasSeen(true);
}

void OnboardingModel::showAgain()
{
    if (!isFirstRunOnboardingEnabled || !m_session.isCameraSelectionConfirmed())
        return;
    m_dismissedFirstRunGuideKeys.clear();
    m_wanted.reset(); // its control is brought into sight again
    setHasSeen(false);
}

void OnboardingModel::noteFinishedExport()
{
    const std::optional<ExportNotification>& message = m_session.exportNotification();
    if (message && !message->isError)
        setHasSeen(true);
}

void OnboardingModel::setHasSeen(bool hasSeen)
{
    if (std::exchange(m_hasSeenFirstRunOnboarding, hasSeen) != hasSeen)
        m_defaults.setBoolean(kHasSeenFirstRunOnboardingKey, hasSeen);
    follow();
}

}
