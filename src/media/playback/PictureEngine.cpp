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
constexpr int kMostFutileSeeks = 3;

int threadsThatPay(int wanted)
{
    constexpr int kMost = 4; // each holds a frame back and takes memory
    // One more than cores: each waits for the one before it now and then.
    return wanted > 0 ? wanted : std::clamp(int(std::thread::hardware_concurrency()) + 1, 2, kMost);
}

}

PictureEngine::PictureEngine(size_t cacheBytes, int frameThreads, Listener listener)
    : m_frameThreads(threadsThatPay(frameThreads))
    , m_listener(std::move(listener))
    , m_store(cacheBytes)
{}

PictureEngine::~PictureEngine()
{
    const Lock lock(m_mutex);
    m_itemStop.request_stop(); // a long read ends early
}

uint64_t PictureEngine::setItem(std::optional<PlayerItem> item, ItemChange change, const PictureDemand& demand)
{
    const Lock lock(m_mutex);
    m_itemStop.request_stop();
    m_itemStop = {};
    m_store.changeItem(item ? change : ItemChange::startsOver, demand, m_dropped);
    m_nextItem = std::move(item);
    m_itemIsNew = true;
    m_hasNews = true;
    if (m_nextItem && !m_thread.joinable())
        m_thread = std::jthread([this](const std::stop_token& stop) { run(stop); });
    m_wake.notify_all();
    return ++m_item;
}

void PictureEngine::setDemand(const PictureDemand& demand)
{
    {
        const Lock lock(m_mutex);
        if (demand == m_store.demand())
            return;
        m_store.setDemand(demand);
        if (demand.rate == 0 && !m_store.hasExactPicture())
            m_readAheadFrom = std::chrono::steady_clock::now() + kQuietBeforeReadingAhead;
        m_hasNews = true;
        m_wake.notify_all();
        if (!m_store.takeChange())
            return;
    }
    m_listener.pictureChanged();
}

std::optional<ShownPicture> PictureEngine::pictureAt(double seconds)
{
    const Lock lock(m_mutex);
    const std::optional<ShownPicture> picture = m_store.pictureAt(seconds, m_dropped);
    if (!m_dropped.empty()) {
        m_hasNews = true;
        m_wake.notify_all();
    }
    return picture;
}

std::optional<DecodeNeed> PictureEngine::need() const
{
    if (!m_cursor)
        return std::nullopt;
    if (m_store.awaitsLanding())
        return DecodeNeed{m_store.demand().seconds, true};
    if (m_store.demand().rate > 0 && pace() == Pace::passingOver)
        return needWithHoles();
    return nextNeed(m_store.situation(m_cursor->frameLength(), m_itemEnd));
}

std::optional<DecodeNeed> PictureEngine::needWithHoles() const
{
    // What was passed over is not waited for.
    const double frameLength = m_cursor->frameLength();
    const double reach = m_store.situation(frameLength, m_itemEnd).framesInBudget / 2.0 * frameLength;
    const double playhead = m_store.playhead();
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
            freeDropped(lock);
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

void PictureEngine::freeDropped(Lock& lock)
{
    // A cache full of pictures takes milliseconds to be freed.
    if (m_dropped.empty())
        return;
    PictureStore::Dropped dropped = std::exchange(m_dropped, {});
    lock.unlock();
    dropped.clear();
    lock.lock();
}

void PictureEngine::openItem(Lock& lock)
{
    m_itemIsNew = false;
    m_job.reset();
    m_futileSeeks = 0;
    m_decodeSeconds = 0;
    m_isHopping = false;
    m_lastHop.reset();
    m_lastEntry.reset();
    m_emptyHops = 0;
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
    if (!position || *position > latestBegin(need.target))
        return false;
    if (m_job && m_job->target == need.target)
        return true;
    if (need.target - *position <= kFewFrames * m_cursor->frameLength())
        return true;
    const std::optional<double> entry = m_cursor->entryPointFor(need.target);
    return entry ? *entry <= latestBegin(*position) : need.target - *position <= kNearWithoutIndex;
}

bool PictureEngine::owesPicture() const
{
    return !m_hasPictureSinceSeek && m_cursor->position() &&
           std::chrono::steady_clock::now() - m_lastPicture > kLongestWithoutPicture;
}

Pace PictureEngine::pace() const
{
    if (m_store.demand().rate == 0 || m_decodeSeconds == 0)
        return Pace::everyFrame;
    const double frameLength = m_cursor->frameLength();
    std::optional<double> spacing;
    // Where pictures build up slowly, entry points show none.
    constexpr int kMostEmptyHops = 4;
    if (m_emptyHops >= kMostEmptyHops)
        return paceFor(m_store.demand().rate, frameLength, m_decodeSeconds, std::nullopt);
    if (const auto entry = m_cursor->entryPointFor(m_store.demand().seconds)) {
        const auto before = m_cursor->entryPointFor(*entry - frameLength / 2);
        spacing = before ? std::optional(std::max(*entry - *before, frameLength)) : std::nullopt;
    }
    return paceFor(m_store.demand().rate, frameLength, m_decodeSeconds, spacing);
}

bool PictureEngine::hop(Lock& lock)
{
    if (m_isHopping && !m_hasPictureSinceSeek && m_cursor->position()) {
        advanceCursor(lock);
        return true;
    }
    while (const auto next =
               nextHop(m_store.demand().seconds, m_store.demand().rate, m_cursor->frameLength(), m_lastHop)) {
        m_lastHop = next;
        if (*next < 0 || *next > m_itemEnd)
            return false;
        const std::optional<double> entry = m_cursor->entryPointFor(*next);
        if (entry && std::exchange(m_lastEntry, entry) == entry)
            continue; // the same key frame serves for this moment too
        const bool wasEmpty = std::exchange(m_isHopping, true) && !m_hasPictureSinceSeek;
        m_emptyHops = wasEmpty ? m_emptyHops + 1 : 0;
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
    if (m_store.demand().rate != 0)
        return m_store.demand().rate > 0 && pace() == Pace::passingOver ? kAll : -kAll;
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
    if (!next->isUrgent && m_store.demand().rate == 0 && std::chrono::steady_clock::now() < m_readAheadFrom) {
        const Instant until = m_readAheadFrom; // which may be moved during the wait
        m_wake.wait_until(lock, stop, until, [this] { return m_hasNews; });
        return true;
    }
    const bool lands = m_store.awaitsLanding();
    const bool isOnItsWay = lands ? isLanding() && m_cursor->position() : mayBeReachedOnward(*next);
    if (isOnItsWay || owesPicture()) {
        if (isOnItsWay) {
            m_job = next;
            setPassingOver(passOverBefore(*next));
            if (next->isUrgent && m_store.demand().rate == 0)
                m_cursor->hurryTo(next->target);
        }
        advanceCursor(lock);
        return true;
    }
    m_jobIsLanding = lands;
    m_jobSeek = m_store.demand().seek;
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
        m_store.giveUp(need.target); // time stamps that contradict one another
        m_job.reset();
        return;
    }
    m_hasPictureSinceSeek = false;
    m_spentOnFrame = 0;
    m_passOverBefore = passOverBefore(need);
    lock.unlock();
    m_cursor->seek(need.target);
    m_cursor->passOverBefore(m_passOverBefore);
    if (need.isUrgent)
        m_cursor->hurryTo(need.target);
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
    if (!m_store.takeChange())
        return;
    lock.unlock();
    m_listener.pictureChanged();
    lock.lock();
}

bool PictureEngine::isLanding() const
{
    return m_jobIsLanding && m_jobSeek == m_store.demand().seek && m_store.awaitsLanding();
}

void PictureEngine::accept(FrameNews&& news)
{
    if (news.kind != FrameNews::Kind::end && isLanding() && frameHasBegun(news.begin, m_store.demand().seconds))
        m_store.land(news.picture ? std::max(news.begin.seconds(), 0.0) : m_store.demand().seconds);
    if (news.picture) {
        m_hasPictureSinceSeek = true;
        m_lastPicture = std::chrono::steady_clock::now();
    }
    m_store.accept(std::move(news), m_job ? m_job->keepFrom : -std::numeric_limits<double>::infinity());
}

}
