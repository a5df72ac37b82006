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

private:
    void send();
    void receive(Frame frame);
    void releaseBefore(int64_t timeStamp);
    MediaTime onFileClock(int64_t timeStamp) const;

    Demuxer m_demuxer;
    AVStream* m_stream = nullptr;
    CodecContext m_codec;
    std::stop_token m_interrupt;
    MediaTime m_timeShift;
    double m_pixelAspect = 1;
    bool m_timeStampsAreReal = true;
    bool m_flushing = false;
    bool m_ended = false;
    std::set<int64_t> m_awaited; ///< time stamps of packets whose frames have not come out
    std::deque<FrameSlot> m_ready;
};

}
