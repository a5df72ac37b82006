// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <cstdint>

namespace zumeta {

/// A number of bytes for people: "268.4 MB", "1 GB", "999 bytes", "1 byte", "Zero KB". Decimal units, at most one place
/// below GB and at most two from GB on, no zeros at the end, halves away from zero. A value that rounds up to 1000 of a
/// unit is shown as 1 of the next.
QString byteCountText(int64_t bytes);

}
