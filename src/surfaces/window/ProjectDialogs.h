// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/Dialogs.h"
#include "platform/FileChooser.h"

#include <QObject>
#include <functional>

namespace zumeta {
class CompositorViewModel;

/// Where a composition is kept and restored from. The session says when to ask; the answer goes back to it. As long as
/// the window, since full screen takes the panel away.
class ProjectDialogs final : public QObject {
    Q_OBJECT
public:
    /// All must outlive it.
    ProjectDialogs(CompositorViewModel& session, Dialogs& dialogs, FileChooser& fileChooser,
                   std::function<QString(const QString&)> localized);

private:
    void followOpenPanel();
    void followSavePanel();
    Task<> chooseProject();
    Task<> choosePlace();

    CompositorViewModel& m_session;
    Dialogs& m_dialogs;
    FileChooser& m_fileChooser;
    std::function<QString(const QString&)> m_localized;
    bool m_isAsking = false;
};

}
