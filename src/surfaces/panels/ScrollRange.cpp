// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/panels/ScrollRange.h"

#include <Qt>
#include <algorithm>

namespace zumeta {

double ScrollRange::topShowing(double first, double last) const
{
    constexpr double kRoomAbove = 12; // of a focus ring
    constexpr double kRoomBelow = 44; // the same, over what fades at the view's end
    const double lowest = last + kRoomBelow - viewHeight;
    const double highest = first - kRoomAbove;
    return std::clamp(std::min(std::max(top, lowest), highest), 0.0, lastTop());
}

std::optional<double> ScrollRange::topByKey(int key) const
{
    constexpr double kLine = 36;
    const double page = std::max(viewHeight - kLine, kLine);
    const auto by = [this](double distance) { return std::clamp(top + distance, 0.0, lastTop()); };
    switch (key) {
    case Qt::Key_Up:
        return by(-kLine);
    case Qt::Key_Down:
        return by(kLine);
    case Qt::Key_PageUp:
        return by(-page);
    case Qt::Key_PageDown:
        return by(page);
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return lastTop();
    default:
        return std::nullopt;
    }
}

double ScrollRange::lastTop() const
{
    return std::max(contentHeight - viewHeight, 0.0);
}

}
