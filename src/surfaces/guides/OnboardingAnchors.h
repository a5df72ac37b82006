// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/guides/OnboardingGuide.h"

#include <QRectF>
#include <map>

namespace zumeta {

/// Where controls stand that the guide points at, in the window's device-independent pixels.
using OnboardingAnchors = std::map<InteractiveOnboardingTarget, QRectF>;

/// Each control as a whole, and as far as nothing that scrolls cuts it off.
struct OnboardingFrames {
    OnboardingAnchors whole;
    OnboardingAnchors seen;
    friend bool operator==(const OnboardingFrames&, const OnboardingFrames&) = default;
};

/// How the frames that controls report become those of the window.
struct InteractiveOnboardingTargetPreferenceKey {
    using Value = OnboardingAnchors;
    /// Merges `next` into `value`. Where several report for one target, as the rows of a section do, it is all of them.
    static void reduce(Value& value, const Value& next);
};

/// Whether a control can be lit: it is there, and larger than a dot.
bool isUsableOnboardingRect(const QRectF& rect);
/// The target's rectangle, if it is there and can be lit.
std::optional<QRectF> usableAnchor(const OnboardingAnchors& anchors, InteractiveOnboardingTarget target);

/// Whether the target stands in the panel beside the picture, which scrolls.
bool isInPanel(InteractiveOnboardingTarget target);
/// What of the panel has to be in sight for these targets, in the window; nothing while one of them is not there.
std::optional<QRectF> panelPartFor(const std::vector<InteractiveOnboardingTarget>& targets,
                                   const OnboardingAnchors& whole);

}
