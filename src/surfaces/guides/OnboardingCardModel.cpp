// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/guides/OnboardingCardModel.h"

#include <cmath>
#include <utility>

namespace zumeta {

void OnboardingCardModel::setContentHeight(double height)
{
    if (std::exchange(m_contentHeight, height) != height)
        Q_EMIT contentHeightChanged();
}

void OnboardingCardModel::show(const OnboardingCardText& text)
{
    const bool wasShown = std::exchange(m_isShown, true);
    if (std::exchange(m_text, text) != text || !wasShown)
        Q_EMIT changed();
}

void OnboardingCardModel::hide()
{
    if (std::exchange(m_isShown, false))
        Q_EMIT changed();
}

void OnboardingCardModel::setFrame(const QRectF& frame)
{
    // Letters between two pixels are drawn otherwise.
    const QRectF whole(std::round(frame.x()), std::round(frame.y()), frame.width(), std::ceil(frame.height()));
    if (std::exchange(m_frame, whole) != whole)
        Q_EMIT frameChanged();
}

}
