// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/window/ProjectDialogs.h"

#include "session/CompositorViewModel.h"

#include <QPointer>
#include <utility>

namespace zumeta {

namespace {

const QString kExtension = QStringLiteral("zumetaproj");

}

ProjectDialogs::ProjectDialogs(CompositorViewModel& session, Dialogs& dialogs, FileChooser& fileChooser,
                               std::function<QString(const QString&)> localized)
    : m_session(session)
    , m_dialogs(dialogs)
    , m_fileChooser(fileChooser)
    , m_localized(std::move(localized))
{
    connect(&session, &CompositorViewModel::showOpenProjectPanelChanged, this, &ProjectDialogs::followOpenPanel);
    connect(&session, &CompositorViewModel::showSaveProjectPanelChanged, this, &ProjectDialogs::followSavePanel);
}

void ProjectDialogs::followOpenPanel()
{
    if (m_session.showOpenProjectPanel())
        chooseProject();
}

void ProjectDialogs::followSavePanel()
{
    if (m_session.showSaveProjectPanel())
        choosePlace();
}

Task<> ProjectDialogs::chooseProject()
{
    // Bookmarks that took their time may ask for a place while another dialog stands there: the user has moved on.
    if (std::exchange(m_isAsking, true)) {
        m_session.setShowOpenProjectPanel(false);
        co_return;
    }
    const QPointer<ProjectDialogs> self(this);
    OpenPanel panel{m_localized(QStringLiteral("Open Project")), m_localized(QStringLiteral("Select")), {kExtension}};
    const std::vector<FileUrl> chosen = co_await m_fileChooser.showOpenPanel(std::move(panel));
    if (!self)
        co_return;
    m_isAsking = false;
    m_session.setShowOpenProjectPanel(false);
    m_session.importProject(chosen);
}

Task<> ProjectDialogs::choosePlace()
{
    if (std::exchange(m_isAsking, true)) {
        m_session.setShowSaveProjectPanel(false);
        co_return;
    }
    const QPointer<ProjectDialogs> self(this);
    const QString name = m_session.projectSaveDefaultFilename() + QLatin1Char('.') + kExtension;
    SavePanel panel{name, kExtension, m_localized(QStringLiteral("Choose a location to save your Zumeta Project"))};
    const std::optional<FileUrl> place = co_await m_dialogs.showSavePanel(std::move(panel));
    if (!self)
        co_return;
    m_isAsking = false;
    m_session.setShowSaveProjectPanel(false);
    if (place)
        m_session.saveProject(*place);
}

}
