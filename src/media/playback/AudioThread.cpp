// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/playback/AudioThread.h"

#include "platform/Log.h"

namespace zumeta {

AudioThread::AudioThread()
{
    m_thread.setObjectName(QStringLiteral("sound"));
    m_context.moveToThread(&m_thread);
    m_thread.start(QThread::HighPriority);
}

AudioThread::~AudioThread()
{
    // After all that was posted: devices end on their own thread.
    post([this] { m_thread.quit(); });
    m_thread.wait();
}

void AudioThread::post(std::function<void()> work)
{
    QMetaObject::invokeMethod(&m_context, std::move(work), Qt::QueuedConnection);
}

void AudioThread::logFirst(const QString& line)
{
    if (!std::exchange(m_hasLogged, true))
        logLine(line);
}

}
