// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <functional>

namespace zumeta {

/// One plain line for developers on standard output; never shown to the user. Any thread.
void logLine(const QString& line);

/// Takes the lines instead of standard output while it lives: tests read them, command-line tools keep quiet.
/// One at a time; installed and removed on the main thread, called on the thread that logs, under a lock.
class LogCapture {
public:
    explicit LogCapture(std::function<void(const QString&)> sink);
    ~LogCapture();
    LogCapture(const LogCapture&) = delete; // it stands for the one global place where lines go
    LogCapture& operator=(const LogCapture&) = delete;
};

}
