// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <optional>

namespace zumeta {

/// Minutes and seconds with hundredths, "01:15.50". Times before zero count as zero. The seconds are rounded, so they
/// can read 60.00.
QString formatTimecode(double seconds);

/// Seconds, or minutes and seconds with a colon between; neither has a limit. None when it is neither.
std::optional<double> parseTimecode(const QString& text);

}
