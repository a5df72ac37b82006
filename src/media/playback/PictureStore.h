// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/FrameCursor.h"
#include "media/playback/DecodePlan.h"
#include "media/playback/FrameCache.h"
#include "media/playback/Player.h"

namespace zumeta {

/// What a player has to show.
struct PictureDemand {
    double seconds = 0; ///< on the item's clock
    double rate = 0;
    SeekTolerance tolerance = SeekTolerance::zero; ///< of the newest seek, for a player that stands
    uint64_t seek = 0;                             ///< a number of its own for every seek

    friend bool operator==(const PictureDemand&, const PictureDemand&) = default;
};

/// The decoded pictures of one player and the choice among them. Belongs to whoever holds the lock around it.
class PictureStore {
public:
    explicit PictureStore(size_t cacheBytes)
        : m_cacheBytes(cacheBytes)
    {}

    /// Pictures that are let go; better not under the lock.
    using Dropped = std::vector<FrameCache>;

    void changeItem(ItemChange change, const PictureDemand& demand, Dropped& dropped);
    void setDemand(const PictureDemand& demand);
    const PictureDemand& demand() const { return m_demand; }

    /// The moment whose picture is wanted: of an imprecise seek, that of its key frame once it is known.
    double playhead() const { return m_landing.value_or(m_demand.seconds); }
    /// A standing player was sent to a key frame that is not known yet.
    bool awaitsLanding() const;
    void land(double seconds) { m_landing = seconds; }

    /// `dropped`: what this picture makes superfluous.
    std::optional<ShownPicture> pictureAt(double seconds, Dropped& dropped);
    bool hasExactPicture() const { return m_cache.pick(playhead()).isExact; }
    /// Whether a standing player, or one that had nothing to show, has something else to show than at the last call
    /// that said so.
    bool takeChange();

    /// Frames that end before `keepFrom` are left out.
    void accept(FrameNews&& news, double keepFrom);
    /// Nothing can be had at that moment: what is shown there stays.
    void giveUp(double seconds);
    DecodeSituation situation(double frameLength, double itemEnd) const;

private:
    struct Told {
        MediaTime begin;
        bool isExact = false;
        friend bool operator==(const Told&, const Told&) = default;
    };

    size_t budget() const;

    const size_t m_cacheBytes;
    PictureDemand m_demand;
    std::optional<double> m_landing;
    FrameCache m_cache;
    FrameCache m_retired; ///< the same recording from another file, until this one's pictures are there
    size_t m_frameBytes = 0;
    std::optional<Told> m_told;
};

}
