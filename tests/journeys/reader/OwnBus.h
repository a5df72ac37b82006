// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QProcess>

namespace zumeta::test {

/// A session bus for this process and those that it starts, on which the accessibility bus comes up when somebody asks
/// for it. It ends with the process. To be made before the application.
class OwnBus {
public:
    /// Throws std::runtime_error when there is none within ten seconds.
    OwnBus();
    ~OwnBus();
    OwnBus(const OwnBus&) = delete; // it stands for a process
    OwnBus& operator=(const OwnBus&) = delete;

private:
    QProcess m_daemon;
};

}
