// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/window/SideFile.h"

#include "session/CompositorViewModel.h"

#include <utility>

namespace zumeta {

namespace {

int wholePercent(double fraction)
{
    constexpr double kSlack = 1e-9; // 0.29 is a little less than that
    return int(fraction * 100 + kSlack);
}

}

SideFile::SideFile(CompositorViewModel& session, Side side, QObject* parent)
    : QObject(parent)
    , m_session(session)
    , m_side(side)
{
    connect(&session, &CompositorViewModel::changed, this, &SideFile::update);
    m_shown = look();
}

SideFile::Shown SideFile::look() const
{
    const bool isAbove = m_side == Side::above;
    const std::optional<FileUrl>& url = isAbove ? m_session.aboveVideoURL() : m_session.belowVideoURL();
    const ProjectState& project = m_session.projectState();
    const ProxyStatus& proxy = isAbove ? m_session.aboveProxyStatus() : m_session.belowProxyStatus();
    const bool hasAsset = (isAbove ? project.aboveVideo : project.belowVideo).has_value();
    Shown shown;
    shown.isPresent = url.has_value();
    shown.name = url ? url->displayName() : QString();
    shown.isUnreadable = url && !hasAsset && !m_session.isLoading(m_side);
    shown.isActive = m_session.currentStep() ==
                     (isAbove ? CompositorViewModel::WorkflowStep::step1 : CompositorViewModel::WorkflowStep::step2);
    shown.isProxyGenerated = proxy.kind == ProxyStatus::Kind::generating;
    shown.hasProxyFailed = proxy.kind == ProxyStatus::Kind::failed;
    // A badge that fades away keeps its number.
    shown.proxyPercent = shown.isProxyGenerated ? wholePercent(proxy.progress) : m_shown.proxyPercent;
    return shown;
}

void SideFile::update()
{
    Shown shown = look();
    if (shown == m_shown)
        return;
    m_shown = std::move(shown);
    Q_EMIT changed();
}

void SideFile::clear()
{
    if (m_side == Side::above)
        m_session.clearAboveVideo();
    else
        m_session.clearBelowVideo();
}

}
