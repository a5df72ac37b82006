// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "languages/LanguageManager.h"
#include "session/SessionHarness.h"
#include "shell/AppDelegate.h"
#include "shell/WindowDialogs.h"
#include "support/MemoryUserDefaults.h"
#include "surfaces/theme/SurfaceContext.h"

#include <QQuickWindow>

namespace zumeta::test {

/// A delegate over a session in virtual time, and a window that it does not know yet.
struct DelegateScene : SessionTest {
    MemoryUserDefaults defaults;
    LanguageManager languages{defaults, [] { return QStringList{QStringLiteral("en")}; }};
    AlertQueue alerts{nullptr};
    ModalState modality{nullptr};
    WindowDialogs windowDialogs{alerts, modality, defaults, languages};
    SurfaceContext surfaces{
        {languages, *session, notifications, time, defaults, windowDialogs, windowDialogs, alerts, modality}};
    AppDelegate delegate{surfaces};
    QQuickWindow window;
};

}
