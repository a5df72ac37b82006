// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/panels/Confirmation.h"

#include "session/CompositorViewModel.h"

#include <QPointer>
#include <utility>

namespace zumeta {

Confirmation::Confirmation(CompositorViewModel& session, Dialogs& dialogs, QObject* parent)
    : QObject(parent)
    , m_dialogs(dialogs)
{
    const auto noteChange = [this] { ++m_changes; };
    connect(&session, &CompositorViewModel::currentStepChanged, this, noteChange);
    connect(&session, &CompositorViewModel::projectRestored, this, noteChange);
}

void Confirmation::ask(Alert question, Action action)
{
    if (m_isAsking)
        return;
    question.isDestructive = true;
    askAndAct(std::move(question), std::move(action));
}

Task<> Confirmation::askAndAct(Alert question, Action action)
{
    const QPointer<Confirmation> self(this);
    const uint64_t changes = m_changes;
    m_isAsking = true;
    const int button = co_await m_dialogs.showAlert(std::move(question));
    if (!self)
        co_return;
    m_isAsking = false;
    if (button == 0 && changes == m_changes)
        action();
}

}
