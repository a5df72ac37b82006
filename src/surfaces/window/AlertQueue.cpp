// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/window/AlertQueue.h"

#include "surfaces/theme/SurfaceContext.h"

#include <QCoroFuture>
#include <algorithm>

namespace zumeta {

AlertQueue::AlertQueue(QObject* parent)
    : QObject(parent)
{}

AlertQueue::~AlertQueue()
{
    for (const Waiting& waiting : m_waiting)
        give(waiting, -1);
}

AlertQueue* AlertQueue::create(QQmlEngine* engine, QJSEngine*)
{
    return &SurfaceContext::of(*engine).alerts();
}

Task<int> AlertQueue::ask(Alert alert)
{
    const auto promise = std::make_shared<QPromise<int>>();
    promise->start();
    const QFuture<int> answer = promise->future();
    m_waiting.push_back({std::move(alert), promise});
    Q_EMIT changed();
    co_return co_await answer;
}

void AlertQueue::answer(int button)
{
    if (m_waiting.empty())
        return;
    const Waiting answered = std::move(m_waiting.front());
    m_waiting.pop_front();
    give(answered, button);
    Q_EMIT changed();
}

void AlertQueue::withdraw(const Alert& alert)
{
    const auto found = std::ranges::find(m_waiting, alert, &Waiting::alert);
    if (found == m_waiting.end())
        return;
    const Waiting withdrawn = std::move(*found);
    m_waiting.erase(found);
    give(withdrawn, -1);
    Q_EMIT changed();
}

void AlertQueue::give(const Waiting& waiting, int button)
{
    const int last = int(waiting.alert.buttons.size()) - 1;
    waiting.answer->addResult(button >= 0 && button <= last ? button : last);
    waiting.answer->finish();
}

}
