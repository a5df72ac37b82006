// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "session/PublishedFields.h"

#include <QString>
#include <optional>
#include <variant>
#include <vector>

namespace zumeta {

/// Of the settings: the user has seen the guide, or wants none.
inline const QString kHasSeenFirstRunOnboardingKey = QStringLiteral("ZumetaApp.hasSeenFirstRunOnboarding.v1");

/// The controls that the guide for newcomers points at.
enum class InteractiveOnboardingTarget {
    aboveDropArea, ///< serves both sides
    timelineInstruction,
    timeline,
    lockButton,
    preview,
    nextStepButton,
    step3Adjustments,
    step4Adjustments,
    exportButton
};

/// Which card the guide shows: one, or the two of Step 3 or 4 side by side.
struct SimultaneousGuide {
    PublishedFields::WorkflowStep step;
    friend auto operator<=>(const SimultaneousGuide&, const SimultaneousGuide&) = default;
};
using InteractiveOnboardingGuideKey = std::variant<InteractiveOnboardingTarget, SimultaneousGuide>;

/// What decides where the user stands. "The side" is the one that the step works on, in Steps 1 and 2.
struct OnboardingFacts {
    bool isFirstRunOnboardingEnabled = true;
    bool isCameraSelectionConfirmed = false;
    bool hasSeenFirstRunOnboarding = false;
    PublishedFields::WorkflowStep currentStep = PublishedFields::WorkflowStep::step1;
    bool sideHasVideo = false;
    bool sideIsLocked = false;
    bool sideHasAlignmentPoint = false;
    bool isTimelineSliderDragging = false;
    bool hasSliderBeenMoved = false;
    double currentTime = 0; ///< seconds
    bool hasInteractedWithStep3Adjustments = false;
    bool hasInteractedWithStep4ExportControls = false;
};

/// The guide tells nothing of its own: what comes next follows from the session, so acting in any order only moves it
/// on. Nothing: there is nothing to tell.
std::optional<InteractiveOnboardingGuideKey> currentOnboardingGuideKey(const OnboardingFacts& facts);

/// The controls that are lit, each with a card, in the order of their cards.
std::vector<InteractiveOnboardingTarget> cardTargets(const InteractiveOnboardingGuideKey& key);
/// Those that take presses beside them, without a card: a wrong release of the slider can still be mended while the
/// lock button is asked for.
std::vector<InteractiveOnboardingTarget> silentTargets(const InteractiveOnboardingGuideKey& key);

/// Keys of the translations, and how far the user is.
struct OnboardingCardText {
    QString titleKey;
    QString messageKey;
    QString progress;
    friend bool operator==(const OnboardingCardText&, const OnboardingCardText&) = default;
};
OnboardingCardText onboardingCardText(InteractiveOnboardingTarget target, PublishedFields::WorkflowStep step);

}
