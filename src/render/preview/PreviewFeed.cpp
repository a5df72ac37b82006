// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/preview/PreviewFeed.h"

#include <algorithm>

namespace zumeta {

namespace {

/// Twice for every refresh of usual displays, so that no picture is late by more than half of one.
constexpr std::chrono::milliseconds kTick{8};
constexpr double kTickSeconds = std::chrono::duration<double>(kTick).count();
constexpr double kLongestLead = 0.05;
/// The lead goes up or down by so much with each picture, so that it comes to the median: a hitch moves it no further.
constexpr double kLeadStep = 0.0005;

std::optional<VideoPicture> pictureOf(const std::unique_ptr<WatchedPlayer>& watched, double hostTime)
{
    if (!watched)
        return std::nullopt;
    std::optional<ShownPicture> shown = watched->player().shownPicture(hostTime);
    return shown ? std::optional(std::move(shown->picture)) : std::nullopt;
}

}

PreviewFeed::PreviewFeed(std::function<void()> pictureChanged)
    : m_pictureChanged(std::move(pictureChanged))
    , m_composer([this] {
        QMetaObject::invokeMethod(
            this, [this] { takeFinished(); }, Qt::QueuedConnection);
    })
{
    m_playing.setTimerType(Qt::PreciseTimer);
    m_playing.setInterval(kTick);
    QObject::connect(&m_playing, &QTimer::timeout, this, &PreviewFeed::tick);
}

PreviewFeed::~PreviewFeed() = default;

void PreviewFeed::setClock(const Clock& clock)
{
    m_clock = &clock;
    postRefresh();
}

void PreviewFeed::watch(std::unique_ptr<WatchedPlayer>& watched, Player* player)
{
    if (player == (watched ? &watched->player() : nullptr))
        return;
    watched.reset();
    if (player)
        watched = std::make_unique<WatchedPlayer>(*player, [this] { playerHasNews(); });
    playerHasNews();
}

void PreviewFeed::setPlayers(Player* above, Player* below)
{
    watch(m_below, below);
    watch(m_above, above);
}

void PreviewFeed::setView(PreviewSituation view)
{
    m_view = std::move(view);
    postRefresh();
}

void PreviewFeed::setSeen(bool isSeen)
{
    if (std::exchange(m_isSeen, isSeen) != isSeen)
        postRefresh();
}

bool PreviewFeed::isPlaying() const
{
    return (m_above && m_above->isPlaying()) || (m_below && m_below->isPlaying());
}

void PreviewFeed::playerHasNews()
{
    if (m_playing.isActive())
        return; // it looks by itself, and sees when the players stop
    if (isPlaying())
        m_playing.start();
    postRefresh();
}

void PreviewFeed::tick()
{
    if (!isPlaying())
        m_playing.stop(); // one last look, at where the players have come to stand
    else if (!m_isSeen)
        return;
    refresh();
}

void PreviewFeed::postRefresh()
{
    // Values come in groups: one look for all that are set in a turn.
    if (std::exchange(m_refreshIsPosted, true))
        return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_refreshIsPosted = false;
            refresh();
        },
        Qt::QueuedConnection);
}

double PreviewFeed::wantedHostTime() const
{
    const double now = m_clock->now();
    return m_playing.isActive() ? now + m_lead + kTickSeconds / 2 : now;
}

void PreviewFeed::refresh()
{
    if (!m_clock)
        return;
    const double hostTime = wantedHostTime();
    PreviewSituation situation = m_view;
    situation.below = pictureOf(m_below, hostTime);
    situation.above = pictureOf(m_above, hostTime);
    std::optional<PreviewRequest> request = previewRequest(situation);
    if (!request) {
        showNothing();
        return;
    }
    if (m_newest && asksForTheSame(*request, *m_newest))
        return;
    m_newest = request;
    m_asked = m_composer.ask(std::move(*request));
}

void PreviewFeed::showNothing()
{
    m_newest.reset();
    m_shownFrom = m_asked + 1;
    if (m_picture.isEmpty())
        return;
    m_picture = {};
    m_pictureNumber = 0;
    m_pictureAskedAt.reset();
    m_pictureChanged();
}

void PreviewFeed::takeFinished()
{
    std::optional<ComposedPreview> composed = m_composer.takeNewest();
    if (!composed || composed->number < m_shownFrom)
        return;
    m_picture = std::move(composed->picture);
    m_pictureNumber = composed->number;
    m_pictureAskedAt = m_playing.isActive() ? std::optional(composed->askedAt) : std::nullopt;
    m_pictureChanged();
}

void PreviewFeed::pictureIsOnScreen()
{
    if (!m_pictureAskedAt)
        return;
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - *m_pictureAskedAt;
    m_pictureAskedAt.reset();
    m_lead = std::clamp(m_lead + (taken.count() > m_lead ? kLeadStep : -kLeadStep), 0.0, kLongestLead);
}

}
