// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "languages/LanguageManager.h"
#include "session/SessionHarness.h"
#include "support/MemoryUserDefaults.h"
#include "surfaces/panels/Step4Actions.h"
#include "surfaces/panels/StepPanelModel.h"

namespace zumeta::test {

/// The panel's models over a session in virtual time. The texts are English, and questions are answered after a second.
struct PanelTest : SessionTest {
    MemoryUserDefaults defaults;
    LanguageManager languages{defaults, [] { return QStringList{QStringLiteral("en")}; }};
    StepPanelModel panel{*session, notifications, dialogs, languages};
    Step4Actions step4{*session, notifications, dialogs, languages};
    QObject observer;
    int clears = 0; ///< of the focus of fields

    PanelTest()
    {
        notifications.observe(notifications::kClearTextFieldFocus, &observer, [this](const QVariantMap&) { ++clears; });
    }
    void answer(int button)
    {
        dialogs.answer = button;
        advance(1.5);
    }
    std::size_t undoCount() const { return session->stepEditHistory().undoCount(); }
};

}
