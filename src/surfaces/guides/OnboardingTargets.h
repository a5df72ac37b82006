// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/guides/OnboardingAnchors.h"

#include <vector>

namespace zumeta {
class OnboardingAnchor;

/// All controls of the window that the guide can point at. They come and go with their views. Main thread.
class OnboardingTargets {
public:
    void add(OnboardingAnchor& anchor);
    void remove(OnboardingAnchor& anchor);
    /// Where those stand that are shown.
    OnboardingFrames frames() const;

private:
    std::vector<OnboardingAnchor*> m_anchors;
};

}
