// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/guides/OnboardingGuide.h"

#include <QPointer>
#include <QQuickItem>
#include <qqmlregistration.h>

namespace zumeta {
class SurfaceContext;

/// Laid over a control, it tells the guide where that stands. It has no look and takes no hits.
class OnboardingAnchor : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Target target MEMBER m_target FINAL)
public:
    /// As InteractiveOnboardingTarget.
    enum Target {
        AboveDropArea,
        TimelineInstruction,
        Timeline,
        LockButton,
        Preview,
        NextStepButton,
        Step3Adjustments,
        Step4Adjustments,
        ExportButton
    };
    Q_ENUM(Target)

    explicit OnboardingAnchor(QQuickItem* parent = nullptr);
    ~OnboardingAnchor() override;

    InteractiveOnboardingTarget onboardingTarget() const { return InteractiveOnboardingTarget(m_target); }
    /// In a window, and nothing around it is hidden.
    bool isShown() const { return window() && isVisible(); }
    /// In the window.
    QRectF frame() const;
    /// The part of it that nothing around it cuts off. Empty where nothing is left.
    QRectF seenFrame() const;

protected:
    void componentComplete() override;

private:
    Target m_target = AboveDropArea;
    QPointer<SurfaceContext> m_context; ///< once it is known there
};

}
