// SPDX-License-Identifier: GPL-3.0-or-later
// Whatever the bytes are, opening them as a recording and reading its first pictures and sound ends, in time, in frames
// and buffers that are what they say or in a MovieError.
#include "media/movie/AudioReader.h"
#include "media/movie/FrameReader.h"
#include "media/movie/MovieError.h"
#include "platform/Log.h"

#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <mutex>
#include <numeric>
#include <string>
#include <sys/mman.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr int kFrames = 6;
constexpr int kBuffers = 12;
/// An index may promise hours; what a reader does with them is what an export could give up at any time.
constexpr std::chrono::seconds kPatience{2};

void require(bool condition)
{
    if (!condition)
        std::abort();
}

/// The bytes as a file that lies on no disk.
class MemoryFile {
public:
    MemoryFile(const uint8_t* data, size_t size)
        : m_descriptor(::memfd_create("recording", MFD_CLOEXEC))
    {
        require(m_descriptor >= 0 && ::write(m_descriptor, data, size) == ssize_t(size));
    }
    ~MemoryFile() { ::close(m_descriptor); }
    MemoryFile(const MemoryFile&) = delete; // it stands for one descriptor
    MemoryFile& operator=(const MemoryFile&) = delete;

    zumeta::FileUrl url() const { return zumeta::FileUrl("/proc/self/fd/" + std::to_string(m_descriptor)); }

private:
    int m_descriptor;
};

/// Asks everything to stop when the patience is over.
class Deadline {
public:
    std::stop_token token() const { return m_expired.get_token(); }

private:
    std::stop_source m_expired;
    std::mutex m_mutex;
    std::condition_variable_any m_never;
    std::jthread m_thread{[this](const std::stop_token& over) {
        std::unique_lock lock(m_mutex);
        if (!m_never.wait_for(lock, over, kPatience, [] { return false; }) && !over.stop_requested())
            m_expired.request_stop();
    }};
};

/// Touches every sample of the picture: a plane that is smaller than told is found out.
unsigned sumOf(const zumeta::VideoPicture& picture)
{
    const zumeta::PictureFormat& format = picture.format;
    require(format.width > 0 && format.height > 0 && format.bitDepth >= 8 && format.bitDepth <= 16);
    const int bytes = format.bitDepth > 8 ? 2 : 1;
    unsigned sum = 0;
    for (size_t plane = 0; plane < picture.planes.size(); ++plane) {
        const int shiftX = plane == 0 ? 0 : format.chromaShiftX;
        const int shiftY = plane == 0 ? 0 : format.chromaShiftY;
        const int width = (format.width + (1 << shiftX) - 1) >> shiftX;
        const int height = (format.height + (1 << shiftY) - 1) >> shiftY;
        for (int row = 0; row < height; ++row) {
            const uint8_t* const begin = picture.planes[plane].data + picture.planes[plane].stride * row;
            sum = std::accumulate(begin, begin + ptrdiff_t(width) * bytes, sum);
        }
    }
    return sum;
}

unsigned readPictures(const zumeta::MediaComposition& source, double start, const std::stop_token& interrupt)
{
    zumeta::FrameReader reader(source, start, source.duration().seconds(), {1, interrupt});
    unsigned sum = 0;
    for (int i = 0; i < kFrames; ++i) {
        const auto slot = reader.next();
        if (!slot)
            break;
        require(slot->presentationTime.timescale > 0);
        if (slot->picture)
            sum += sumOf(*slot->picture);
    }
    return sum;
}

void readSound(const zumeta::MediaComposition& source, double start, const std::stop_token& interrupt)
{
    const auto from = zumeta::MediaTime::nearest(start, 600);
    zumeta::AudioReader reader(source, from, source.duration().seconds(), interrupt);
    for (int i = 0; i < kBuffers; ++i) {
        const auto buffer = reader.next();
        if (!buffer)
            break;
        require(!buffer->samples.empty() && buffer->samples.size() % zumeta::AudioSource::kChannels == 0);
        require(buffer->presentationTime >= from);
    }
}

template <class Reading> void failingAsToldAtMost(const Reading& reading)
{
    try {
        reading();
    } catch (const zumeta::MovieError& error) {
        require(std::string(error.what()).find('\n') == std::string::npos);
    }
}

}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const zumeta::LogCapture noLines([](const QString&) {});
    const MemoryFile file(data, size);
    const Deadline deadline;
    failingAsToldAtMost([&] {
        const zumeta::MediaAsset asset = zumeta::MediaAsset::load(file.url(), deadline.token());
        require(asset.duration.timescale > 0 && asset.duration >= zumeta::MediaTime{});
        const zumeta::MediaComposition source(asset);
        const double middle = source.duration().seconds() / 2;
        for (const double start : {0.0, middle}) {
            if (asset.video)
                failingAsToldAtMost([&] { readPictures(source, start, deadline.token()); });
            if (asset.audio)
                failingAsToldAtMost([&] { readSound(source, start, deadline.token()); });
        }
    });
    return 0;
}
