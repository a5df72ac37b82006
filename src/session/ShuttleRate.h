// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zumeta {

inline constexpr double kGreatestShuttleRate = 32.0;

/// The next rate of the keys that play faster and slower. Towards the other direction, and from a stop, the first step
/// is the normal rate; in the same direction each doubles it: ±1, ±2, ±4, ±8, ±16, ±32.
double fasterRate(double rate);
double slowerRate(double rate);

}
