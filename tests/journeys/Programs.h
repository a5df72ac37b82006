// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "support/ChildProcess.h"

#include <QProcess>
#include <memory>
#include <string>
#include <vector>

namespace zumeta::test {

/// zumeta-render run to its end.
ProcessResult render(const std::vector<std::string>& arguments);
/// The same through a shell: "$@" in `script` is the command with its arguments.
ProcessResult renderInShell(const std::string& script, const std::vector<std::string>& arguments);

/// Lines of what a program said.
std::vector<std::string> linesOf(const QByteArray& text);

/// zumeta-render while it runs. Killed when it is still there at the end.
class RunningRender {
public:
    explicit RunningRender(const std::vector<std::string>& arguments);
    ~RunningRender();
    RunningRender(const RunningRender&) = delete; // it stands for one process
    RunningRender& operator=(const RunningRender&) = delete;

    /// Waits until standard output holds this text; false when the program ends before, or after a minute.
    bool waitForOutput(const QByteArray& text);
    bool isRunning() const;
    /// Waits a little for the end, for loops that wait for something else meanwhile.
    bool hasEnded();
    void send(int signal) const;
    /// Waits for the end, half a minute at most; the exit code, or -1 when a signal or the time ended it.
    int waitForExit();

    const QByteArray& out() const { return m_out; }
    QByteArray err() { return m_process.readAllStandardError(); }

private:
    QProcess m_process;
    QByteArray m_out;
};

}
