// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/window/MissingMediaModel.h"

#include "languages/LanguageManager.h"
#include "media/VideoFileHelper.h"
#include "platform/FileChooser.h"
#include "session/CompositorViewModel.h"
#include "surfaces/theme/SurfaceContext.h"

#include <QPointer>
#include <QQmlEngine>
#include <memory>

namespace zumeta {

namespace {

OpenPanel videoPanel(const LanguageManager& languages)
{
    OpenPanel panel;
    panel.title = languages.localized(QStringLiteral("Select Video Files"));
    panel.prompt = languages.localized(QStringLiteral("Select"));
    for (const std::string& extension : VideoFileHelper::supportedExtensions())
        panel.extensions << QString::fromStdString(extension);
    panel.allowsMultiple = true; // the chapters of one recording
    return panel;
}

}

MissingMediaModel::MissingMediaModel(CompositorViewModel& session, FileChooser& fileChooser,
                                     const LanguageManager& languages, QObject* parent)
    : QObject(parent)
    , m_session(session)
    , m_fileChooser(fileChooser)
    , m_languages(languages)
{
    for (const auto signal : {&CompositorViewModel::showMissingFileAlertChanged,
                              &CompositorViewModel::isAboveMissingChanged, &CompositorViewModel::isBelowMissingChanged})
        connect(&session, signal, this, &MissingMediaModel::changed);
}

MissingMediaModel* MissingMediaModel::create(QQmlEngine* engine, QJSEngine*)
{
    SurfaceContext& context = SurfaceContext::of(*engine);
    auto model = std::make_unique<MissingMediaModel>(context.session(), context.fileChooser(), context.languages());
    return model.release(); // the engine takes it over
}

bool MissingMediaModel::isShown() const
{
    return m_session.showMissingFileAlert() && (showAboveReconnect() || showBelowReconnect());
}

bool MissingMediaModel::showAboveReconnect() const
{
    return isMissing(Side::above);
}

bool MissingMediaModel::showBelowReconnect() const
{
    return isMissing(Side::below);
}

void MissingMediaModel::reset()
{
    m_session.resetProject();
}

Task<> MissingMediaModel::reconnect(Side side)
{
    const QPointer<MissingMediaModel> self(this);
    if (m_isChoosing)
        co_return;
    m_isChoosing = true;
    const std::vector<FileUrl> chosen = co_await m_fileChooser.showOpenPanel(videoPanel(m_languages));
    if (!self)
        co_return;
    m_isChoosing = false;
    const std::vector<FileUrl> urls = VideoFileHelper::sortedVideoURLs(chosen);
    if (urls.empty() || !isMissing(side))
        co_return;
    if (side == Side::above)
        m_session.reconnectAboveVideo(urls);
    else
        m_session.reconnectBelowVideo(urls);
}

bool MissingMediaModel::isMissing(Side side) const
{
    return side == Side::above ? m_session.isAboveMissing() : m_session.isBelowMissing();
}

}
