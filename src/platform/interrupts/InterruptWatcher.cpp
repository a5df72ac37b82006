// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/interrupts/InterruptWatcher.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <stdexcept>
#include <unistd.h>

namespace zumeta {

namespace {

/// A signal handler may do little more than write to a pipe.
std::array<int, 2> pipeEnds{-1, -1};

void onSignal(int)
{
    const char byte = 1;
    // Nothing sensible can be done here when the pipe is full: it is read at once.
    [[maybe_unused]] const ssize_t written = ::write(pipeEnds[1], &byte, 1);
}

int openPipe()
{
    if (::pipe2(pipeEnds.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        throw std::runtime_error("no pipe for signals");
    return pipeEnds[0];
}

}

void onInterrupt(void (*handler)(int))
{
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    ::sigaction(SIGINT, &action, nullptr);
    ::sigaction(SIGTERM, &action, nullptr);
    struct sigaction old {};
    if (::sigaction(SIGHUP, nullptr, &old) == 0 && old.sa_handler != SIG_IGN)
        ::sigaction(SIGHUP, &action, nullptr);
}

InterruptWatcher::InterruptWatcher(QObject* parent)
    : QObject(parent)
    , m_notifier(openPipe(), QSocketNotifier::Read)
{
    connect(&m_notifier, &QSocketNotifier::activated, this, [this] {
        char byte = 0;
        while (::read(pipeEnds[0], &byte, 1) > 0) {
        }
        Q_EMIT interrupted();
    });
    onInterrupt(onSignal);
}

InterruptWatcher::~InterruptWatcher()
{
    onInterrupt(SIG_DFL);
    m_notifier.setEnabled(false);
    ::close(pipeEnds[0]);
    ::close(pipeEnds[1]);
}

}
