// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <optional>

namespace zumeta {

/// When the samples that a device asks for are heard. Each measurement is coarse, off by parts of the device's buffer;
/// the samples between two of them are exact. So the moments run on with the samples and lean toward what is measured.
class AudioMoment {
public:
    /// The moment for samples that follow `frames` after the ones of the call before, where `measured` is what the
    /// device says. Seconds.
    double next(double measured, double framesSeconds);
    void reset() { m_moment.reset(); }

private:
    std::optional<double> m_moment;
};

}
