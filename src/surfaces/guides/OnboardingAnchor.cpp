// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/guides/OnboardingAnchor.h"

#include "surfaces/theme/SurfaceContext.h"

#include <QQmlEngine>

namespace zumeta {

static_assert(int(InteractiveOnboardingTarget::exportButton) == OnboardingAnchor::ExportButton);

namespace {

QRectF sceneFrame(const QQuickItem& item)
{
    return item.mapRectToScene(QRectF(QPointF(), item.size()));
}

}

OnboardingAnchor::OnboardingAnchor(QQuickItem* parent)
    : QQuickItem(parent)
{}

OnboardingAnchor::~OnboardingAnchor()
{
    if (m_context)
        m_context->onboardingTargets().remove(*this);
}

void OnboardingAnchor::componentComplete()
{
    QQuickItem::componentComplete();
    m_context = &SurfaceContext::of(*qmlEngine(this));
    m_context->onboardingTargets().add(*this);
}

QRectF OnboardingAnchor::frame() const
{
    return sceneFrame(*this);
}

QRectF OnboardingAnchor::seenFrame() const
{
    QRectF seen = frame();
    for (const QQuickItem* item = parentItem(); item; item = item->parentItem()) {
        if (item->clip())
            seen &= sceneFrame(*item);
    }
    return seen;
}

}
