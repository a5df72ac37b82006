// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/window/FilesModel.h"

#include "languages/LanguageManager.h"
#include "platform/FileChooser.h"
#include "platform/Log.h"
#include "session/CompositorViewModel.h"
#include "surfaces/theme/SurfaceContext.h"

#include <QPointer>
#include <QQmlEngine>
#include <memory>
#include <utility>

namespace zumeta {

using WorkflowStep = CompositorViewModel::WorkflowStep;

namespace {

QString namesOf(const std::vector<FileUrl>& urls)
{
    QStringList names;
    for (const FileUrl& url : urls)
        names << url.displayName();
    return names.join(QStringLiteral(", "));
}

}

FilesModel::FilesModel(CompositorViewModel& session, FileChooser& chooser, LanguageManager& languages, QObject* parent)
    : QObject(parent)
    , m_session(session)
    , m_chooser(chooser)
    , m_languages(languages)
    , m_above(session, Side::above, this)
    , m_below(session, Side::below, this)
{
    for (const auto signal : {&CompositorViewModel::currentStepChanged, &CompositorViewModel::aboveVideoURLChanged,
                              &CompositorViewModel::belowVideoURLChanged})
        connect(&session, signal, this, &FilesModel::changed);
    // QML would otherwise take what it is given for its own to delete.
    for (SideFile* const file : {&m_above, &m_below})
        QQmlEngine::setObjectOwnership(file, QQmlEngine::CppOwnership);
}

FilesModel* FilesModel::create(QQmlEngine* engine, QJSEngine*)
{
    SurfaceContext& context = SurfaceContext::of(*engine);
    return std::make_unique<FilesModel>(context.session(), context.fileChooser(), context.languages())
        .release(); // the engine takes it over
}

std::optional<Side> FilesModel::stepSide() const
{
    switch (m_session.currentStep()) {
    case WorkflowStep::step1:
        return Side::above;
    case WorkflowStep::step2:
        return Side::below;
    case WorkflowStep::step3:
    case WorkflowStep::step4:
        return std::nullopt;
    }
    return std::nullopt;
}

bool FilesModel::shouldShowCentralDropInstruction() const
{
    const std::optional<Side> side = stepSide();
    return side && !(*side == Side::above ? m_session.aboveVideoURL() : m_session.belowVideoURL());
}

QString FilesModel::centralDropInstructionText() const
{
    const std::optional<Side> side = stepSide();
    if (!side)
        return {};
    return *side == Side::above ? QStringLiteral("Above Video") : QStringLiteral("Below Video");
}

QString FilesModel::centralDropInstructionDescription() const
{
    const std::optional<Side> side = stepSide();
    if (!side)
        return {};
    return *side == Side::above ? QStringLiteral("Above Video Drop Description")
                                : QStringLiteral("Below Video Drop Description");
}

QString FilesModel::centralDropButtonTitle() const
{
    const std::optional<Side> side = stepSide();
    if (!side)
        return {};
    return *side == Side::above ? QStringLiteral("Choose Above Video") : QStringLiteral("Choose Below Video");
}

bool FilesModel::isDropZoneHighlighted() const
{
    return m_session.showDropZoneAboveHighlight() || m_session.showDropZoneBelowHighlight();
}

void FilesModel::chooseVideos()
{
    const std::optional<Side> side = stepSide();
    if (side && !m_isChoosing)
        choose(*side);
}

Task<> FilesModel::choose(Side side)
{
    const QPointer<FilesModel> self(this);
    m_isChoosing = true;
    const std::vector<FileUrl> urls = co_await selectVideoURLsFromFiles();
    if (!self)
        co_return;
    m_isChoosing = false;
    if (!urls.empty())
        loadSelectedVideoURLs(urls, side);
}

Task<std::vector<FileUrl>> FilesModel::selectVideoURLsFromFiles()
{
    OpenPanel panel;
    panel.title = m_languages.localized(QStringLiteral("Select Video Files"));
    panel.prompt = m_languages.localized(QStringLiteral("Select"));
    for (const std::string& extension : VideoFileHelper::supportedExtensions())
        panel.extensions << QString::fromStdString(extension);
    panel.allowsMultiple = true;
    std::vector<FileUrl> urls = co_await m_chooser.showOpenPanel(std::move(panel));
    co_return VideoFileHelper::sortedVideoURLs(std::move(urls));
}

void FilesModel::handleCentralDrop(std::vector<DroppedItem> items)
{
    const std::optional<Side> side = stepSide();
    if (!side)
        return;
    // The other program waits for its drop to be over.
    QMetaObject::invokeMethod(
        this,
        [this, side, items = std::move(items)] {
            const std::vector<FileUrl> urls = VideoFileHelper::loadDroppedVideoURLs(items);
            if (urls.size() > 1)
                logLine(QStringLiteral("📎 Multiple files dropped: ") + namesOf(urls));
            if (!urls.empty())
                loadSelectedVideoURLs(urls, *side);
        },
        Qt::QueuedConnection);
}

void FilesModel::loadSelectedVideoURLs(const std::vector<FileUrl>& urls, Side side)
{
    m_session.retainSecurityScopedAccess(urls);
    if (!stepSide())
        return;
    if (side == Side::below) {
        m_session.clearBelowVideo();
        m_session.loadBelowVideo(urls);
    } else {
        m_session.clearAboveVideo();
        m_session.loadAboveVideo(urls);
    }
}

}
