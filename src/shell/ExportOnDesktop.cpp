// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/ExportOnDesktop.h"

#include "platform/desktop/DesktopNotifier.h"
#include "platform/desktop/LauncherProgress.h"
#include "session/CompositorViewModel.h"

namespace zumeta {

ExportOnDesktop::ExportOnDesktop(CompositorViewModel& session, DesktopNotifier& notifier, LauncherProgress& launcher)
    : m_session(session)
    , m_notifier(notifier)
    , m_launcher(launcher)
{
    connect(&session, &CompositorViewModel::isExportingChanged, this, &ExportOnDesktop::followExport);
    connect(&session, &CompositorViewModel::exportProgressChanged, this, &ExportOnDesktop::followProgress);
}

void ExportOnDesktop::setWindow(QWindow& window)
{
    m_window = &window;
    connect(&window, &QWindow::activeChanged, this, [this] {
        if (m_window->isActive())
            m_notifier.withdraw();
    });
}

std::optional<QUuid> ExportOnDesktop::message() const
{
    const std::optional<ExportNotification>& notification = m_session.exportNotification();
    return notification ? std::optional(notification->id) : std::nullopt;
}

void ExportOnDesktop::followExport()
{
    if (m_session.isExporting()) {
        m_earlierMessage = message();
        followProgress();
        return;
    }
    m_launcher.clear();
    // A cancelled export leaves the session at once, and what it has to say comes later.
    if (message() && message() != m_earlierMessage)
        tellOfTheEnd();
}

void ExportOnDesktop::followProgress()
{
    if (m_session.isExporting())
        m_launcher.show(m_session.exportProgress());
}

void ExportOnDesktop::tellOfTheEnd()
{
    if (m_window && m_window->isActive())
        return;
    const ExportNotification& notification = *m_session.exportNotification();
    m_notifier.show({notification.title, notification.message, QStringLiteral("Zumeta")});
}

}
