// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/playback/PictureEngine.h"

#include "media/movie/MovieError.h"
#include "platform/Log.h"

#include <algorithm>

namespace zumeta {

namespace {

using std::chrono::milliseconds;

/// Cold seeks often come in rows. Reading ahead in between would hold the next one up.
constexpr milliseconds kQuietBeforeReadingAhead{25};
/// With targets that move faster than frames are decoded, a new picture appears at least this often.
constexpr milliseconds kLongestWithoutPicture{40};
constexpr size_t kFewestFrames = 6; ///< in the cache, however large they are
constexpr int kMostFutileSeeks = 3;

int threadsThatPay(int wanted)
{
    constexpr int kMost = 4; // each holds a frame back and takes memory
    return wanted > 0 ? wanted : std::clamp(int(std::thread::hardware_concurrency()), 2, kMost);
}

}

PictureEngine::PictureEngine(size_t cacheBytes, int frameThreads, Listener listener)
    : m_cacheBytes(cacheBytes)
    , m_frameThreads(threadsThatPay(frameThreads))
    , m_listener(std::move(listener))
{}

PictureEngine::~PictureEngine()
{
    const Lock lock(m_mutex);
    m_itemStop.request_stop(); // a long read ends early
}

uint64_t PictureEngine::setItem(std::optional<PlayerItem> item, ItemChange change, const PictureDemand& demand)
{
    FrameCache dropped; // goes when the lock has gone
    FrameCache alsoDropped;
    const Lock lock(m_mutex);
    m_itemStop.request_stop();
    m_itemStop = {};
    if (change == ItemChange::keepsTime && item)
        keepForLater();
    else
        std::swap(dropped, m_retired);
    std::swap(alsoDropped, m_cache);
    m_told.reset();
    m_landing.reset();
    m_demand = demand;
    m_nextItem = std::move(item);
    m_itemIsNew = true;
    m_hasNews = true;
    if (m_nextItem && !m_thread.joinable())
        m_thread = std::jthread([this](const std::stop_token& stop) { run(stop); });
    m_wake.notify_all();
    return ++m_item;
}

void PictureEngine::keepForLater()
{
    if (m_cache.isEmpty())
        return; // what an earlier change kept still serves
    std::swap(m_retired, m_cache);
    m_retired.shrink(m_cacheBytes / 2, m_demand.seconds, m_demand.rate);
}

void PictureEngine::setDemand(const PictureDemand& demand)
{
    {
        const Lock lock(m_mutex);
        if (demand == m_demand)
            return;
        if (demand.seek != m_demand.seek || demand.rate != 0)
            m_landing.reset();
        m_demand = demand;
        if (demand.rate == 0 && !m_cache.pick(demand.seconds).isExact)
            m_readAheadFrom = std::chrono::steady_clock::now() + kQuietBeforeReadingAhead;
        m_hasNews = true;
        m_wake.notify_all();
        if (!pictureHasChanged())
            return;
    }
    m_listener.pictureChanged();
}

double PictureEngine::pictureTime() const
{
    return m_landing.value_or(m_demand.seconds);
}

std::optional<ShownPicture> PictureEngine::pictureAt(double seconds)
{
    FrameCache dropped;
    const Lock lock(m_mutex);
    const double time = m_landing.value_or(seconds);
    const FrameCache::Pick pick = m_cache.pick(time);
    const FrameCache::Pick old = m_retired.pick(time);
    const auto distance = [time](const FrameCache::Frame& frame) { return std::abs(frame.begin.seconds() - time); };
    if (old.frame && !pick.isExact && (!pick.frame || distance(*old.frame) <= distance(*pick.frame)))
        return ShownPicture{*old.frame->picture, old.frame->presentationTime, false};
    if (!pick.frame)
        return std::nullopt;
    std::swap(dropped, m_retired);
    const bool hasLanded = m_demand.tolerance == SeekTolerance::zero || m_demand.rate != 0 || m_landing;
    return ShownPicture{*pick.frame->picture, pick.frame->presentationTime, pick.isExact && hasLanded};
}

/// Whether a standing player, or one that had nothing to show, has something else to show than was told last.
bool PictureEngine::pictureHasChanged()
{
    const FrameCache::Pick pick = m_cache.pick(pictureTime());
    if (!pick.frame || (m_demand.rate != 0 && m_told))
        return false;
    const Told now{pick.frame->begin, pick.isExact};
    return std::exchange(m_told, now) != now;
}

size_t PictureEngine::budget() const
{
    const size_t whole = std::max(m_cacheBytes, kFewestFrames * m_frameBytes);
    return whole - std::min(m_retired.bytes(), whole / 2);
}

DecodeSituation PictureEngine::situation() const
{
    DecodeSituation situation;
    situation.playhead = pictureTime();
    situation.rate = m_demand.rate;
    situation.covered = m_cache.stretchAround(situation.playhead);
    situation.frameLength = m_cursor->frameLength();
    situation.itemEnd = m_itemEnd;
    if (m_frameBytes == 0)
        return situation;
    situation.framesInBudget = int(std::min(budget() / m_frameBytes, size_t(100000)));
    if (situation.covered) {
        const double reach = situation.framesInBudget * situation.frameLength;
        const double from = situation.rate < 0 ? situation.covered->begin - reach : situation.playhead;
        const double to = situation.rate < 0 ? situation.playhead : situation.covered->end;
        situation.framesWanted = int(m_cache.bytesBetween(from, to) / m_frameBytes);
    }
    return situation;
}

std::optional<DecodeNeed> PictureEngine::need() const
{
    if (!m_cursor)
        return std::nullopt;
    const bool landsOnKeyFrame = m_demand.tolerance == SeekTolerance::infinite && m_demand.rate == 0;
    if (landsOnKeyFrame && !m_landing)
        return DecodeNeed{m_demand.seconds, true};
    if (m_demand.rate > 0 && pace() == Pace::passingOver)
        return needWithHoles();
    return nextNeed(situation());
}

std::optional<DecodeNeed> PictureEngine::needWithHoles() const
{
    // What was passed over is not waited for.
    const double reach = situation().framesInBudget / 2.0 * m_cursor->frameLength();
    const double playhead = m_demand.seconds;
    const std::optional<double> position = m_cursor->position();
    if (!position || *position < playhead || *position > playhead + 2 * reach)
        return DecodeNeed{playhead, true};
    return *position < playhead + reach ? std::optional(DecodeNeed{*position}) : std::nullopt;
}

void PictureEngine::run(const std::stop_token& stop)
{
    Lock lock(m_mutex);
    while (!stop.stop_requested()) {
        m_hasNews = false;
        try {
            if (m_itemIsNew)
                openItem(lock);
            else if (!workOnNeed(lock, stop))
                m_wake.wait(lock, stop, [this] { return m_hasNews; });
        } catch (const std::exception& error) {
            if (!lock.owns_lock())
                lock.lock();
            logLine(QStringLiteral("No picture any more: ") + QString::fromUtf8(error.what()));
            m_cursor.reset();
        }
    }
    lock.unlock();
    m_cursor.reset();
}

void PictureEngine::openItem(Lock& lock)
{
    m_itemIsNew = false;
    m_job.reset();
    m_futileSeeks = 0;
    m_frameBytes = 0;
    m_decodeSeconds = 0;
    const std::optional<PlayerItem> item = std::exchange(m_nextItem, std::nullopt);
    const uint64_t number = m_item;
    const std::stop_token stop = m_itemStop.get_token();
    lock.unlock();
    m_cursor.reset();
    if (item)
        m_cursor = cursorFor(*item, number, stop);
    lock.lock();
}

std::unique_ptr<FrameCursor> PictureEngine::cursorFor(const PlayerItem& item, uint64_t number,
                                                      const std::stop_token& stop)
{
    std::optional<MediaComposition> composition;
    if (const auto* const known = std::get_if<MediaComposition>(&item)) {
        composition = *known;
    } else {
        try {
            composition = MediaComposition(MediaAsset::load(std::get<FileUrl>(item), stop));
            m_listener.lengthKnown(number, composition->duration());
        } catch (const MovieError& error) {
            if (stop.stop_requested())
                return nullptr; // given up, because the next item is there
            logLine(QStringLiteral("Cannot play: ") + QString::fromUtf8(error.what()));
            m_listener.lengthKnown(number, std::nullopt);
            return nullptr;
        }
    }
    m_itemEnd = composition->duration().seconds();
    if (!composition->hasVideoTrack())
        return nullptr;
    return std::make_unique<FrameCursor>(std::move(*composition), m_frameThreads, stop);
}

bool PictureEngine::mayBeReachedOnward(const DecodeNeed& need) const
{
    constexpr int kFewFrames = 4;
    constexpr double kNearWithoutIndex = 1; // seconds
    const std::optional<double> position = m_cursor->position();
    if (!position || *position > need.target + kFrameTimeTolerance)
        return false;
    if (m_job && m_job->target == need.target)
        return true;
    if (need.target - *position <= kFewFrames * m_cursor->frameLength())
        return true;
    const std::optional<double> entry = m_cursor->entryPointFor(need.target);
    return entry ? *entry <= *position + kFrameTimeTolerance : need.target - *position <= kNearWithoutIndex;
}

bool PictureEngine::owesPicture() const
{
    return !m_hasPictureSinceSeek && m_cursor->position() &&
           std::chrono::steady_clock::now() - m_lastPicture > kLongestWithoutPicture;
}

Pace PictureEngine::pace() const
{
    if (m_demand.rate == 0 || m_decodeSeconds == 0)
        return Pace::everyFrame;
    const double frameLength = m_cursor->frameLength();
    std::optional<double> spacing;
    if (const auto entry = m_cursor->entryPointFor(m_demand.seconds)) {
        const auto before = m_cursor->entryPointFor(*entry - frameLength / 2);
        spacing = before ? std::optional(std::max(*entry - *before, frameLength)) : std::nullopt;
    }
    return paceFor(m_demand.rate, frameLength, m_decodeSeconds, spacing);
}

bool PictureEngine::hop(Lock& lock)
{
    if (m_isHopping && !m_hasPictureSinceSeek && m_cursor->position()) {
        advanceCursor(lock);
        return true;
    }
    while (const auto next = nextHop(m_demand.seconds, m_demand.rate, m_cursor->frameLength(), m_lastHop)) {
        m_lastHop = next;
        if (*next < 0 || *next > m_itemEnd)
            return false;
        const std::optional<double> entry = m_cursor->entryPointFor(*next);
        if (entry && std::exchange(m_lastEntry, entry) == entry)
            continue; // the same key frame serves for this moment too
        m_isHopping = true;
        m_job.reset();
        m_hasPictureSinceSeek = false;
        lock.unlock();
        m_cursor->seekForOneFrame(*next);
        lock.lock();
        return true;
    }
    return false;
}

double PictureEngine::passOverBefore(const DecodeNeed& need) const
{
    constexpr double kAll = std::numeric_limits<double>::infinity();
    constexpr int kMargin = 3; // frames; uneven ones may still last longer
    if (m_demand.rate != 0)
        return m_demand.rate > 0 && pace() == Pace::passingOver ? kAll : -kAll;
    return need.isUrgent && m_futileSeeks == 0 ? need.target - kMargin * m_cursor->frameLength() : -kAll;
}

void PictureEngine::setPassingOver(double end)
{
    if (std::exchange(m_passOverBefore, end) != end)
        m_cursor->passOverBefore(end);
}

bool PictureEngine::workOnNeed(Lock& lock, const std::stop_token& stop)
{
    if (m_cursor && pace() == Pace::keyFrames)
        return hop(lock);
    if (std::exchange(m_isHopping, false)) {
        m_lastHop.reset();
        m_lastEntry.reset();
        m_job.reset();
    }
    const std::optional<DecodeNeed> next = need();
    if (!next)
        return false;
    if (!next->isUrgent && m_demand.rate == 0 && std::chrono::steady_clock::now() < m_readAheadFrom) {
        m_wake.wait_until(lock, stop, m_readAheadFrom, [this] { return m_hasNews; });
        return true;
    }
    const bool lands = m_demand.tolerance == SeekTolerance::infinite && m_demand.rate == 0 && !m_landing;
    const bool isOnItsWay = lands ? m_jobIsLanding && m_jobSeek == m_demand.seek && m_cursor->position().has_value()
                                  : mayBeReachedOnward(*next);
    if (isOnItsWay || owesPicture()) {
        if (isOnItsWay) {
            m_job = next;
            setPassingOver(passOverBefore(*next));
        }
        advanceCursor(lock);
        return true;
    }
    m_jobIsLanding = lands;
    m_jobSeek = m_demand.seek;
    seekCursor(*next, lock);
    return true;
}

void PictureEngine::measure(std::chrono::duration<double> spent, size_t pictures)
{
    constexpr double kWeight = 0.1; // of the newest
    m_spentOnFrame += spent.count();
    if (pictures == 0)
        return;
    const double each = m_spentOnFrame / double(pictures);
    m_spentOnFrame = 0;
    m_decodeSeconds = m_decodeSeconds == 0 ? each : (1 - kWeight) * m_decodeSeconds + kWeight * each;
}

void PictureEngine::seekCursor(const DecodeNeed& need, Lock& lock)
{
    m_futileSeeks = m_job && m_job->target == need.target ? m_futileSeeks + 1 : 0;
    m_job = need;
    if (m_futileSeeks > kMostFutileSeeks) {
        // Time stamps that contradict one another: what does not come stays as it is.
        const MediaTime begin = MediaTime::nearest(need.target, kSeekTimescale);
        m_cache.put({begin, begin + MediaTime{1, 30}, begin, std::nullopt});
        m_job.reset();
        if (m_jobIsLanding)
            m_landing = m_demand.seconds;
        return;
    }
    m_hasPictureSinceSeek = false;
    m_spentOnFrame = 0;
    m_passOverBefore = passOverBefore(need);
    lock.unlock();
    m_cursor->seek(need.target);
    m_cursor->passOverBefore(m_passOverBefore);
    lock.lock();
}

void PictureEngine::advanceCursor(Lock& lock)
{
    const uint64_t item = m_item;
    lock.unlock();
    const Instant start = std::chrono::steady_clock::now();
    std::vector<FrameNews> news;
    size_t pictures = 0;
    m_cursor->advance([&](FrameNews&& one) {
        pictures += one.picture ? 1 : 0;
        news.push_back(std::move(one));
    });
    measure(std::chrono::steady_clock::now() - start, pictures);
    lock.lock();
    if (item != m_item || news.empty())
        return;
    for (FrameNews& one : news)
        accept(std::move(one));
    if (!pictureHasChanged())
        return;
    lock.unlock();
    m_listener.pictureChanged();
    lock.lock();
}

void PictureEngine::accept(FrameNews&& news)
{
    if (news.kind == FrameNews::Kind::end) {
        m_cache.setEnd(news.begin, news.end);
        return;
    }
    const bool landing = m_jobIsLanding && m_jobSeek == m_demand.seek && !m_landing;
    if (landing && frameHasBegun(news.begin, m_demand.seconds))
        m_landing = news.picture ? std::max(news.begin.seconds(), 0.0) : m_demand.seconds;
    if (news.picture) {
        m_hasPictureSinceSeek = true;
        m_lastPicture = std::chrono::steady_clock::now();
        m_frameBytes = FrameCache::bytesOf(*news.picture);
        if (m_job && news.end && news.end->seconds() < m_job->keepFrom)
            return;
    }
    m_cache.put({news.begin, news.end, news.presentationTime, std::move(news.picture)});
    m_cache.shrink(budget(), pictureTime(), m_demand.rate);
    if (!m_retired.isEmpty() && m_cache.pick(pictureTime()).isExact)
        m_retired.clear();
}

}
