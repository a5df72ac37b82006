// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/theme/Motion.h"

#include "surfaces/theme/SurfaceContext.h"

#include <chrono>
#include <utility>

namespace zumeta {

namespace {

constexpr std::chrono::seconds kPulsesAfterInput{10};

}

Motion::Motion(QObject* parent)
    : QObject(parent)
{
    m_sinceInput.setSingleShot(true);
    m_sinceInput.setInterval(kPulsesAfterInput);
    connect(&m_sinceInput, &QTimer::timeout, this, &Motion::changed);
}

Motion* Motion::create(QQmlEngine* engine, QJSEngine*)
{
    return &SurfaceContext::of(*engine).motion();
}

void Motion::setReduced(bool isReduced)
{
    if (std::exchange(m_isReduced, isReduced) != isReduced)
        Q_EMIT changed();
}

void Motion::setWindowActive(bool isActive)
{
    if (std::exchange(m_isWindowActive, isActive) != isActive)
        Q_EMIT changed();
}

void Motion::noteInput()
{
    const bool rested = !m_sinceInput.isActive();
    m_sinceInput.start();
    if (rested)
        Q_EMIT changed();
}

}
