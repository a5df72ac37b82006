// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/playback/SoundFeed.h"

#include "media/movie/AudioReader.h"
#include "media/movie/MovieError.h"
#include "media/playback/SoundQueue.h"
#include "media/playback/SoundStretcher.h"
#include "media/playback/SoundWithoutGaps.h"
#include "platform/Log.h"

#include <algorithm>

namespace zumeta {

/// Made on the main thread, then the feed's alone, but for the source of stops.
struct SoundFeed::Item {
    PlayerItem given;
    std::stop_source stop;
    std::optional<MediaComposition> opened;
    bool hasFailed = false;

    const MediaComposition& open()
    {
        if (!opened) {
            const auto* const file = std::get_if<FileUrl>(&given);
            opened = file ? MediaComposition(MediaAsset::load(*file, stop.get_token()))
                          : std::get<MediaComposition>(std::move(given));
        }
        return *opened;
    }
};

SoundFeed::SoundFeed(SoundQueue& queue, const Clock& clock)
    : m_queue(queue)
    , m_clock(clock)
    , m_thread([this](const std::stop_token& stop) { work(stop); })
{}

SoundFeed::~SoundFeed()
{
    rest();
    if (m_item)
        m_item->stop.request_stop();
}

void SoundFeed::setItem(std::optional<PlayerItem> item)
{
    rest();
    if (m_item)
        m_item->stop.request_stop();
    m_item = item ? std::make_shared<Item>(Item{std::move(*item), {}, {}, false}) : nullptr;
}

void SoundFeed::makeRun(uint64_t serial, SoundTime time)
{
    rest();
    m_orderStop = {};
    const std::scoped_lock lock(m_mutex);
    m_next = Order{serial, time, m_item, m_orderStop.get_token()};
    m_news.notify_one();
}

void SoundFeed::rest()
{
    m_orderStop.request_stop();
    const std::scoped_lock lock(m_mutex);
    m_next.reset();
}

void SoundFeed::work(const std::stop_token& stop)
{
    while (true) {
        Order order;
        {
            std::unique_lock lock(m_mutex);
            if (!m_news.wait(lock, stop, [this] { return m_next.has_value(); }))
                return;
            order = *std::exchange(m_next, std::nullopt);
        }
        carryOut(order);
    }
}

void SoundFeed::carryOut(const Order& order)
{
    try {
        makeSound(order);
    } catch (const std::exception& error) {
        // Given up is not failed; and what cannot be read is tried at every start, but told of once.
        if (!order.stop.stop_requested() && !std::exchange(order.item->hasFailed, true))
            logLine(QStringLiteral("No sound: ") + QString::fromUtf8(error.what()));
    }
    m_queue.end(order.serial);
}

void SoundFeed::makeSound(const Order& order)
{
    const MediaComposition& source = order.item->open();
    const SoundTime& time = order.time;
    // What was to be heard while the file was opened and the order waited is past.
    const double from = time.secondsAt(std::max(m_clock.now(), time.hostTime));
    const MediaTime start = MediaTime::nearest(std::max(from, 0.0), AudioSource::kSampleRate);
    const double length = (source.duration() - start).seconds();
    if (length <= 0)
        return;
    AudioReader reader(source, start, length, order.stop);
    SoundWithoutGaps sound(reader, start);
    if (!m_queue.begin(order.serial, time.hostTimeOf(start.seconds())))
        return;
    std::optional<SoundStretcher> stretcher;
    if (time.rate != 1)
        stretcher.emplace(time.rate);
    while (const std::optional<std::vector<int16_t>> samples = sound.next()) {
        const bool isTaken = m_queue.put(order.serial, stretcher ? stretcher->stretch(*samples) : *samples, order.stop);
        if (!isTaken)
            return;
    }
    if (stretcher)
        m_queue.put(order.serial, stretcher->finish(), order.stop);
}

}
