// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/ClosingGuard.h"

#include "session/CompositorViewModel.h"
#include "surfaces/window/AlertQueue.h"

#include <QPointer>
#include <utility>

namespace zumeta {

ClosingGuard::ClosingGuard(CompositorViewModel& session, AlertQueue& alerts,
                           std::function<QString(const QString&)> localized)
    : m_session(session)
    , m_alerts(alerts)
    , m_localized(std::move(localized))
{
    connect(&session, &CompositorViewModel::isExportingChanged, this, &ClosingGuard::followExport);
}

ClosingGuard::~ClosingGuard() = default;

bool ClosingGuard::mayClose()
{
    if (!m_session.isExporting())
        return true;
    if (!isAsking())
        ask();
    return false;
}

Task<> ClosingGuard::ask()
{
    const QPointer<ClosingGuard> self(this);
    Alert question{m_localized(QStringLiteral("Quit During Export Title")),
                   m_localized(QStringLiteral("Quit During Export Message")),
                   {m_localized(QStringLiteral("Quit")), m_localized(QStringLiteral("Cancel"))},
                   true};
    m_question = question;
    Q_EMIT asked();
    const int button = co_await m_alerts.ask(std::move(question));
    if (!self)
        co_return;
    m_question.reset();
    if (button != 0) {
        Q_EMIT declined();
        co_return;
    }
    m_session.cancelExport();
    Q_EMIT confirmed();
}

void ClosingGuard::followExport()
{
    if (isAsking() && !m_session.isExporting())
        m_alerts.withdraw(Alert(*m_question)); // a copy: the answer takes the question away
}

}
