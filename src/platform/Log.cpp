// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Log.h"

#include <cstdio>
#include <mutex>

namespace zumeta {

namespace {

std::mutex& sinkMutex()
{
    static std::mutex mutex;
    return mutex;
}

std::function<void(const QString&)>& sink()
{
    static std::function<void(const QString&)> function;
    return function;
}

}

void logLine(const QString& line)
{
    const std::lock_guard lock(sinkMutex());
    if (sink()) {
        sink()(line);
        return;
    }
    const QByteArray bytes = line.toUtf8() + '\n';
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout);
    std::fflush(stdout);
}

LogCapture::LogCapture(std::function<void(const QString&)> function)
{
    const std::lock_guard lock(sinkMutex());
    sink() = std::move(function);
}

LogCapture::~LogCapture()
{
    const std::lock_guard lock(sinkMutex());
    sink() = nullptr;
}

}
