// SPDX-License-Identifier: GPL-3.0-or-later
#include "LiveSession.h"

#include "media/playback/MoviePlayer.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

namespace zumeta::test {

namespace {

struct LaterTurn {
    MainQueue& queue;
    bool await_ready() const noexcept { return false; }
    void await_suspend(std::coroutine_handle<> task)
    {
        queue.post([task] { task.resume(); });
    }
    void await_resume() const noexcept {}
};

struct LaterMoment {
    MainQueue& queue;
    double seconds;
    bool await_ready() const noexcept { return seconds <= 0; }
    void await_suspend(std::coroutine_handle<> task)
    {
        queue.postAfter(seconds, [task] { task.resume(); });
    }
    void await_resume() const noexcept {}
};

}

Task<int> AnsweringDialogs::showAlert(Alert alert)
{
    shown.push_back(alert);
    co_await LaterTurn{m_queue};
    int answer = int(alert.buttons.size()) - 1;
    if (!answers.empty()) {
        answer = answers.front();
        answers.pop_front();
    }
    co_return answer;
}

Task<std::optional<FileUrl>> AnsweringDialogs::showSavePanel(SavePanel panel)
{
    savePanels.push_back(panel);
    co_await LaterTurn{m_queue};
    if (savePlaces.empty())
        co_return std::nullopt;
    const FileUrl place = savePlaces.front();
    savePlaces.pop_front();
    co_return place;
}

Task<AssetOutcome> CountedAssets::load(FileUrl url)
{
    ++underWay;
    AssetOutcome outcome = co_await m_loader.load(std::move(url));
    --underWay;
    co_return outcome;
}

Task<ProjectReadOutcome> CountedProjectFiles::read(FileUrl url)
{
    return m_files.read(std::move(url));
}

Task<ProjectWriteOutcome> CountedProjectFiles::write(FileUrl url, ProjectState state)
{
    ProjectWriteOutcome outcome = co_await m_files.write(std::move(url), std::move(state));
    written += outcome ? 0 : 1;
    co_return outcome;
}

Task<MetadataOutcome> LiveSession::loadMetadata(std::vector<FileUrl> urls)
{
    co_await LaterMoment{m_queue, m_diskDelay};
    co_return co_await m_metadata.load(std::move(urls));
}

LiveSession::LiveSession(const std::filesystem::path& folder)
    : m_proxies(m_queue, folder / "Proxies")
{
    m_session = std::make_unique<CompositorViewModel>(
        SessionEnvironment{.playbackClock = m_clock,
                           .queue = m_queue,
                           .notifications = m_notifications,
                           .fileAccess = m_fileAccess,
                           .bookmarks = m_bookmarks,
                           .projectFiles = m_projectFiles,
                           .dialogs = m_dialogs,
                           .localized = [](const QString& key) { return key; },
                           .wallClock = m_wallClock,
                           .assets = m_assets,
                           .loadMetadata = [this](std::vector<FileUrl> urls) { return loadMetadata(std::move(urls)); },
                           .proxyGenerator = m_proxies,
                           .makePlayer = [this] { return std::make_unique<MoviePlayer>(m_clock, m_queue, nullptr); },
                           .makeExporter = [this] { return std::make_shared<ExportService>(m_exportEnvironment); },
                           .sleepInhibitor = m_sleepInhibitor});
}

LiveSession::~LiveSession() = default;

VideoPlayerService& LiveSession::service(Side side)
{
    return side == Side::above ? m_session->abovePlayerService() : m_session->belowPlayerService();
}

bool LiveSession::waitFor(const std::function<bool()>& condition, double seconds)
{
    const double end = m_monotonic.now() + seconds;
    QTimer wakeUp; // what is waited for may come without an event of its own
    wakeUp.start(2);
    while (!condition()) {
        if (m_monotonic.now() > end)
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

void LiveSession::run(double seconds, const std::function<void()>& sample)
{
    QEventLoop loop;
    QTimer display;
    display.setTimerType(Qt::PreciseTimer);
    if (sample)
        QObject::connect(&display, &QTimer::timeout, sample);
    display.start(16);
    QTimer::singleShot(std::chrono::milliseconds(std::lround(seconds * 1000)), &loop, &QEventLoop::quit);
    loop.exec();
}

bool LiveSession::load(Side side, const std::vector<std::filesystem::path>& files)
{
    std::vector<FileUrl> urls;
    for (const std::filesystem::path& file : files)
        urls.emplace_back(file);
    const auto asset = [this, side]() -> const std::optional<VideoAsset>& {
        const ProjectState& state = m_session->projectState();
        return side == Side::above ? state.aboveVideo : state.belowVideo;
    };
    const std::optional<QUuid> before = asset() ? std::optional(asset()->id) : std::nullopt;
    if (side == Side::above)
        m_session->loadAboveVideo(urls);
    else
        m_session->loadBelowVideo(urls);
    if (!waitFor([&] { return asset() && asset()->id != before && service(side).currentAssetID() == asset()->id; }))
        return false;
    // The look at the shape comes last; with its end the load is through.
    if (!waitFor([&] { return player(side).hasCurrentItem() && m_assets.underWay == 0; }))
        return false;
    return waitForPicture(side);
}

bool LiveSession::keep(const std::filesystem::path& project)
{
    m_session->prepareProjectForSave();
    if (!waitFor([&] { return m_session->showSaveProjectPanel(); }))
        return false;
    m_session->setShowSaveProjectPanel(false);
    const int before = m_projectFiles.written;
    m_session->saveProject(FileUrl(project));
    return waitFor([&] { return m_projectFiles.written > before; });
}

bool LiveSession::restore(const std::filesystem::path& project)
{
    bool isRestored = false;
    const QObject here;
    QObject::connect(m_session.get(), &CompositorViewModel::projectRestored, &here,
                     [&isRestored] { isRestored = true; });
    m_session->importProject({FileUrl(project)});
    if (!waitFor([&] { return isRestored && m_assets.underWay == 0; }))
        return false;
    return (!m_session->aboveVideoURL() || waitForPicture(Side::above)) &&
           (!m_session->belowVideoURL() || waitForPicture(Side::below));
}

bool LiveSession::exportTo(const std::filesystem::path& movie)
{
    if (std::filesystem::exists(movie))
        return false; // whether it shall be replaced would be asked
    m_session->dismissExportNotification();
    m_dialogs.savePlaces = {FileUrl(movie)};
    m_session->exportVideo(false);
    return waitFor([&] { return m_session->exportNotification().has_value(); }, 200) &&
           !m_session->exportNotification()->isError;
}

bool LiveSession::waitForProxy(Side side)
{
    return waitFor(
        [&] {
            const ProjectState& state = m_session->projectState();
            const std::optional<VideoAsset>& asset = side == Side::above ? state.aboveVideo : state.belowVideo;
            return asset && asset->proxyURL;
        },
        120);
}

bool LiveSession::isExact(Side side)
{
    const std::optional<ShownPicture> shown = player(side).shownPicture(m_clock.now());
    return shown && shown->isExact;
}

bool LiveSession::waitForPicture(Side side)
{
    return waitFor([&] { return isExact(side); });
}

std::optional<BarCode> LiveSession::shownCode(Side side)
{
    if (!waitForPicture(side))
        return std::nullopt;
    return readBarCode(RawPicture(player(side).shownPicture(m_clock.now())->picture));
}

std::pair<int, int> LiveSession::shownNumbers()
{
    const std::optional<BarCode> above = shownCode(Side::above);
    const std::optional<BarCode> below = shownCode(Side::below);
    return {above ? above->number : -1, below ? below->number : -1};
}

}
