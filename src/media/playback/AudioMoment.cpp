// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/playback/AudioMoment.h"

#include <cmath>

namespace zumeta {

double AudioMoment::next(double measured, double framesSeconds)
{
    constexpr double kLean = 0.05;  ///< of the difference, at each call
    constexpr double kBreak = 0.08; ///< seconds: the device stood still or was changed for another
    const double expected = m_moment.value_or(measured) + (m_moment ? framesSeconds : 0);
    const double difference = measured - expected;
    m_moment = std::abs(difference) > kBreak ? measured : expected + kLean * difference;
    return *m_moment;
}

}
