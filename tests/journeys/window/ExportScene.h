// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "journeys/window/WindowJourney.h"
#include "languages/LanguageManager.h"
#include "session/SessionHarness.h"
#include "shell/WindowDialogs.h"
#include "support/MemoryUserDefaults.h"

#include <QQmlApplicationEngine>

namespace zumeta::test {

/// What an export and missing videos put in front of the workplace, in a window of its own over a session in virtual
/// time: an export stands still at any moment, and nothing else is in the picture.
struct ExportScene : WindowJourney {
    ExportScene();
    ~ExportScene() override;

    void openScene(QSize size);
    QQuickWindow& window() override;
    void advance(double seconds) { harness.advance(seconds); }
    /// Two videos in Step 4, and an export of them that takes 10 s, at this fraction.
    void exportUpTo(double fraction);
    /// A project whose videos are not there.
    void openWithoutVideos();

    SessionHarness harness;
    MemoryUserDefaults defaults;
    LanguageManager languages{defaults, [] { return QStringList{QStringLiteral("en")}; }};
    AlertQueue alerts{nullptr};
    ModalState modality{nullptr};
    WindowDialogs windowDialogs{alerts, modality, defaults, languages};
    std::unique_ptr<SurfaceContext> surfaces;
    std::unique_ptr<QQmlApplicationEngine> engine;
};

}
