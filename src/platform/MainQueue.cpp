// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/MainQueue.h"

#include <QTimer>
#include <cmath>
#include <memory>

namespace zumeta {

void EventLoopQueue::post(Work work)
{
    QMetaObject::invokeMethod(&m_context, std::move(work), Qt::QueuedConnection);
}

void EventLoopQueue::postAfter(double seconds, Work work)
{
    // Rounded up, because the work must not come early; precise, because coarse timers may be late by a twentieth.
    const auto delay = std::chrono::milliseconds(std::lround(std::ceil(seconds * 1000)));
    // A single shot of Qt's own would outlive the queue, and with it what the work holds.
    QTimer* const timer = std::make_unique<QTimer>(&m_context).release(); // the context owns it
    timer->setSingleShot(true);
    timer->setTimerType(Qt::PreciseTimer);
    QObject::connect(timer, &QTimer::timeout, &m_context, [timer, work = std::move(work)] {
        timer->deleteLater();
        work();
    });
    timer->start(delay);
}

}
