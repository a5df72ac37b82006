// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/LibavHandles.h"
#include "platform/FileUrl.h"

#include <optional>
#include <stop_token>

namespace zumeta {

/// An open media file. libav calls of one Demuxer stay on one thread at a time.
class Demuxer {
public:
    /// Throws MovieError::cannotOpen. `interrupt` ends long reads early, which then look like the end of the file.
    static Demuxer open(const FileUrl& file, std::stop_token interrupt = {});
    /// The same for a file that was looked at before. Where the header tells enough to decode this kind of track, it
    /// goes by that alone: looking at the packets takes as long as decoding several frames.
    static Demuxer openAgain(const FileUrl& file, AVMediaType kind, std::stop_token interrupt = {});

    /// The lowest numbered stream of the kind; attached pictures do not count. Null without one.
    AVStream* firstStream(AVMediaType kind) const;
    /// From here on only this stream's packets are read.
    void select(const AVStream* stream);

    /// The next packet, or null at the end of the file and where it cannot be read any further.
    Packet read();
    /// Goes to the last sync sample of the selected stream whose presentation time is at or before `target`,
    /// or to the beginning. Containers seek by decoding time, which can land behind the target in an open group.
    void seekToSyncSample(const AVStream* stream, int64_t target);
    /// Where that is by the container's index, in decoding time; nothing where the index does not tell.
    static std::optional<int64_t> indexedSyncSample(AVStream* stream, int64_t target);
    /// Whether the index lists every frame of the stream, each as a sync sample.
    static bool hasOnlySyncSamples(AVStream* stream);
    /// Goes to the last sync sample of the stream, for looking at the file's end.
    void seekToLastSyncSample(const AVStream* stream);

    void rewind();

    const AVFormatContext& format() const { return *m_format; }
    AVFormatContext& format() { return *m_format; }

private:
    Demuxer() = default;
    static Demuxer openHeader(const FileUrl& file, std::stop_token interrupt);

    // Declared first: the callback inside the context points at it, so it must outlive the context.
    std::unique_ptr<std::stop_token> m_interrupt;
    InputFormat m_format;
    const AVStream* m_selected = nullptr;
    Packet m_pending;
};

/// A moment at which the packet is shown; its decoding time where the container gives no other.
inline int64_t presentationTimeStamp(const AVPacket& packet)
{
    return packet.pts != AV_NOPTS_VALUE ? packet.pts : packet.dts;
}

}
