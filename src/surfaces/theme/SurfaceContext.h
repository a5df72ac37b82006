// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/theme/Texts.h"
#include "surfaces/theme/Typography.h"
#include "surfaces/window/AlertQueue.h"

namespace zumeta {
class CompositorViewModel;

/// What all surfaces of one engine share: QML finds its singletons here. It must outlive the engine, and what it refers
/// to must outlive both.
class SurfaceContext final : public QObject {
    Q_OBJECT
public:
    SurfaceContext(LanguageManager& languages, CompositorViewModel& session, AlertQueue& alerts);
    /// Makes it the engine's, and gives the engine what QML needs from outside: the pictures of icons, and the way to
    /// the module.
    void installOn(QQmlEngine& engine);
    static SurfaceContext& of(const QQmlEngine& engine);

    CompositorViewModel& session() { return m_session; }
    Typography& typography() { return m_typography; }
    Texts& texts() { return m_texts; }
    AlertQueue& alerts() { return m_alerts; }

private:
    CompositorViewModel& m_session;
    AlertQueue& m_alerts;
    Typography m_typography;
    Texts m_texts;
};

}
