// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/guides/OnboardingGuide.h"

namespace zumeta {

namespace {

using Step = PublishedFields::WorkflowStep;
using enum InteractiveOnboardingTarget;

/// Below it the playhead counts as not moved yet; seconds.
constexpr double kMovedTime = 0.1;

InteractiveOnboardingTarget targetOfSide(const OnboardingFacts& facts)
{
    if (!facts.sideHasVideo)
        return aboveDropArea;
    if (!facts.sideIsLocked) {
        const bool hasMoved = facts.hasSliderBeenMoved || facts.currentTime >= kMovedTime;
        return hasMoved && !facts.isTimelineSliderDragging ? lockButton : timeline;
    }
    return facts.sideHasAlignmentPoint ? nextStepButton : preview;
}

OnboardingCardText text(QLatin1String name, const char* progress)
{
    return {QStringLiteral("Tutorial %1 Title").arg(name), QStringLiteral("Tutorial %1 Message").arg(name),
            QString::fromLatin1(progress)};
}

}

std::optional<InteractiveOnboardingGuideKey> currentOnboardingGuideKey(const OnboardingFacts& facts)
{
    if (!facts.isFirstRunOnboardingEnabled || !facts.isCameraSelectionConfirmed || facts.hasSeenFirstRunOnboarding)
        return std::nullopt;
    switch (facts.currentStep) {
    case Step::step1:
    case Step::step2:
        return targetOfSide(facts);
    case Step::step3:
        if (facts.hasInteractedWithStep3Adjustments)
            return nextStepButton;
        break;
    case Step::step4:
        if (facts.hasInteractedWithStep4ExportControls)
            return exportButton;
        break;
    }
    return SimultaneousGuide{facts.currentStep};
}

std::vector<InteractiveOnboardingTarget> cardTargets(const InteractiveOnboardingGuideKey& key)
{
    if (const auto* const target = std::get_if<InteractiveOnboardingTarget>(&key))
        return {*target};
    if (std::get<SimultaneousGuide>(key).step == Step::step3)
        return {step3Adjustments, nextStepButton};
    return {step4Adjustments, exportButton};
}

std::vector<InteractiveOnboardingTarget> silentTargets(const InteractiveOnboardingGuideKey& key)
{
    if (key == InteractiveOnboardingGuideKey(lockButton))
        return {timeline};
    if (key == InteractiveOnboardingGuideKey(timeline))
        return {timelineInstruction};
    return {};
}

OnboardingCardText onboardingCardText(InteractiveOnboardingTarget target, PublishedFields::WorkflowStep step)
{
    switch (target) {
    case aboveDropArea:
        return step == Step::step2 ? text(QLatin1String("Below Drop"), "1 / 5")
                                   : text(QLatin1String("Above Drop"), "1 / 5");
    case timelineInstruction:
    case timeline:
        return text(QLatin1String("Timeline"), "2 / 5");
    case lockButton:
        return text(QLatin1String("Lock"), "3 / 5");
    case preview:
        return text(QLatin1String("Preview"), "4 / 5");
    case nextStepButton:
        if (step == Step::step3)
            return text(QLatin1String("Step 3 Next Step"), "2 / 2");
        return step == Step::step2 ? text(QLatin1String("Step 2 Next Step"), "5 / 5")
                                   : text(QLatin1String("Next Step"), "5 / 5");
    case step3Adjustments:
        return text(QLatin1String("Step 3 Adjustments"), "1 / 2");
    case step4Adjustments:
        return text(QLatin1String("Step 4 Trim"), "1 / 2");
    case exportButton:
        break;
    }
    return text(QLatin1String("Step 4 Export"), "2 / 2");
}

}
