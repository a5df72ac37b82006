// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/controls/TextFieldFocusTracker.h"

#include <algorithm>

namespace zumeta {

void TextFieldFocusTracker::left()
{
    m_focusCount = std::max(m_focusCount - 1, 0);
}

bool countsAsFocusChange(Qt::FocusReason reason)
{
    return reason != Qt::PopupFocusReason && reason != Qt::MenuBarFocusReason && reason != Qt::ActiveWindowFocusReason;
}

bool selectsAllOnArrival(Qt::FocusReason reason)
{
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason;
}

}
