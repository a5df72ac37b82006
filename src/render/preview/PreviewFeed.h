// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/Clock.h"
#include "render/preview/PreviewComposer.h"
#include "render/preview/WatchedPlayer.h"

#include <QTimer>

namespace zumeta {

/// Keeps the preview's picture up to date: asks both players for their pictures of one moment whenever those or the
/// view may have changed, and has them composed when they have. While a player plays it looks oftener than any display
/// shows, for the moment at which the picture will be on the screen; while both stand and nothing changes it does
/// nothing at all. Main thread; nothing here waits.
class PreviewFeed final : public QObject {
public:
    /// Called on a turn of its own when picture() is another one.
    explicit PreviewFeed(std::function<void()> pictureChanged);
    ~PreviewFeed() override;

    /// That of the players' own time. Must outlive the feed.
    void setClock(const Clock& clock);
    /// A side without an item has no player here. Players must outlive the feed or be taken from it before.
    void setPlayers(Player* above, Player* below);
    /// Its pictures are not read.
    void setView(PreviewSituation view);
    /// While it is not, playing makes no pictures.
    void setSeen(bool isSeen);

    /// Empty when there is nothing to show. Until a new one is composed the old one stays.
    const ScreenPicture& picture() const { return m_picture; }
    /// Of its request, which count up; 0 while there is nothing to show.
    uint64_t pictureNumber() const { return m_pictureNumber; }
    /// To be told when picture() has reached the screen: pictures of a playing side are asked for that much earlier.
    void pictureIsOnScreen();

    /// Of which the newest may still be in the making.
    uint64_t picturesAskedFor() const { return m_asked; }

private:
    using Instant = std::chrono::steady_clock::time_point;

    void watch(std::unique_ptr<WatchedPlayer>& watched, Player* player);
    bool isPlaying() const;
    void playerHasNews();
    void tick();
    void postRefresh();
    void refresh();
    void takeFinished();
    void showNothing();
    double wantedHostTime() const;

    const std::function<void()> m_pictureChanged;
    const Clock* m_clock = nullptr;
    std::unique_ptr<WatchedPlayer> m_above;
    std::unique_ptr<WatchedPlayer> m_below;
    PreviewSituation m_view;
    bool m_isSeen = true;
    QTimer m_playing; ///< runs while a player plays
    bool m_refreshIsPosted = false;

    std::optional<PreviewRequest> m_newest; ///< what was asked for last; none when nothing is to be shown
    uint64_t m_asked = 0;
    uint64_t m_shownFrom = 0; ///< pictures of older requests are not to be shown any more
    ScreenPicture m_picture;
    uint64_t m_pictureNumber = 0;
    std::optional<Instant> m_pictureAskedAt; ///< until it is on the screen, if it is of a playing side
    double m_lead = 0.01;                    ///< seconds that it takes from asking to the screen

    PreviewComposer m_composer; ///< last: it calls back until it is gone
};

}
