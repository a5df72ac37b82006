// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QProcess>
#include <QTemporaryDir>

namespace zumeta::test {

/// A Wayland compositor without a screen, for this process and those that it starts. It ends with the process. To be
/// made before the application.
class OwnCompositor {
public:
    /// Its output has 1600 x 1000. Throws std::runtime_error when there is no compositor within ten seconds.
    OwnCompositor();
    ~OwnCompositor();
    OwnCompositor(const OwnCompositor&) = delete; // it stands for processes
    OwnCompositor& operator=(const OwnCompositor&) = delete;

private:
    void start();
    QString waitForSocket() const;

    QTemporaryDir m_folder;
    QProcess m_compositor;
    QProcess m_keyboard;
};

}
