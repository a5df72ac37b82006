// SPDX-License-Identifier: GPL-3.0-or-later
#include "zumeta-render/HeadlessSession.h"

#include "languages/Translations.h"
#include "media/playback/TimekeepingPlayer.h"
#include "render/export/ExportService.h"

#include <QEventLoop>
#include <QTimer>

namespace zumeta {

namespace {

constexpr int kLookInterval = 20; ///< milliseconds

}

Task<int> CommandLineAnswers::showAlert(Alert alert)
{
    const bool isQuestion = alert.buttons.size() > 1;
    if (!isQuestion && !m_refusal)
        m_refusal = alert.message;
    co_return 0;
}

Task<std::optional<FileUrl>> CommandLineAnswers::showSavePanel(SavePanel)
{
    co_return m_output;
}

Task<ProxyOutcome> HeadlessSession::NoProxies::generateProxy(FileUrl, ProxyConfig, Progress)
{
    co_return ProxyError::exportCancelled();
}

HeadlessSession::HeadlessSession(FileUrl output)
    : m_answers(std::move(output))
    , m_assets([known = m_knownAssets](const FileUrl& url) { return known->load(url); })
    , m_metadata([known = m_knownAssets](const FileUrl& url) { return known->load(url); })
{
    ExportEnvironment exports;
    exports.loadAsset = [known = m_knownAssets](const FileUrl& url, const std::stop_token& stop) {
        return known->load(url, stop);
    };
    m_session = std::make_unique<CompositorViewModel>(SessionEnvironment{
        .playbackClock = m_clock,
        .queue = m_queue,
        .notifications = m_notifications,
        .fileAccess = m_fileAccess,
        .bookmarks = m_bookmarks,
        .projectFiles = m_projectFiles,
        .dialogs = m_answers,
        .localized = [](const QString& key) { return Translations::compiled().text(key, AppLanguage::english); },
        .wallClock = m_wallClock,
        .assets = m_assets,
        .loadMetadata = [this](std::vector<FileUrl> urls) { return m_metadata.load(std::move(urls)); },
        .proxyGenerator = m_proxies,
        .makePlayer = [this] { return std::make_unique<TimekeepingPlayer>(m_clock); },
        .makeExporter = [exports] { return std::make_shared<ExportService>(exports); },
        .sleepInhibitor = m_sleepInhibitor});
}

HeadlessSession::~HeadlessSession() = default;

void HeadlessSession::runUntil(const std::function<bool()>& isOver)
{
    QEventLoop loop;
    const auto look = [&] {
        if (isOver())
            loop.quit();
    };
    // Answers are no change of the session: they are looked for now and then.
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &loop, look);
    timer.start(kLookInterval);
    QObject::connect(m_session.get(), &CompositorViewModel::changed, &loop, look);
    if (!isOver())
        loop.exec();
}

}
