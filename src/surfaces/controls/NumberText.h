// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <optional>

namespace zumeta {

/// The number with so many decimals, always with a point, whatever the desktop's language is. The exact value is
/// rounded, a tie to the even digit. What rounds to zero has no sign.
QString fixedNumber(double value, int decimals);

/// The number that the whole of a text is, written with a point.
std::optional<double> parsedNumber(QStringView text);

}
