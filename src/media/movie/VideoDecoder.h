// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/Demuxer.h"
#include "media/movie/FrameReader.h"

#include <deque>
#include <set>

namespace zumeta {

/// Turns the packets of one file's first video track into slots in presentation order, on the file's clock.
class VideoDecoder {
public:
    /// Throws MovieError. Reading starts at the sync sample for `start`, seconds on the file's clock.
    VideoDecoder(const MediaAsset& asset, double start, const FrameReaderOptions& options);

    /// Nothing at the end of the file.
    std::optional<FrameSlot> next();

    // The same in small steps, for those who may have to go elsewhere in between.
    /// About a packet's work. False when nothing is left to be done before the next seek.
    bool work();
    /// The next slot that is ready.
    std::optional<FrameSlot> take();
    /// When the slot behind the one taken last begins, as soon as no packet can come in between.
    std::optional<MediaTime> nextBegin();

    /// Goes on reading at the sync sample for `start`.
    void seek(double start);
    /// Goes on at the same place, and ends behind that sample.
    void seekForOneFrame(double start);
    /// The frame of that moment is waited for: frame threads do not hold it back until those behind it are decoded.
    void hurryTo(double moment);
    /// Frames before that moment that no other frame leans on are passed over from here on.
    void passOverBefore(double end);
    /// About where a seek would go on, by the container's index; nothing where that does not tell.
    std::optional<double> entryPointFor(double start) const;

private:
    int64_t timeStampFor(double start) const;
    void enter(double start);
    void send();
    void receive(Frame frame);
    void releaseBefore(int64_t timeStamp);
    int64_t timeStampOf(const AVFrame& frame) const;
    bool isWhole(const AVFrame& frame) const;
    bool isBuiltUp(int64_t timeStamp, bool isWhole);
    void preparePush();
    void noteEntry(const AVPacket& packet);
    MediaTime onFileClock(int64_t timeStamp) const;

    Demuxer m_demuxer;
    AVStream* m_stream = nullptr;
    CodecContext m_codec;
    std::stop_token m_interrupt;
    MediaTime m_timeShift;
    double m_pixelAspect = 1;
    int64_t m_indexLag = 0; ///< by which a sync sample's place in the index, its decoding time, is before its showing
    bool m_timeStampsAreReal = true;
    bool m_flushing = false;
    bool m_ended = false;
    std::set<int64_t> m_awaited;  ///< time stamps of packets whose frames have not come out
    std::set<int64_t> m_optional; ///< the same where the decoder may have left them out
    int64_t m_passOverBefore = INT64_MIN;
    bool m_endsBehindEntry = false;
    Packet m_push; ///< holds no frame, only pushes those before it out; null where that does not work
    int m_pushes = 0;
    int64_t m_hurryTo = INT64_MAX;
    bool m_hasSent = false; ///< a packet since the last seek
    int64_t m_lastTimeStamp = -1;
    int64_t m_lastSentDts = INT64_MIN;
    // Where the picture builds up over the frames behind an entry point.
    bool m_isBehindSeek = false;
    std::optional<int64_t> m_entry;     ///< the packet at which reading went on after a seek
    std::optional<int64_t> m_nextEntry; ///< the entry point behind it
    bool m_entryIsGradual = false;
    std::optional<int64_t> m_buildingUp; ///< how long it takes

    Packet m_peeked; ///< read to know its time, not sent yet
    bool m_lastWasWhole = false;
    std::deque<FrameSlot> m_ready;
};

}
