// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QObject>
#include <QThread>
#include <functional>

namespace zumeta {

/// The thread on which all sound devices are opened and served. One for the program: the sound service's connection
/// belongs to the thread that used it first, and connecting takes its time, which nobody else should wait. Outlives
/// the outputs.
class AudioThread {
public:
    AudioThread();
    ~AudioThread();
    AudioThread(const AudioThread&) = delete; // it stands for a thread
    AudioThread& operator=(const AudioThread&) = delete;

    /// Runs it on the thread, in order. Any thread.
    void post(std::function<void()> work);
    /// The object's events are handled on the thread from now on.
    void adopt(QObject& object) { object.moveToThread(&m_thread); }
    /// Logs the first line that is given, and no other: without a device every start fails. On the thread.
    void logFirst(const QString& line);

private:
    bool m_hasLogged = false; // audio thread
    QObject m_context;        // lives there
    QThread m_thread;
};

}
