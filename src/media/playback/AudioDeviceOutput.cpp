// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/playback/AudioDeviceOutput.h"

#include "media/movie/AudioReader.h"
#include "media/playback/AudioMoment.h"
#include "media/playback/AudioThread.h"

#include <QAudioDevice>
#include <QAudioFormat>
#include <QAudioSink>
#include <QIODevice>
#include <QMediaDevices>
#include <algorithm>
#include <mutex>

namespace zumeta {

namespace {

constexpr qint64 kFrameBytes = AudioSource::kChannels * qint64(sizeof(int16_t));
/// What the device holds ahead: little, because it still sounds after a stop; enough for a busy machine.
constexpr double kBufferSeconds = 0.1;
/// How long the device is kept while nothing is wanted.
constexpr double kRestSeconds = 3;

QAudioFormat deviceFormat()
{
    QAudioFormat format;
    format.setSampleRate(AudioSource::kSampleRate);
    format.setChannelCount(AudioSource::kChannels);
    format.setSampleFormat(QAudioFormat::Int16);
    return format;
}

}

/// What the sink reads from. Lives on the audio thread; without a sink it may end on any.
class AudioDeviceOutput::Feeder final : public QIODevice {
public:
    Feeder(AudioThread& thread, const Clock& clock)
        : m_thread(thread)
        , m_clock(clock)
    {}

    /// Audio thread.
    void start();
    /// Audio thread, before the end.
    void stop() { m_sink.reset(); }
    /// Any thread.
    void setSource(AudioPull* source)
    {
        const std::scoped_lock lock(m_mutex);
        m_source = source;
    }

    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override { return qint64(kBufferSeconds * AudioSource::kSampleRate) * kFrameBytes; }

protected:
    qint64 readData(char* data, qint64 maxSize) override;
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    bool pullFromSource(std::span<int16_t> samples, double heardAt);
    void becomeUnused(const QAudioSink* sink);
    void fail(const QAudioSink* sink);

    AudioThread& m_thread;
    const Clock& m_clock;
    std::mutex m_mutex;
    AudioPull* m_source = nullptr; // under the mutex
    // Audio thread.
    std::unique_ptr<QAudioSink> m_sink;
    AudioMoment m_moment;
    int64_t m_framesGiven = 0;
    double m_lastSeconds = 0;     ///< length of what was given last
    double m_unwantedSeconds = 0; ///< given since anything was wanted
};

void AudioDeviceOutput::Feeder::start()
{
    m_unwantedSeconds = 0;
    if (m_sink)
        return;
    const QAudioDevice device = QMediaDevices::defaultAudioOutput();
    if (device.isNull() || !device.isFormatSupported(deviceFormat())) {
        m_thread.logFirst(QStringLiteral("No sound device: playing without sound"));
        return;
    }
    if (!isOpen())
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    m_framesGiven = 0;
    m_lastSeconds = 0;
    m_moment.reset();
    m_sink = std::make_unique<QAudioSink>(device, deviceFormat());
    m_sink->setBufferSize(bytesAvailable());
    // Queued: a sink must not be taken away while it tells its state.
    connect(
        m_sink.get(), &QAudioSink::stateChanged, this,
        [this, sink = m_sink.get()](QAudio::State state) {
            if (state == QAudio::StoppedState)
                fail(sink);
        },
        Qt::QueuedConnection);
    m_sink->start(this);
    if (m_sink->state() == QAudio::StoppedState)
        fail(m_sink.get());
}

void AudioDeviceOutput::Feeder::fail(const QAudioSink* sink)
{
    if (!m_sink || sink != m_sink.get())
        return;
    m_thread.logFirst(QStringLiteral("The sound device does not play: playing without sound"));
    m_sink.reset();
}

void AudioDeviceOutput::Feeder::becomeUnused(const QAudioSink* sink)
{
    if (sink == m_sink.get() && m_unwantedSeconds > kRestSeconds)
        m_sink.reset();
}

bool AudioDeviceOutput::Feeder::pullFromSource(std::span<int16_t> samples, double heardAt)
{
    const std::scoped_lock lock(m_mutex);
    if (m_source)
        return m_source->pull(samples, heardAt);
    std::fill(samples.begin(), samples.end(), int16_t(0));
    return false;
}

qint64 AudioDeviceOutput::Feeder::readData(char* data, qint64 maxSize)
{
    const qint64 frames = maxSize / kFrameBytes;
    const std::span<int16_t> samples(reinterpret_cast<int16_t*>(data), size_t(frames * AudioSource::kChannels));
    const double played = double(m_sink->processedUSecs()) / 1e6;
    const double given = double(m_framesGiven) / AudioSource::kSampleRate;
    const double seconds = double(frames) / AudioSource::kSampleRate;
    bool isWanted = true;
    if (played > 0) {
        isWanted = pullFromSource(samples, m_moment.next(m_clock.now() + given - played, m_lastSeconds));
        m_lastSeconds = seconds;
    } else {
        // A device that has not begun to play cannot say when anything will be heard.
        std::fill(samples.begin(), samples.end(), int16_t(0));
    }
    m_framesGiven += frames;
    m_unwantedSeconds = isWanted ? 0 : m_unwantedSeconds + seconds;
    if (m_unwantedSeconds > kRestSeconds)
        QMetaObject::invokeMethod(
            this, [this, sink = m_sink.get()] { becomeUnused(sink); }, Qt::QueuedConnection);
    return frames * kFrameBytes;
}

AudioDeviceOutput::AudioDeviceOutput(AudioThread& thread, const Clock& clock)
    : m_thread(thread)
    , m_feeder(std::make_shared<Feeder>(thread, clock))
{
    thread.adopt(*m_feeder);
}

AudioDeviceOutput::~AudioDeviceOutput()
{
    m_feeder->setSource(nullptr);
    m_thread.post([feeder = m_feeder] { feeder->stop(); });
}

void AudioDeviceOutput::start(AudioPull& source)
{
    m_feeder->setSource(&source);
    m_thread.post([feeder = m_feeder] { feeder->start(); });
}

}
