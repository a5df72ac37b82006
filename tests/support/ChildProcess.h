// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QByteArray>
#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace zumeta::test {

struct ProcessRequest {
    std::string program;
    std::vector<std::string> arguments;
    std::chrono::seconds limit{60};
    /// Gives the next piece of standard input; an empty one ends it. Without it the child has no input.
    std::function<QByteArray()> input;
    /// Takes standard output piece by piece; without it everything is kept in the result.
    std::function<void(const QByteArray&)> output;
};

struct ProcessResult {
    int exitCode = -1; ///< -1 when it did not start, was killed, or ran out of time
    bool timedOut = false;
    QByteArray out;
    QByteArray err;
};

/// Runs a command to its end, or kills it when the limit has passed.
ProcessResult runProcess(const ProcessRequest& request);

/// The same for a command that has to succeed: throws with its own error text when it does not. Returns its output.
QByteArray runOrThrow(const ProcessRequest& request);

}
