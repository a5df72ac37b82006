// SPDX-License-Identifier: GPL-3.0-or-later
#include "Films.h"
#include "PlayerHarness.h"
#include "TruthCount.h"

#include <gtest/gtest.h>

#include <random>

namespace zumeta::test {

namespace {

class FrameTruth : public testing::TestWithParam<FilmKind> {
protected:
    /// Room for some frames only, so that they have to go and come again.
    static MoviePlayerOptions tightOptions(const Film& film)
    {
        const VideoTrack& track = *film.source.video().front().asset.video;
        MoviePlayerOptions options;
        options.cacheBytes = size_t(track.naturalWidth * track.naturalHeight * 1.5 * 14);
        return options;
    }

    static bool isLarge(const Film& film)
    {
        constexpr double kUsualWidth = 1920;
        return film.source.video().front().asset.video->naturalWidth > kUsualWidth;
    }

    static double shownSeconds(const PlayerHarness& harness) { return harness.player.currentTime().seconds(); }
};

}

TEST_P(FrameTruth, APreciseSeekEndsOnTheFrameOfItsTime)
{
    const Film film = filmOf(GetParam());
    PlayerHarness harness(tightOptions(film));
    harness.player.replaceCurrentItem(film.source);
    std::mt19937 random(1);
    std::uniform_real_distribution<double> anywhere(0, film.length());
    const int seeks = truthCount("ZUMETA_TRUTH_SEEKS", isLarge(film) ? 15 : 60);
    for (int i = 0; i < seeks; ++i) {
        const double target = anywhere(random);
        harness.seek(target);
        const auto picture = harness.exactPicture();
        ASSERT_TRUE(picture) << "nothing exact at " << target;
        ASSERT_EQ(numberOf(picture), film.numberAt(shownSeconds(harness))) << "seek " << i << " to " << target;
    }
}

TEST_P(FrameTruth, MixedStepsPlaysRatesAndReversalsEndOnTheFrameOfTheirTime)
{
    const Film film = filmOf(GetParam());
    PlayerHarness harness(tightOptions(film));
    harness.player.replaceCurrentItem(film.source);
    const double frameLength = film.length() / double(film.numbers.size());
    std::mt19937 random(2);
    const auto upTo = [&random](double most) { return std::uniform_real_distribution<double>(0, most)(random); };
    const auto oneOf = [&random](int many) { return std::uniform_int_distribution<int>(0, many - 1)(random); };
    const int steps = truthCount("ZUMETA_TRUTH_STEPS", isLarge(film) ? 40 : 200);
    for (int i = 0; i < steps; ++i) {
        const int action = oneOf(6);
        if (action <= 2) {
            harness.seek(shownSeconds(harness) + (action - 1) * frameLength);
        } else if (action == 3) {
            harness.seek(upTo(film.length()));
        } else {
            const double rates[] = {1, 0.5, -1, 2, -2, 4, -4, 8, -16, 32};
            harness.player.setRate(rates[oneOf(10)]);
            harness.time.advance(upTo(0.5));
            if (action == 5) {
                harness.player.setRate(-harness.player.rate());
                harness.time.advance(upTo(0.3));
            }
            harness.player.pause();
        }
        const auto picture = harness.exactPicture();
        ASSERT_TRUE(picture) << "nothing exact at " << shownSeconds(harness);
        ASSERT_EQ(numberOf(picture), film.numberAt(shownSeconds(harness)))
            << "action " << i << " of kind " << action << " at " << shownSeconds(harness);
    }
}

INSTANTIATE_TEST_SUITE_P(, FrameTruth, testing::ValuesIn(filmKinds()),
                         [](const auto& kind) { return std::string(kind.param.name); });

}
