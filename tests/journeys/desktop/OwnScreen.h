// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QProcess>

namespace zumeta::test {

/// An X server with a window manager, for this process and those that it starts. Both end with the process, however
/// that ends. To be made before the application.
class OwnScreen {
public:
    /// Its size is 1600 x 1000. Throws std::runtime_error when there is no server within ten seconds.
    OwnScreen();
    ~OwnScreen();
    OwnScreen(const OwnScreen&) = delete; // it stands for two processes
    OwnScreen& operator=(const OwnScreen&) = delete;

private:
    QProcess m_server;
    QProcess m_windowManager;
};

/// Starts a program that dies with this one. False when it cannot be started.
bool startBound(QProcess& process, const QString& program, const QStringList& arguments);
/// Ends it now.
void stop(QProcess& process);

}
