// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Log.h"
#include "session/CompositorViewModel.h"

#include <QPointer>

namespace zumeta {

void CompositorViewModel::prepareProjectForSave()
{
    const Operation operation(*this);
    if (!isCompositeStep())
        return;
    m_fields.projectSaveDefaultFilename = QStringLiteral("Zumeta_") + filenameTimestamp();
    m_fields.projectState.projectConfig = m_fields.projectConfig;
    m_bases.keepIn(m_fields.projectState);
    refreshBookmarks(++m_keepRequest);
}

Task<> CompositorViewModel::refreshBookmarks(uint64_t request)
{
    const QPointer<CompositorViewModel> self(this);
    for (const Side side : {Side::above, Side::below}) {
        const std::optional<VideoAsset> asset = videoAsset(side);
        if (!asset || asset->fileURLs.empty())
            continue;
        const std::vector<std::optional<QByteArray>> made = co_await m_environment.bookmarks.make(asset->fileURLs);
        if (!self || request != m_keepRequest)
            co_return;
        const Operation operation(*this);
        // Another video may have come to this side meanwhile; its bookmarks are made when it is kept.
        std::optional<VideoAsset>& current = videoAsset(side);
        if (current && current->id == asset->id && current->fileURLs == asset->fileURLs)
            takeBookmarks(*current, made);
    }
    assign(m_fields.showSaveProjectPanel, true);
}

void CompositorViewModel::saveProject(const FileUrl& url)
{
    writeProject(url);
}

Task<> CompositorViewModel::writeProject(FileUrl url)
{
    const ProjectWriteOutcome error = co_await m_environment.projectFiles.write(url, m_fields.projectState);
    if (!error)
        logLine(QStringLiteral("Project exported to: ") + QString::fromStdString(url.path().native()));
}

}
