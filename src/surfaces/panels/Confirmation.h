// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/Dialogs.h"

#include <QObject>
#include <cstdint>
#include <functional>

namespace zumeta {
class CompositorViewModel;

/// Asks before work is taken away, and does it once the user agrees. The question is about the work as it was when it
/// was asked: a step or a project that has changed meanwhile answers it with no. Main thread.
class Confirmation final : public QObject {
    Q_OBJECT
public:
    using Action = std::function<void()>;

    /// Both must outlive it.
    Confirmation(CompositorViewModel& session, Dialogs& dialogs, QObject* parent = nullptr);
    /// The question's first button is the one that agrees. Nothing while another question is still open.
    void ask(Alert question, Action action);

private:
    Task<> askAndAct(Alert question, Action action);

    Dialogs& m_dialogs;
    bool m_isAsking = false;
    uint64_t m_changes = 0; ///< of what questions are about
};

}
