// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/movie/FrameCursor.h"

#include "media/movie/VideoDecoder.h"
#include "platform/Log.h"

#include <algorithm>
#include <cmath>

namespace zumeta {

namespace {

/// Behind every moment that a recording can have.
constexpr MediaTime kForever{int64_t(1) << 40, 1};

constexpr size_t kMostTold = 32;

}

FrameCursor::FrameCursor(MediaComposition source, int frameThreads, std::stop_token interrupt)
    : m_source(std::move(source))
    , m_frameThreads(frameThreads)
    , m_interrupt(std::move(interrupt))
    , m_failed(m_source.video().size())
{}

FrameCursor::~FrameCursor() = default;

size_t FrameCursor::segmentFor(double seconds) const
{
    const MediaSegment* const found = segmentAt(m_source.video(), seconds);
    return found ? size_t(found - m_source.video().data()) : 0;
}

MediaTime FrameCursor::coverBegin() const
{
    return m_segment == 0 ? std::min(MediaTime{}, segment().start) : segment().start;
}

MediaTime FrameCursor::coverEnd() const
{
    return m_segment + 1 < m_source.video().size() ? m_source.video()[m_segment + 1].start : kForever;
}

MediaTime FrameCursor::onComposition(MediaTime fileTime) const
{
    return segment().start + (fileTime - segment().sourceStart);
}

double FrameCursor::onFile(double seconds) const
{
    return std::max(seconds - segment().start.seconds(), 0.0) + segment().sourceStart.seconds();
}

void FrameCursor::seek(double seconds)
{
    m_position.reset();
    if (m_source.video().empty())
        return;
    m_target = seconds;
    m_retreat = 0;
    m_passOverBefore = -std::numeric_limits<double>::infinity();
    m_isForOneFrame = false;
    m_segment = segmentFor(seconds);
    enter(m_segment, onFile(seconds));
}

void FrameCursor::seekForOneFrame(double seconds)
{
    m_position.reset();
    if (m_source.video().empty())
        return;
    m_isForOneFrame = true;
    m_passOverBefore = -std::numeric_limits<double>::infinity();
    m_target = seconds;
    m_segment = segmentFor(seconds);
    enter(m_segment, onFile(seconds));
}

void FrameCursor::passOverBefore(double seconds)
{
    m_passOverBefore = seconds;
    if (m_opened == m_segment)
        m_decoder->passOverBefore(onFile(seconds));
}

void FrameCursor::hurryTo(double seconds)
{
    if (m_opened == m_segment && segmentFor(seconds) == m_segment)
        m_decoder->hurryTo(onFile(seconds));
}

void FrameCursor::enter(size_t index, double fileSeconds)
{
    m_segment = index;
    m_entered = fileSeconds;
    m_atBeginning = fileSeconds <= 0;
    m_hasPicture = false;
    m_told.clear();
    m_first.reset();
    m_last.reset();
    m_position = onComposition(MediaTime{}).seconds() + fileSeconds;
    if (!open(index, fileSeconds))
        return;
    if (std::isfinite(m_passOverBefore) || m_passOverBefore > 0)
        m_decoder->passOverBefore(onFile(m_passOverBefore));
    if (const auto entry = m_decoder->entryPointFor(fileSeconds))
        m_position = onComposition(MediaTime{}).seconds() + *entry;
}

bool FrameCursor::open(size_t index, double fileSeconds)
{
    if (m_failed[index])
        return false;
    if (m_opened == index) {
        if (m_isForOneFrame)
            m_decoder->seekForOneFrame(fileSeconds);
        else
            m_decoder->seek(fileSeconds);
        return true;
    }
    m_opened.reset();
    m_decoder.reset(); // first, so that two never take memory at once
    try {
        m_decoder = std::make_unique<VideoDecoder>(
            segment().asset, fileSeconds, FrameReaderOptions{m_frameThreads, m_interrupt, DecoderUse::seeking});
        m_opened = index;
    } catch (const MovieError& error) {
        m_failed[index] = true;
        logLine(QStringLiteral("No picture: ") + QString::fromUtf8(error.what()));
    }
    if (m_opened && m_isForOneFrame)
        m_decoder->seekForOneFrame(fileSeconds);
    return m_opened.has_value();
}

std::optional<double> FrameCursor::entryPointFor(double seconds) const
{
    const size_t index = m_source.video().empty() ? 0 : segmentFor(seconds);
    if (m_opened != index)
        return std::nullopt;
    const MediaSegment& wanted = m_source.video()[index];
    const double toFile = wanted.sourceStart.seconds() - wanted.start.seconds();
    const auto entry = m_decoder->entryPointFor(seconds + toFile);
    return entry ? std::optional(*entry - toFile) : std::nullopt;
}

double FrameCursor::frameLength() const
{
    constexpr double kUsual = 1.0 / 30;
    if (m_source.video().empty())
        return kUsual;
    const float rate = segment().asset.video ? segment().asset.video->nominalFrameRate : 0;
    return rate > 0 ? 1 / double(rate) : kUsual;
}

void FrameCursor::retreat()
{
    // The first time to the entry point before, then ever further: whatever is missing, it is left behind after a few.
    constexpr double kFirstStep = 1;
    const double from = m_first ? std::min(m_first->seconds(), m_entered) : m_entered;
    const double step = m_retreat == 0 && m_first ? 2 * kFrameTimeTolerance : std::max(2 * m_retreat, kFirstStep);
    m_retreat = step;
    enter(m_segment, std::max(from - step, 0.0));
}

bool FrameCursor::advance(const Take& take)
{
    if (!m_position)
        return false;
    if (m_opened != m_segment)
        return finishSegment(take); // it did not open
    const bool goesOn = m_decoder->work();
    const size_t before = m_segment;
    while (std::optional<FrameSlot> slot = m_decoder->take()) {
        if (slot->presentationTime >= segment().sourceStart + segment().length)
            return finishSegment(take);
        const double entered = m_entered;
        handle(std::move(*slot), take);
        if (before != m_segment || entered != m_entered)
            return true; // the slots that were left belong to another place
    }
    return goesOn || m_interrupt.stop_requested() ? goesOn : finishSegment(take);
}

void FrameCursor::handle(FrameSlot&& slot, const Take& take)
{
    if (!m_first)
        m_first = slot.presentationTime;
    if (slot.isPassedOver) {
        if (m_last)
            take({FrameNews::Kind::end, *m_last, onComposition(slot.presentationTime), {}});
        m_last.reset();
        m_position = onComposition(slot.presentationTime).seconds();
    } else if (slot.picture) {
        handlePicture(std::move(slot), take);
    } else if (m_last) {
        // Its end was told as the damaged frame's begin.
        take({FrameNews::Kind::end, *m_last, std::nullopt, {}});
        m_position = m_last->seconds();
    }
}

void FrameCursor::handlePicture(FrameSlot&& slot, const Take& take)
{
    const MediaTime presentationTime = onComposition(slot.presentationTime);
    MediaTime begin = std::max(presentationTime, coverBegin());
    const bool isFirst = !std::exchange(m_hasPicture, true);
    if (isFirst && m_atBeginning)
        begin = coverBegin(); // nothing comes before it
    if (isFirst && !m_isForOneFrame && !frameHasBegun(begin, m_target)) {
        // What lies before it did not come out: with intra refresh a picture builds up over the frames behind an entry
        // point, and open groups begin with frames that need the group before.
        take({FrameNews::Kind::picture, begin, std::nullopt, presentationTime, std::move(slot.picture)});
        retreat();
        return;
    }
    m_told.insert(begin);
    if (m_told.size() > kMostTold)
        m_told.erase(m_told.begin());
    if (m_last && begin < *m_last) {
        // Its time stamp contradicts the order of the stream. It is shown until the next one that was told before.
        take({FrameNews::Kind::picture, begin, *m_told.upper_bound(begin), presentationTime, std::move(slot.picture)});
        return;
    }
    if (m_last && *m_last < begin)
        take({FrameNews::Kind::end, *m_last, begin, {}});
    m_last = begin;
    m_position = begin.seconds();
    std::optional<MediaTime> end;
    if (const std::optional<MediaTime> next = m_decoder->nextBegin()) {
        const bool isLast = *next >= segment().sourceStart + segment().length;
        const MediaTime nextBegin = isLast ? coverEnd() : onComposition(*next);
        if (nextBegin > begin) {
            end = nextBegin;
            m_position = std::min(nextBegin, onComposition(*next)).seconds();
        }
    }
    take({FrameNews::Kind::picture, begin, end, presentationTime, std::move(slot.picture)});
}

bool FrameCursor::finishSegment(const Take& take)
{
    if (m_isForOneFrame) {
        m_position.reset();
        return false;
    }
    if (m_last) {
        take({FrameNews::Kind::end, *m_last, coverEnd(), {}});
    } else if (!m_hasPicture && !m_atBeginning && m_opened == m_segment) {
        retreat();
        return true;
    } else if (!m_hasPicture) {
        take({FrameNews::Kind::barren, coverBegin(), coverEnd(), {}});
    }
    if (m_segment + 1 == m_source.video().size()) {
        m_position.reset();
        return false;
    }
    m_target = m_source.video()[m_segment + 1].start.seconds();
    m_retreat = 0;
    enter(m_segment + 1, m_source.video()[m_segment + 1].sourceStart.seconds());
    return true;
}

}
