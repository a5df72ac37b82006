// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/playback/PictureStore.h"

#include <algorithm>
#include <cmath>

namespace zumeta {

namespace {

constexpr size_t kFewestFrames = 6; ///< in the cache, however large they are
/// Pictures that are larger than usual get room for a group of them, within bounds.
constexpr size_t kGroupFrames = 18;

}

void PictureStore::changeItem(ItemChange change, const PictureDemand& demand, Dropped& dropped)
{
    if (change == ItemChange::startsOver) {
        dropped.push_back(std::exchange(m_retired, {}));
    } else if (!m_cache.isEmpty()) {
        dropped.push_back(std::exchange(m_retired, std::exchange(m_cache, {})));
        m_retired.shrink(m_cacheBytes / 2, m_demand.seconds, m_demand.rate);
    } // else what an earlier change kept still serves
    dropped.push_back(std::exchange(m_cache, {}));
    m_demand = demand;
    m_landing.reset();
    m_frameBytes = 0;
    m_told.reset();
}

void PictureStore::setDemand(const PictureDemand& demand)
{
    if (demand.seek != m_demand.seek || demand.rate != 0)
        m_landing.reset();
    m_demand = demand;
}

bool PictureStore::awaitsLanding() const
{
    return m_demand.tolerance == SeekTolerance::infinite && m_demand.rate == 0 && !m_landing;
}

std::optional<ShownPicture> PictureStore::pictureAt(double seconds, Dropped& dropped)
{
    const double time = m_landing.value_or(seconds);
    const FrameCache::Pick pick = m_cache.pick(time);
    const FrameCache::Pick old = m_retired.pick(time);
    const auto distance = [time](const FrameCache::Frame& frame) { return std::abs(frame.begin.seconds() - time); };
    if (old.frame && !pick.isExact && (!pick.frame || distance(*old.frame) <= distance(*pick.frame)))
        return ShownPicture{*old.frame->picture, old.frame->presentationTime, false};
    if (!pick.frame)
        return std::nullopt;
    if (!m_retired.isEmpty())
        dropped.push_back(std::exchange(m_retired, {}));
    return ShownPicture{*pick.frame->picture, pick.frame->presentationTime, pick.isExact && !awaitsLanding()};
}

bool PictureStore::takeChange()
{
    const FrameCache::Pick pick = m_cache.pick(playhead());
    if (!pick.frame || (m_demand.rate != 0 && m_told))
        return false;
    const Told now{pick.frame->begin, pick.isExact && !awaitsLanding()};
    return std::exchange(m_told, now) != now;
}

size_t PictureStore::budget() const
{
    const size_t group = std::min(kGroupFrames * m_frameBytes, m_cacheBytes / 2 * 5);
    const size_t whole = std::max({m_cacheBytes, group, kFewestFrames * m_frameBytes});
    return whole - std::min(m_retired.bytes(), whole / 2);
}

void PictureStore::accept(FrameNews&& news, double keepFrom)
{
    if (news.kind == FrameNews::Kind::end) {
        m_cache.setEnd(news.begin, news.end);
        return;
    }
    if (news.picture) {
        m_frameBytes = FrameCache::bytesOf(*news.picture);
        if (news.end && news.end->seconds() < keepFrom)
            return;
    }
    m_cache.put({news.begin, news.end, news.presentationTime, std::move(news.picture)});
    m_cache.shrink(budget(), playhead(), m_demand.rate);
    if (!m_retired.isEmpty() && hasExactPicture())
        m_retired.clear();
}

void PictureStore::giveUp(double seconds)
{
    const MediaTime begin = MediaTime::nearest(seconds, kSeekTimescale);
    m_cache.put({begin, begin + MediaTime{1, 30}, begin, std::nullopt});
    if (awaitsLanding())
        m_landing = m_demand.seconds;
}

DecodeSituation PictureStore::situation(double frameLength, double itemEnd) const
{
    constexpr size_t kMany = 100000;
    DecodeSituation situation;
    situation.playhead = playhead();
    situation.rate = m_demand.rate;
    situation.covered = m_cache.stretchAround(situation.playhead);
    situation.frameLength = frameLength;
    situation.itemEnd = itemEnd;
    if (m_frameBytes == 0)
        return situation;
    situation.framesInBudget = int(std::min(budget() / m_frameBytes, kMany));
    if (situation.covered) {
        const double reach = situation.framesInBudget * frameLength;
        const double from = situation.rate < 0 ? situation.covered->begin - reach : situation.playhead;
        const double to = situation.rate < 0 ? situation.playhead : situation.covered->end;
        situation.framesWanted = int(m_cache.bytesBetween(from, to) / m_frameBytes);
    }
    return situation;
}

}
