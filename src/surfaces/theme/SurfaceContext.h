// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/controls/TextFieldFocusTracker.h"
#include "surfaces/guides/OnboardingTargets.h"
#include "surfaces/theme/KeyboardFocus.h"
#include "surfaces/theme/Motion.h"
#include "surfaces/theme/Texts.h"
#include "surfaces/theme/Typography.h"
#include "surfaces/window/AlertQueue.h"
#include "surfaces/window/ModalState.h"

namespace zumeta {
class CheckForUpdatesViewModel;
class Clock;
class CompositorViewModel;
class FileChooser;
class NotificationCenter;
class UserDefaults;

/// What the surfaces are given from outside.
struct SurfaceEnvironment {
    LanguageManager& languages;
    CompositorViewModel& session;
    NotificationCenter& notifications; ///< that of the session
    const Clock& clock;
    UserDefaults& defaults;
    Dialogs& dialogs;
    FileChooser& fileChooser;
    AlertQueue& alerts;
    ModalState& modality;
    CheckForUpdatesViewModel* updates = nullptr; ///< none where nobody can be asked
};

/// What all surfaces of one engine share: QML finds its singletons here. It must outlive the engine, and what it refers
/// to must outlive both.
class SurfaceContext final : public QObject {
    Q_OBJECT
public:
    explicit SurfaceContext(const SurfaceEnvironment& environment);
    /// Makes it the engine's, and gives the engine what QML needs from outside: the pictures of icons, and the way to
    /// the module.
    void installOn(QQmlEngine& engine);
    static SurfaceContext& of(const QQmlEngine& engine);

    CompositorViewModel& session() { return m_environment.session; }
    LanguageManager& languages() { return m_environment.languages; }
    NotificationCenter& notifications() { return m_environment.notifications; }
    const Clock& clock() const { return m_environment.clock; }
    UserDefaults& defaults() { return m_environment.defaults; }
    Dialogs& dialogs() { return m_environment.dialogs; }
    FileChooser& fileChooser() { return m_environment.fileChooser; }
    AlertQueue& alerts() { return m_environment.alerts; }
    ModalState& modality() { return m_environment.modality; }
    CheckForUpdatesViewModel* updates() { return m_environment.updates; }
    /// The one by which all of the window knows whether a number is being typed.
    TextFieldFocusTracker& fieldFocus() { return m_fieldFocus; }
    KeyboardFocus& keyboardFocus() { return m_keyboardFocus; }
    /// What the guide can point at.
    OnboardingTargets& onboardingTargets() { return m_onboardingTargets; }
    Motion& motion() { return m_motion; }
    Typography& typography() { return m_typography; }
    Texts& texts() { return m_texts; }

private:
    SurfaceEnvironment m_environment;
    TextFieldFocusTracker m_fieldFocus;
    KeyboardFocus m_keyboardFocus{nullptr};
    OnboardingTargets m_onboardingTargets;
    Motion m_motion{nullptr};
    Typography m_typography;
    Texts m_texts;
};

}
