// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/theme/SurfaceContext.h"

#include "session/CompositorViewModel.h"
#include "surfaces/theme/IconProvider.h"

#include <QQmlEngine>
#include <memory>

namespace zumeta {

namespace {

constexpr char kProperty[] = "zumetaSurfaceContext";

}

SurfaceContext::SurfaceContext(const SurfaceEnvironment& environment)
    : m_environment(environment)
    , m_typography(environment.languages)
    , m_texts(environment.languages)
{
    // QML would otherwise take singletons that C++ made for its own to delete.
    for (QObject* const object : std::initializer_list<QObject*>{&m_keyboardFocus, &m_motion, &m_typography, &m_texts,
                                                                 &environment.alerts, &environment.modality})
        QQmlEngine::setObjectOwnership(object, QQmlEngine::CppOwnership);
    const auto followStartScreen = [this] {
        modality().set(ModalState::StartScreen, !session().isCameraSelectionConfirmed());
    };
    connect(&environment.session, &CompositorViewModel::isCameraSelectionConfirmedChanged, this, followStartScreen);
    followStartScreen();
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
