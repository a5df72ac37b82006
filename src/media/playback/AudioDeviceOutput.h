// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/playback/AudioOutput.h"
#include "platform/Clock.h"

#include <memory>

namespace zumeta {

class AudioThread;

/// The desktop's default sound device. It asks for samples while sound is wanted and for a few seconds longer, so that
/// playing goes on at once after a short stop; then it lets go of the device.
class AudioDeviceOutput final : public AudioOutput {
public:
    /// `clock` is the one that the moments are told on; both outlive the output.
    AudioDeviceOutput(AudioThread& thread, const Clock& clock);
    ~AudioDeviceOutput() override;

    void start(AudioPull& source) override;

private:
    class Feeder;

    AudioThread& m_thread;
    std::shared_ptr<Feeder> m_feeder;
};

}
