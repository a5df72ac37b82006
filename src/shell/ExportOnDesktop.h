// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QObject>
#include <QPointer>
#include <QUuid>
#include <QWindow>
#include <optional>

namespace zumeta {
class CompositorViewModel;
class DesktopNotifier;
class LauncherProgress;

/// Carries an export beyond the window: its progress to the program's icon, and its end to a user who has turned to
/// something else meanwhile. What was cancelled ends without a word.
class ExportOnDesktop final : public QObject {
    Q_OBJECT
public:
    /// All must outlive it.
    ExportOnDesktop(CompositorViewModel& session, DesktopNotifier& notifier, LauncherProgress& launcher);
    /// The one that a user who looks at it needs no notification beside.
    void setWindow(QWindow& window);

private:
    void followExport();
    void followProgress();
    void tellOfTheEnd();
    std::optional<QUuid> message() const;

    CompositorViewModel& m_session;
    DesktopNotifier& m_notifier;
    LauncherProgress& m_launcher;
    QPointer<QWindow> m_window;
    std::optional<QUuid> m_earlierMessage; ///< what the session still had to say when the export began
};

}
