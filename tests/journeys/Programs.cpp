// SPDX-License-Identifier: GPL-3.0-or-later
#include "Programs.h"

#include <QElapsedTimer>
#include <csignal>

namespace zumeta::test {

ProcessResult render(const std::vector<std::string>& arguments)
{
    return runProcess({ZUMETA_RENDER, arguments, std::chrono::seconds(120), {}, {}});
}

ProcessResult renderInShell(const std::string& script, const std::vector<std::string>& arguments)
{
    std::vector<std::string> words = {"-c", script, "sh", ZUMETA_RENDER};
    words.insert(words.end(), arguments.begin(), arguments.end());
    return runProcess({"sh", words, std::chrono::seconds(120), {}, {}});
}

std::vector<std::string> linesOf(const QByteArray& text)
{
    std::vector<std::string> lines;
    const QList<QByteArray> parts = text.split('\n');
    for (const QByteArray& part : parts)
        lines.push_back(part.toStdString());
    if (!lines.empty() && lines.back().empty())
        lines.pop_back(); // a line is ended by its break
    return lines;
}

RunningRender::RunningRender(const std::vector<std::string>& arguments)
{
    QStringList words;
    for (const std::string& argument : arguments)
        words << QString::fromStdString(argument);
    m_process.setStandardInputFile(QProcess::nullDevice());
    m_process.start(QString::fromUtf8(ZUMETA_RENDER), words);
    m_process.waitForStarted();
}

RunningRender::~RunningRender()
{
    if (isRunning()) {
        m_process.kill();
        m_process.waitForFinished();
    }
}

bool RunningRender::waitForOutput(const QByteArray& text)
{
    QElapsedTimer clock;
    clock.start();
    while (!m_out.contains(text)) {
        if (!isRunning() || clock.elapsed() > 60'000)
            return false;
        m_process.waitForReadyRead(100);
        m_out += m_process.readAllStandardOutput();
    }
    return true;
}

bool RunningRender::isRunning() const
{
    return m_process.state() == QProcess::Running;
}

bool RunningRender::hasEnded()
{
    return m_process.waitForFinished(5) || !isRunning();
}

void RunningRender::send(int signal) const
{
    ::kill(pid_t(m_process.processId()), signal);
}

int RunningRender::waitForExit()
{
    m_process.waitForFinished(30'000);
    m_out += m_process.readAllStandardOutput();
    return !isRunning() && m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}

}
