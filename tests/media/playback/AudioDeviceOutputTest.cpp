// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/playback/AudioDeviceOutput.h"
#include "LogLines.h"
#include "media/playback/AudioThread.h"

#include <future>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

class NeverAsked final : public AudioPull {
public:
    bool pull(std::span<int16_t>, double) override
    {
        ADD_FAILURE() << "there is no device that could ask";
        return true;
    }
};

/// All that was posted to the thread is done.
void settle(AudioThread& thread)
{
    std::promise<void> done;
    thread.post([&] { done.set_value(); });
    done.get_future().wait();
}

}

TEST(AudioDeviceOutput, WithoutADeviceTwoPlayersGoOnInSilenceAndOneLineIsLogged)
{
    // A sound server that is not there: what a machine without sound has.
    qputenv("PULSE_SERVER", "unix:/nowhere/pulse");
    const LogLines log;
    NeverAsked sound;
    const MonotonicClock clock;
    AudioThread thread;
    AudioDeviceOutput above(thread, clock);
    AudioDeviceOutput below(thread, clock);
    for (int start = 0; start < 3; ++start) {
        above.start(sound);
        below.start(sound);
    }
    settle(thread);
    EXPECT_THAT(log.all(), testing::ElementsAre(QStringLiteral("No sound device: playing without sound")));
}

TEST(AudioThread, DoesWhatIsPostedInOrderAndAllOfItBeforeItEnds)
{
    std::vector<int> done;
    {
        AudioThread thread;
        for (int i = 0; i < 100; ++i)
            thread.post([&done, i] { done.push_back(i); });
    }
    ASSERT_EQ(done.size(), 100u);
    EXPECT_TRUE(std::is_sorted(done.begin(), done.end()));
}

}
