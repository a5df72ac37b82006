// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/guides/OnboardingTargets.h"

#include "surfaces/guides/OnboardingAnchor.h"

namespace zumeta {

void OnboardingTargets::add(OnboardingAnchor& anchor)
{
    m_anchors.push_back(&anchor);
}

void OnboardingTargets::remove(OnboardingAnchor& anchor)
{
    std::erase(m_anchors, &anchor);
}

OnboardingFrames OnboardingTargets::frames() const
{
    using PreferenceKey = InteractiveOnboardingTargetPreferenceKey;
    OnboardingFrames frames;
    for (const OnboardingAnchor* const anchor : m_anchors) {
        if (!anchor->isShown())
            continue;
        PreferenceKey::reduce(frames.whole, {{anchor->onboardingTarget(), anchor->frame()}});
        PreferenceKey::reduce(frames.seen, {{anchor->onboardingTarget(), anchor->seenFrame()}});
    }
    return frames;
}

}
