// SPDX-License-Identifier: GPL-3.0-or-later
#include "Exporting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

FootageSpec film(Side side, int frames, Rate rate)
{
    FootageSpec spec;
    spec.side = side;
    spec.frames = frames;
    spec.rate = rate;
    return spec;
}

struct Exported {
    ShownFrames shown;
    double duration = 0;
};

/// Exports two made recordings and reads back who shows when. `adjust` changes the parameters.
Exported exported(const std::vector<std::filesystem::path>& above, const std::vector<std::filesystem::path>& below,
                  const FootageSpec& aboveSpec, const FootageSpec& belowSpec,
                  const std::function<void(ExportParameters&)>& adjust = {})
{
    const TemporaryFolder folder;
    ExportParameters params = compositeOf(above, below);
    if (adjust)
        adjust(params);
    const ExportReport report = runExport(params, folder.file("movie.mp4"));
    EXPECT_EQ(report.error(), "");
    EXPECT_TRUE(report.inTime);
    EXPECT_EQ(report.progress.empty() ? 0 : report.progress.back(), 1);
    return {framesShownIn(folder.file("movie.mp4"), params, pictureFormat(aboveSpec), pictureFormat(belowSpec)),
            MovieProbe::facts(folder.file("movie.mp4")).duration()};
}

Exported exported(const FootageSpec& above, const FootageSpec& below,
                  const std::function<void(ExportParameters&)>& adjust = {})
{
    return exported({FootageMaker::make(above)}, {FootageMaker::make(below)}, above, below, adjust);
}

}

TEST(ExportPairing, ShowsEachSidesOwnFramesInTheirParts)
{
    const Exported movie = exported(film(Side::above, 45, {30, 1}), film(Side::below, 45, {30, 1}));
    EXPECT_EQ(movie.shown.above, counting(0, 45));
    EXPECT_EQ(movie.shown.below, counting(0, 45));
    EXPECT_NEAR(movie.duration, 1.5, 0.001);
}

TEST(ExportPairing, PairsFramesByOrderWhateverTheirRates)
{
    const Exported slow = exported(film(Side::above, 60, {60, 1}), film(Side::below, 30, {30, 1}));
    EXPECT_EQ(slow.shown.above, counting(0, 30)); // at half speed
    EXPECT_EQ(slow.shown.below, counting(0, 30));
    EXPECT_NEAR(slow.duration, 1, 0.001);
    const Exported fast = exported(film(Side::above, 30, {30, 1}), film(Side::below, 60, {60, 1}));
    std::vector<int> expected = counting(0, 30); // at double speed, until its second is used up
    expected.resize(60, -1);
    EXPECT_EQ(fast.shown.above, expected);
    EXPECT_EQ(fast.shown.below, counting(0, 60));
}

TEST(ExportPairing, SyncPointsDecideWhereEachSideBegins)
{
    const FootageSpec above = film(Side::above, 60, {30, 1});
    const FootageSpec below = film(Side::below, 60, {30, 1});
    const Exported aboveEarlier = exported(above, below, [](auto& params) {
        params.manualSyncTimeAbove = 1.0;
        params.manualSyncTimeBelow = 0.7;
    });
    EXPECT_EQ(aboveEarlier.shown.above, counting(9, 51));
    EXPECT_EQ(aboveEarlier.shown.below, counting(0, 51));
    const Exported belowEarlier = exported(above, below, [](auto& params) {
        params.manualSyncTimeAbove = 0.7;
        params.manualSyncTimeBelow = 1.0;
    });
    EXPECT_EQ(belowEarlier.shown.above, counting(0, 51));
    EXPECT_EQ(belowEarlier.shown.below, counting(9, 51));
}

TEST(ExportPairing, TimingOffsetMovesTheAboveVideoInHundredthsOfASecond)
{
    const Exported movie = exported(film(Side::above, 60, {30, 1}), film(Side::below, 60, {30, 1}), [](auto& params) {
        params.timingOffset = 50; // the above video is read half a second later in its own time
    });
    EXPECT_EQ(movie.shown.above, counting(15, 45));
    EXPECT_EQ(movie.shown.below, counting(0, 45));
}

TEST(ExportPairing, TrimsOfNtscRecordingsStartOnTheFrameThatTheirTimeNames)
{
    for (const Rate rate : {Rate{24000, 1001}, Rate{30000, 1001}, Rate{60000, 1001}}) {
        for (const int frame : {1, 23}) {
            const Exported movie =
                exported(film(Side::above, 40, rate), film(Side::below, 40, rate), [&](auto& params) {
                    params.exportTrimStartSeconds = frame * (double(rate.denominator) / double(rate.numerator));
                    params.exportTrimEndSeconds = 8.5 * double(rate.denominator) / double(rate.numerator);
                });
            const int count = 40 - frame - 9;
            EXPECT_EQ(movie.shown.above, counting(frame, count)) << rate.numerator;
            EXPECT_EQ(movie.shown.below, counting(frame, count)) << rate.numerator;
        }
    }
}

TEST(ExportPairing, SyncPointsOnNtscFramesPairTheseFrames)
{
    const double frame = 1001.0 / 30000;
    const Exported movie =
        exported(film(Side::above, 40, {30000, 1001}), film(Side::below, 40, {30000, 1001}), [&](auto& params) {
            params.manualSyncTimeAbove = 17 * frame;
            params.manualSyncTimeBelow = 6 * frame;
        });
    ASSERT_GE(movie.shown.above.size(), 27u);
    EXPECT_EQ(movie.shown.above.front(), 11);
    EXPECT_EQ(movie.shown.below.front(), 0);
    for (size_t i = 0; i < movie.shown.above.size(); ++i)
        EXPECT_EQ(movie.shown.above[i] - movie.shown.below[i], 11);
}

TEST(ExportPairing, AnExactClipAt2997GivesOneFrameLess)
{
    // The rate as a float lies a hair below 30000 / 1001: the product of rate and length is cut.
    const Exported movie = exported(film(Side::above, 30, {30000, 1001}), film(Side::below, 30, {30000, 1001}));
    EXPECT_EQ(movie.shown.below, counting(0, 29));
    EXPECT_NEAR(movie.duration, 30 * 1001.0 / 30000, 0.002); // the movie keeps its length
}

TEST(ExportPairing, BelowStandsAloneAtFullPictureWhenTheAboveVideoHasNoMoreFrames)
{
    const TemporaryFolder folder;
    const FootageSpec above = film(Side::above, 15, {15, 1});
    const FootageSpec below = film(Side::below, 30, {30, 1});
    const ExportParameters params = compositeOf({FootageMaker::make(above)}, {FootageMaker::make(below)});
    ASSERT_EQ(runExport(params, folder.file("movie.mp4")).error(), "");
    const Placement full = belowPlacement(referenceOf(params), pictureFormat(below));
    int frames = 0;
    MovieProbe::forEachFrame(folder.file("movie.mp4"), exportedFormat(params), {},
                             [&](int n, const RawPicture& picture) {
                                 ++frames;
                                 const auto upper = readBarCode(picture, CodeStrip::upper, full);
                                 if (n >= 15)
                                     EXPECT_EQ(upper, (BarCode{Side::below, n}));
                                 else
                                     EXPECT_NE(upper, (BarCode{Side::below, n}));
                                 EXPECT_EQ(readBarCode(picture, CodeStrip::lower, full), (BarCode{Side::below, n}));
                             });
    EXPECT_EQ(frames, 30);
}

TEST(ExportPairing, AMovieEndsWithTheBelowVideosFramesAndKeepsItsLength)
{
    FootageSpec below = film(Side::below, 20, {25, 1});
    below.sound = SoundSpec{48000, 2, {"-c:a", "pcm_s16le"}, 1.2, 0}; // longer than its picture
    below.extension = "mov";
    const Exported movie = exported(film(Side::above, 50, {25, 1}), below);
    EXPECT_EQ(movie.shown.below, counting(0, 20));
    EXPECT_NEAR(movie.duration, 1.2, 0.002);
}

TEST(ExportPairing, ARangeShorterThanAFrameGivesAMovieWithoutFrames)
{
    const TemporaryFolder folder;
    ExportParameters params = compositeOf({FootageMaker::make(film(Side::above, 30, {30, 1}))},
                                          {FootageMaker::make(film(Side::below, 30, {30, 1}))});
    params.exportTrimStartSeconds = 0.99;
    const ExportReport report = runExport(params, folder.file("movie.mp4"));
    EXPECT_EQ(report.error(), "");
    EXPECT_THAT(report.progress, testing::ElementsAre(1.0));
    EXPECT_EQ(MovieProbe::packets(folder.file("movie.mp4"), "v:0").size(), 0u);
}

TEST(ExportPairing, ADamagedAboveFrameShowsTheBelowPictureAndNothingSlips)
{
    FootageSpec above = film(Side::above, 30, {30, 1});
    above.encoder = {"-c:v", "libx264", "-preset", "veryfast", "-crf", "14", "-g", "1"};
    const FootageSpec below = film(Side::below, 30, {30, 1});
    const Exported movie = exported({FootageMaker::withDamagedPackets(FootageMaker::make(above), {4, 11, 12})},
                                    {FootageMaker::make(below)}, above, below);
    std::vector<int> expected = counting(0, 30);
    expected[4] = expected[11] = expected[12] = -1;
    EXPECT_EQ(movie.shown.above, expected);
    EXPECT_EQ(movie.shown.below, counting(0, 30));
}

TEST(ExportPairing, ADamagedBelowFrameCostsTheMovieThatFrameAndNothingSlips)
{
    const FootageSpec above = film(Side::above, 30, {30, 1});
    FootageSpec below = film(Side::below, 30, {30, 1});
    below.encoder = {"-c:v", "libx264", "-preset", "veryfast", "-crf", "14", "-g", "1"};
    const Exported movie =
        exported({FootageMaker::make(above)},
                 {FootageMaker::withDamagedPackets(FootageMaker::make(below), {4, 11, 12})}, above, below);
    std::vector<int> expected = counting(0, 30);
    for (const int lost : {12, 11, 4})
        expected.erase(expected.begin() + lost);
    EXPECT_EQ(movie.shown.above, expected);
    EXPECT_EQ(movie.shown.below, expected);
}

TEST(ExportPairing, ChaptersOfBothSidesRunThroughTheirSeams)
{
    std::vector<std::filesystem::path> above;
    std::vector<std::filesystem::path> below;
    for (const int part : {0, 1, 2}) {
        FootageSpec spec = film(Side::above, 14, {30, 1});
        spec.firstNumber = 14 * part;
        above.push_back(FootageMaker::make(spec));
    }
    for (const int part : {0, 1}) {
        FootageSpec spec = film(Side::below, 22, {30, 1});
        spec.firstNumber = 22 * part;
        below.push_back(FootageMaker::make(spec));
    }
    const FootageSpec shape = film(Side::above, 1, {30, 1});
    const Exported whole = exported(above, below, shape, shape);
    EXPECT_EQ(whole.shown.above, counting(0, 42));
    EXPECT_EQ(whole.shown.below, counting(0, 42));
    const Exported trimmed = exported(above, below, shape, shape, [](auto& params) {
        params.manualSyncTimeAbove = 0.9;
        params.manualSyncTimeBelow = 0.4;
        params.exportTrimStartSeconds = 0.2;
    });
    EXPECT_EQ(trimmed.shown.above, counting(21, 21));
    EXPECT_EQ(trimmed.shown.below, counting(6, 21));
}

TEST(ExportPairing, TheSameFileOnBothSidesIsAllowed)
{
    const FootageSpec spec = film(Side::above, 30, {30, 1});
    const Exported movie = exported(spec, spec);
    EXPECT_EQ(movie.shown.above, counting(0, 30));
}

}
