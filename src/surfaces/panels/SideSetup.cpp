// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/panels/SideSetup.h"

#include "session/CompositorViewModel.h"

#include <utility>

namespace zumeta {

SideSetup::SideSetup(CompositorViewModel& session, Side side, QObject* parent)
    : QObject(parent)
    , m_session(session)
    , m_side(side)
    , m_shown(currentState())
    , m_checklist(currentChecklist())
{
    connect(&session, &CompositorViewModel::changed, this, &SideSetup::follow);
}

QString SideSetup::titleKey() const
{
    return m_side == Side::above ? QStringLiteral("Step 1: Above Video") : QStringLiteral("Step 2: Below Video");
}

QString SideSetup::lockTitleKey() const
{
    return m_shown.isLocked ? QStringLiteral("Unlock") : QStringLiteral("Lock 5m Line");
}

QString SideSetup::lockIcon() const
{
    return m_shown.isLocked ? QStringLiteral("lock-open-circle") : QStringLiteral("lock-circle");
}

QString SideSetup::nextStepKey() const
{
    return m_side == Side::above ? QStringLiteral("Go to Step 2") : QStringLiteral("Go to Step 3");
}

QString SideSetup::partialResetKey() const
{
    return m_side == Side::above ? QStringLiteral("Reset Above Only") : QStringLiteral("Reset Below Only");
}

void SideSetup::pressLock()
{
    m_side == Side::above ? m_session.toggleAboveLock() : m_session.toggleBelowLock();
}

SideSetup::State SideSetup::currentState() const
{
    const bool isAbove = m_side == Side::above;
    return {.hasVideo = (isAbove ? m_session.aboveVideoURL() : m_session.belowVideoURL()).has_value(),
            .isLocked = (isAbove ? m_session.manualSyncTimeAbove() : m_session.manualSyncTimeBelow()).has_value(),
            .hasAlignmentPoint =
                (isAbove ? m_session.alignmentPointAbove() : m_session.alignmentPointBelow()).has_value(),
            .isLockHighlighted = m_session.showMarkButtonHighlight()};
}

Checklist SideSetup::currentChecklist() const
{
    const State state = currentState();
    return zumeta::checklist(m_side, {.hasVideo = state.hasVideo,
                                      .currentTime = m_session.currentTime(),
                                      .isLocked = state.isLocked,
                                      .hasAlignmentPoint = state.hasAlignmentPoint});
}

void SideSetup::follow()
{
    m_checklist.show(currentChecklist());
    const State state = currentState();
    if (std::exchange(m_shown, state) != state)
        Q_EMIT changed();
}

}
