// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/theme/SurfaceContext.h"

#include "surfaces/theme/IconProvider.h"

#include <QQmlEngine>
#include <memory>

namespace zumeta {

namespace {

constexpr char kProperty[] = "zumetaSurfaceContext";

}

SurfaceContext::SurfaceContext(LanguageManager& languages, CompositorViewModel& session, AlertQueue& alerts)
    : m_session(session)
    , m_alerts(alerts)
    , m_typography(languages)
    , m_texts(languages)
{
    // QML would otherwise take singletons that C++ made for its own to delete.
    for (QObject* const object : std::initializer_list<QObject*>{&m_typography, &m_texts, &m_alerts})
        QQmlEngine::setObjectOwnership(object, QQmlEngine::CppOwnership);
}

void SurfaceContext::installOn(QQmlEngine& engine)
{
    engine.setProperty(kProperty, QVariant::fromValue<QObject*>(this));
    engine.addImportPath(QStringLiteral(":/qt/qml"));
    engine.addImageProvider(QStringLiteral("icon"),
                            std::make_unique<IconProvider>().release()); // the engine takes it over
}

SurfaceContext& SurfaceContext::of(const QQmlEngine& engine)
{
    auto* const context = qobject_cast<SurfaceContext*>(engine.property(kProperty).value<QObject*>());
    Q_ASSERT(context);
    return *context;
}

}
