// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/AudioReader.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <thread>

namespace zumeta {

class MovieWriter;

/// Where sound goes: interleaved samples and their time in the movie.
using AudioAppender = std::function<void(std::span<const int16_t>, MediaTime)>;

/// Hands every buffer on with its time in the movie. A buffer that begins before the movie does is dropped whole,
/// so that what remains begins together with the picture.
void copyAudio(AudioSource& source, MediaTime aboveStart, const AudioAppender& append);

/// The sound of one export on a thread of its own beside the frame loop.
class AudioExport {
public:
    /// `writer` outlives this object.
    AudioExport(std::unique_ptr<AudioSource> source, MediaTime aboveStart, MovieWriter& writer);

    /// Waits until all sound is written, without limit. Gives the writer's words if it failed on the way.
    std::optional<std::string> wait();

private:
    void run(MediaTime aboveStart);

    std::unique_ptr<AudioSource> m_source;
    MovieWriter& m_writer;
    std::optional<std::string> m_failure; ///< the thread's until it was joined
    std::jthread m_thread;
};

}
