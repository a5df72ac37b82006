// SPDX-License-Identifier: GPL-3.0-or-later
#include "Recording.h"

#include "media/movie/MovieWriter.h"

#include <exception>
#include <thread>

namespace zumeta::swim {

namespace {

MovieSettings settingsFor(const Chapter& chapter)
{
    MovieSettings settings;
    settings.video.width = chapter.width;
    settings.video.height = chapter.height;
    settings.video.frameRate = chapter.rate.perSecond();
    // Cameras are generous with bits: nearly half of one for every pixel.
    settings.video.bitRate = int64_t(.42 * chapter.width * chapter.height * chapter.rate.perSecond());
    settings.audio = MovieAudioSettings{kSampleRate, 2, 192'000};
    settings.sessionEnd = {int64_t(chapter.endFrame - chapter.firstFrame) * chapter.rate.denominator,
                           chapter.rate.numerator};
    return settings;
}

/// Feeds the chapter's sound to the writer from a thread of its own, as the writer asks for.
class SoundFeed {
public:
    SoundFeed(MovieWriter& writer, const Chapter& chapter, SwimSound& sound)
        : m_thread([this, &writer, &chapter, &sound] {
            try {
                feed(writer, chapter, sound);
            } catch (...) {
                m_failure = std::current_exception();
                writer.cancelWriting(); // or the pictures would wait for sound for ever
            }
        })
    {}
    ~SoundFeed()
    {
        if (m_thread.joinable())
            m_thread.join();
    }
    SoundFeed(const SoundFeed&) = delete; // its thread knows its address
    SoundFeed& operator=(const SoundFeed&) = delete;

    /// Waits for the end of the sound; throws what made it fail.
    void join()
    {
        m_thread.join();
        if (m_failure)
            std::rethrow_exception(m_failure);
    }

private:
    static void feed(MovieWriter& writer, const Chapter& chapter, SwimSound& sound)
    {
        const int64_t count =
            samplesBefore(chapter.endFrame, chapter.rate) - samplesBefore(chapter.firstFrame, chapter.rate);
        for (int64_t at = 0; at < count;) {
            const int step = int(std::min<int64_t>(kSampleRate / 10, count - at));
            writer.appendAudio(sound.next(step), {at, kSampleRate});
            at += step;
        }
        writer.finishAudio();
    }

    std::exception_ptr m_failure;
    std::thread m_thread; // last: it uses what is above
};

}

bool writeChapter(const Chapter& chapter, const DrawFrame& draw, SwimSound& sound, const std::atomic<bool>& interrupted)
{
    const std::unique_ptr<MovieWriter> writer = MovieWriter::create(chapter.file, settingsFor(chapter));
    try {
        SoundFeed feed(*writer, chapter, sound);
        try {
            for (int frame = chapter.firstFrame; frame < chapter.endFrame && !interrupted; ++frame) {
                const WritablePicture picture = writer->nextPicture();
                draw(frame, picture);
                writer->appendVideo(
                    picture, {int64_t(frame - chapter.firstFrame) * chapter.rate.denominator, chapter.rate.numerator});
            }
            if (interrupted)
                writer->cancelWriting();
            else
                writer->finishVideo();
        } catch (...) {
            writer->cancelWriting();
            throw;
        }
        if (!interrupted) {
            feed.join();
            writer->finish();
            return true;
        }
    } catch (...) {
        writer->cancelWriting();
        writer->removeFile();
        throw;
    }
    writer->removeFile();
    return false;
}

}
