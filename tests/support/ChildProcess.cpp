// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/ChildProcess.h"

#include <QElapsedTimer>
#include <QProcess>
#include <stdexcept>

namespace zumeta::test {

namespace {

void feed(QProcess& process, const std::function<QByteArray()>& input, const std::function<bool()>& inTime)
{
    constexpr qint64 kWaiting = 8 << 20; // enough to keep the child busy, little enough to hold
    for (QByteArray piece = input(); !piece.isEmpty(); piece = input()) {
        process.write(piece);
        while (process.bytesToWrite() > kWaiting && process.state() == QProcess::Running && inTime())
            process.waitForBytesWritten(100);
        if (process.state() != QProcess::Running || !inTime())
            return;
    }
}

void drain(QProcess& process, const ProcessRequest& request, ProcessResult& result)
{
    const QByteArray piece = process.readAllStandardOutput();
    if (piece.isEmpty())
        return;
    if (request.output)
        request.output(piece);
    else
        result.out += piece;
}

}

ProcessResult runProcess(const ProcessRequest& request)
{
    QProcess process;
    QStringList arguments;
    for (const std::string& argument : request.arguments)
        arguments << QString::fromStdString(argument);
    QElapsedTimer clock;
    clock.start();
    const auto inTime = [&] { return clock.elapsed() < std::chrono::milliseconds(request.limit).count(); };

    ProcessResult result;
    if (!request.input)
        process.setStandardInputFile(QProcess::nullDevice());
    process.start(QString::fromStdString(request.program), arguments);
    if (!process.waitForStarted()) {
        result.err = "could not start " + QByteArray::fromStdString(request.program);
        return result;
    }
    if (request.input) {
        feed(process, request.input, inTime);
        process.closeWriteChannel();
    }
    while (process.state() != QProcess::NotRunning && inTime()) {
        process.waitForReadyRead(100);
        drain(process, request, result);
    }
    if (process.state() != QProcess::NotRunning) {
        result.timedOut = true;
        process.kill();
        process.waitForFinished();
    }
    drain(process, request, result);
    result.err = process.readAllStandardError();
    if (!result.timedOut && process.exitStatus() == QProcess::NormalExit)
        result.exitCode = process.exitCode();
    return result;
}

QByteArray runOrThrow(const ProcessRequest& request)
{
    const ProcessResult result = runProcess(request);
    if (result.exitCode != 0) {
        std::string command = request.program;
        for (const std::string& argument : request.arguments)
            command += ' ' + argument;
        throw std::runtime_error(command + (result.timedOut ? ": out of time: " : ": ") + result.err.toStdString());
    }
    return result.out;
}

}
