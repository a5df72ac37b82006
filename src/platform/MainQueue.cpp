// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/MainQueue.h"

#include <QTimer>
#include <cmath>

namespace zumeta {

void EventLoopQueue::post(Work work)
{
    QMetaObject::invokeMethod(&m_context, std::move(work), Qt::QueuedConnection);
}

void EventLoopQueue::postAfter(double seconds, Work work)
{
    // Rounded up, because the work must not come early; precise, because coarse timers may be late by a twentieth.
    const auto delay = std::chrono::milliseconds(std::lround(std::ceil(seconds * 1000)));
    QTimer::singleShot(delay, Qt::PreciseTimer, &m_context, std::move(work));
}

}
