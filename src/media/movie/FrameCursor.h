// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/FrameReader.h"

#include <functional>
#include <limits>
#include <set>

namespace zumeta {

/// What became known of the frame that begins at a moment, all on the composition's clock.
struct FrameNews {
    enum class Kind {
        picture, ///< its picture
        end,     ///< only when it ends
        barren   ///< that nothing can be decoded from there to the end
    };
    Kind kind = Kind::picture;
    MediaTime begin;              ///< from here on it is shown
    std::optional<MediaTime> end; ///< where the next one takes over; nothing while that is not certain
    MediaTime presentationTime;   ///< of a picture
    std::optional<VideoPicture> picture = {};
};

/// A place in a composition from which its frames are decoded onward, and which can be put elsewhere without opening
/// the files again. A damaged frame is covered by the whole one before it; gaps are too. Lives on one thread at a time.
/// A file that fails is a barren stretch and a log line.
class FrameCursor {
public:
    using Take = std::function<void(FrameNews&&)>;

    /// `frameThreads` for the decoders of footage in which frames depend on one another.
    FrameCursor(MediaComposition source, int frameThreads, std::stop_token interrupt);
    ~FrameCursor();
    FrameCursor(const FrameCursor&) = delete; // it stands for a place in open files
    FrameCursor& operator=(const FrameCursor&) = delete;

    /// Goes on at the sync sample from which the frame for this moment can be decoded. When that does not come out
    /// whole, the cursor retreats further by itself.
    void seek(double seconds);
    /// From here on frames before that moment that no other one leans on are passed over. Until the next seek.
    void passOverBefore(double seconds);
    /// The frame of that moment is waited for. Until the next seek.
    void hurryTo(double seconds);
    /// Decodes the sync sample at or before this moment, if it is whole, and ends there.
    void seekForOneFrame(double seconds);
    /// About a packet's work. False at the end, and before the first seek.
    bool advance(const Take& take);
    /// About from where on frames will become known; nothing at the end and before the first seek.
    std::optional<double> position() const { return m_position; }
    /// About where a seek would go on, by the container's index; nothing where that does not tell.
    std::optional<double> entryPointFor(double seconds) const;
    /// Seconds, on the average around the cursor.
    double frameLength() const;

private:
    const MediaSegment& segment() const { return m_source.video()[m_segment]; }
    size_t segmentFor(double seconds) const;
    /// What the segment has to cover, with the gap behind it; the first and the last go on for ever.
    MediaTime coverBegin() const;
    MediaTime coverEnd() const;
    MediaTime onComposition(MediaTime fileTime) const;
    double onFile(double seconds) const;
    void enter(size_t segment, double fileSeconds);
    bool open(size_t segment, double fileSeconds);
    void retreat();
    void handle(FrameSlot&& slot, const Take& take);
    void handlePicture(FrameSlot&& slot, const Take& take);
    bool finishSegment(const Take& take);

    const MediaComposition m_source;
    const int m_frameThreads;
    const std::stop_token m_interrupt;
    std::vector<bool> m_failed; ///< segments whose file does not open
    size_t m_segment = 0;
    std::optional<size_t> m_opened; ///< the segment of m_decoder
    std::unique_ptr<class VideoDecoder> m_decoder;
    std::optional<double> m_position;
    double m_target = 0; ///< of the newest seek
    double m_passOverBefore = -std::numeric_limits<double>::infinity();
    bool m_isForOneFrame = false;
    bool m_hasPicture = false;        ///< since entering the file
    double m_entered = 0;             ///< where the file was entered, on its own clock
    double m_retreat = 0;             ///< seconds of the retreat before
    bool m_atBeginning = false;       ///< the file is read from its first frame on
    std::optional<MediaTime> m_first; ///< the first slot since entering, on the file's clock
    std::optional<MediaTime> m_last;  ///< the last picture that was told
    std::set<MediaTime> m_told;       ///< when the newest of them begin
};

}
