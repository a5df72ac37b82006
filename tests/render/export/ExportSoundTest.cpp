// SPDX-License-Identifier: GPL-3.0-or-later
#include "Exporting.h"
#include "support/Click.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

constexpr double kInStep = 0.005; ///< seconds

FootageSpec film(Side side, int frames, Rate rate)
{
    FootageSpec spec;
    spec.side = side;
    spec.frames = frames;
    spec.rate = rate;
    spec.width = 96;
    spec.height = 54;
    spec.scene = Scene::plain;
    if (side == Side::above)
        spec.sound = SoundSpec{};
    return spec;
}

std::vector<double> clicksIn(const std::filesystem::path& movie)
{
    return findClicks(channelOf(MovieProbe::sound(movie, 44100, 2), 2, 0), 44100);
}

/// When the above picture turns white, from the movie's own time stamps.
std::vector<double> flashesIn(const std::filesystem::path& movie)
{
    const std::vector<double> times = MovieProbe::frameTimes(movie);
    PictureFormat format;
    format.width = 16;
    format.height = 2;
    std::vector<double> flashes;
    // A strip at the top, where no zoom brings the bar code.
    MovieProbe::forEachFrame(movie, format, "crop=iw:16:0:0,scale=16:2:flags=area",
                             [&](int n, const RawPicture& picture) {
                                 if (picture.luma(3, 0) > 0.9 && picture.luma(12, 1) > 0.9)
                                     flashes.push_back(times.at(size_t(n)));
                             });
    return flashes;
}

struct Heard {
    std::vector<double> clicks;
    std::vector<double> flashes;
    MovieFacts facts;
};

Heard exported(const ExportParameters& params)
{
    const TemporaryFolder folder;
    const ExportReport report = runExport(params, folder.file("movie.mp4"));
    EXPECT_EQ(report.error(), "");
    Heard heard;
    heard.facts = MovieProbe::facts(folder.file("movie.mp4"));
    heard.flashes = flashesIn(folder.file("movie.mp4"));
    if (heard.facts.first("audio") != nullptr)
        heard.clicks = clicksIn(folder.file("movie.mp4"));
    return heard;
}

Heard exported(const FootageSpec& above, const FootageSpec& below,
               const std::function<void(ExportParameters&)>& adjust = {})
{
    ExportParameters params = compositeOf({FootageMaker::make(above)}, {FootageMaker::make(below)});
    if (adjust)
        adjust(params);
    return exported(params);
}

}

TEST(ExportSound, StaysWithThePictureFromStartToEndOfTenMinutes)
{
    FootageSpec above = film(Side::above, 3000, {5, 1});
    above.clicks = {1.0, 300.0, 599.0};
    above.sound->encoder = {"-c:a", "aac", "-b:a", "64k"};
    const Heard movie = exported(above, film(Side::below, 3000, {5, 1}));
    ASSERT_EQ(movie.flashes.size(), 3u);
    EXPECT_THAT(movie.flashes, testing::Pointwise(testing::DoubleNear(1e-6), above.clicks));
    EXPECT_THAT(movie.clicks, testing::Pointwise(testing::DoubleNear(kInStep), movie.flashes));
    EXPECT_NEAR(movie.facts.duration(), 600, 0.01);
}

TEST(ExportSound, StaysWithThePictureWhenTheStartIsTrimmedToAFrame)
{
    for (const Rate rate : {Rate{25, 1}, Rate{30, 1}, Rate{30000, 1001}, Rate{50, 1}, Rate{60000, 1001}}) {
        FootageSpec above = film(Side::above, 120, rate);
        const double frame = 1 / rate.value();
        above.clicks = {40 * frame, 90 * frame};
        const Heard movie = exported(above, film(Side::below, 120, rate),
                                     [&](auto& params) { params.exportTrimStartSeconds = 17 * frame; });
        EXPECT_THAT(movie.flashes,
                    testing::ElementsAre(testing::DoubleNear(23 * frame, 1e-4), testing::DoubleNear(73 * frame, 1e-4)));
        EXPECT_THAT(movie.clicks, testing::Pointwise(testing::DoubleNear(kInStep), movie.flashes)) << rate.value();
    }
}

TEST(ExportSound, IsApartFromThePictureByTheRoundingOfTheFrameTimeAt23976)
{
    // 60000 / 23.976 is no whole number: frames are laid down by its rounded value, sound by real time.
    FootageSpec above = film(Side::above, 960, {24000, 1001});
    above.clicks = {24 * 1001.0 / 24000, 936 * 1001.0 / 24000};
    const Heard movie = exported(above, film(Side::below, 960, {24000, 1001}));
    const double laidDown = std::round(60000 / double(float(24000.0 / 1001))) / 60000;
    EXPECT_THAT(movie.flashes, testing::ElementsAre(testing::DoubleNear(24 * laidDown, 1e-4),
                                                    testing::DoubleNear(936 * laidDown, 1e-4)));
    EXPECT_THAT(movie.clicks, testing::Pointwise(testing::DoubleNear(kInStep), above.clicks));
}

TEST(ExportSound, StaysWithThePictureAcrossChaptersOfEqualTracks)
{
    std::vector<std::filesystem::path> above;
    for (const int part : {0, 1, 2}) {
        FootageSpec spec = film(Side::above, 50, {25, 1});
        spec.firstNumber = 50 * part;
        spec.clicks = {0.4, 1.6};
        spec.sound->encoder = {"-c:a", "pcm_s16le"};
        spec.extension = "mov";
        above.push_back(FootageMaker::make(spec));
    }
    ExportParameters params = compositeOf(above, {FootageMaker::make(film(Side::below, 150, {25, 1}))});
    params.exportTrimStartSeconds = 0.2;
    const Heard movie = exported(params);
    EXPECT_THAT(movie.flashes,
                testing::Pointwise(testing::DoubleNear(1e-4), std::vector<double>{0.2, 1.4, 2.2, 3.4, 4.2, 5.4}));
    EXPECT_THAT(movie.clicks, testing::Pointwise(testing::DoubleNear(kInStep), movie.flashes));
}

TEST(ExportSound, RunsAheadOfThePictureByTheChaptersOverhang)
{
    // Each file's sound outlasts its picture by 40 ms: the next file begins behind the sound, but frames are laid down
    // one after the other.
    std::vector<std::filesystem::path> above;
    for (const int part : {0, 1, 2}) {
        FootageSpec spec = film(Side::above, 50, {25, 1});
        spec.firstNumber = 50 * part;
        spec.clicks = {0.4, 1.6};
        spec.sound->encoder = {"-c:a", "pcm_s16le"};
        spec.sound->seconds = 2.04;
        spec.extension = "mov";
        above.push_back(FootageMaker::make(spec));
    }
    const Heard movie = exported(compositeOf(above, {FootageMaker::make(film(Side::below, 160, {25, 1}))}));
    EXPECT_THAT(movie.flashes,
                testing::Pointwise(testing::DoubleNear(1e-4), std::vector<double>{0.4, 1.6, 2.4, 3.6, 4.4, 5.6}));
    EXPECT_THAT(movie.clicks, testing::Pointwise(testing::DoubleNear(kInStep),
                                                 std::vector<double>{0.4, 1.6, 2.44, 3.64, 4.48, 5.68}));
}

TEST(ExportSound, OfEveryShapeComesOutAsStereoAacAt44100)
{
    struct Shape {
        int sampleRate;
        int channels;
        const char* codec;
        const char* container;
    };
    for (const Shape shape :
         {Shape{48000, 1, "aac", "mp4"}, Shape{48000, 6, "aac", "mp4"}, Shape{48000, 2, "pcm_s16le", "mov"},
          Shape{8000, 1, "pcm_s16le", "avi"}, Shape{32000, 2, "libmp3lame", "avi"}}) {
        FootageSpec above = film(Side::above, 60, {30, 1});
        above.clicks = {0.5, 1.5};
        above.sound = SoundSpec{shape.sampleRate, shape.channels, {"-c:a", shape.codec}, 0, 0};
        above.extension = shape.container;
        if (above.extension == "avi")
            above.encoder = {"-c:v", "mpeg4", "-q:v", "2"};
        const Heard movie = exported(above, film(Side::below, 60, {30, 1}));
        const StreamFacts& sound = *movie.facts.first("audio");
        EXPECT_EQ(sound.text("codec_name"), "aac");
        EXPECT_EQ(sound.text("profile"), "LC");
        EXPECT_EQ(sound.number("sample_rate"), 44100);
        EXPECT_EQ(sound.number("channels"), 2);
        EXPECT_THAT(movie.flashes, testing::Pointwise(testing::DoubleNear(1e-4), above.clicks)) << shape.codec;
        // MP3 in AVI tells nothing of its encoder's delay.
        const double allowance = std::string_view(shape.codec) == "libmp3lame" ? 0.06 : kInStep;
        EXPECT_THAT(movie.clicks, testing::Pointwise(testing::DoubleNear(allowance), above.clicks)) << shape.codec;
    }
}

TEST(ExportSound, HasAbout128KilobitsASecond)
{
    const TemporaryFolder folder;
    const auto noisy =
        FootageMaker::derive({"-f", "lavfi", "-i", "color=gray:s=96x54:r=10:d=20", "-f", "lavfi", "-i",
                              "anoisesrc=d=20:c=pink:r=48000:a=0.5", "-c:v", "libx264", "-c:a", "pcm_s16le"},
                             "mov");
    ASSERT_EQ(runExport(compositeOf({noisy}, {noisy}), folder.file("movie.mp4")).error(), "");
    EXPECT_NEAR(MovieProbe::facts(folder.file("movie.mp4")).first("audio")->number("bit_rate"), 128'000, 12'800);
}

TEST(ExportSound, ComesFromTheAboveVideoAlone)
{
    FootageSpec below = film(Side::below, 60, {30, 1});
    below.sound = SoundSpec{};
    below.clicks = {1.0};
    FootageSpec above = film(Side::above, 60, {30, 1});
    above.clicks = {0.5};
    EXPECT_THAT(exported(above, below).clicks, testing::ElementsAre(testing::DoubleNear(0.5, kInStep)));
    above.clicks = {};
    above.sound.reset();
    const Heard silent = exported(above, below);
    EXPECT_EQ(silent.facts.first("audio"), nullptr);
    EXPECT_EQ(silent.facts.streams.size(), 1u);
}

TEST(ExportSound, ASplitAboveVideoWithoutSoundExportsWithoutComplaint)
{
    FootageSpec spec = film(Side::above, 30, {30, 1});
    spec.sound.reset();
    const auto file = FootageMaker::make(spec);
    const Heard movie = exported(compositeOf({file, file}, {FootageMaker::make(film(Side::below, 60, {30, 1}))}));
    EXPECT_NEAR(movie.facts.duration(), 2, 0.01);
    const StreamFacts* const audio = movie.facts.first("audio");
    EXPECT_LT(audio != nullptr ? audio->number("duration") : 0, 0.1);
}

TEST(ExportSound, ThatBeginsAfterThePictureIsPrecededBySilence)
{
    FootageSpec above = film(Side::above, 60, {30, 1});
    above.clicks = {1.5};
    above.sound->encoder = {"-c:a", "pcm_s16le"};
    above.sound->start = 0.7;
    above.sound->seconds = 1.2;
    above.extension = "mov";
    const Heard movie = exported(above, film(Side::below, 60, {30, 1}));
    EXPECT_THAT(movie.clicks, testing::Pointwise(testing::DoubleNear(kInStep), movie.flashes));
    EXPECT_EQ(movie.flashes.size(), 1u);
}

TEST(ExportSound, ThatEndsEarlyLeavesTheRestOfTheMovieSilent)
{
    FootageSpec above = film(Side::above, 90, {30, 1});
    above.sound->seconds = 1;
    above.clicks = {0.5};
    const Heard movie = exported(above, film(Side::below, 90, {30, 1}));
    EXPECT_NEAR(movie.facts.duration(), 3, 0.01);
    EXPECT_THAT(movie.clicks, testing::ElementsAre(testing::DoubleNear(0.5, kInStep)));
}

TEST(ExportSound, OfAnAboveVideoWithAnEditListStaysInStep)
{
    FootageSpec above = film(Side::above, 120, {30, 1});
    above.clicks = {2.0, 3.0};
    above.encoder = {"-c:v", "libx264", "-preset", "veryfast", "-crf", "14", "-g", "30", "-sc_threshold", "0"};
    const auto cut =
        FootageMaker::derive({"-ss", "0.7", "-i", FootageMaker::make(above).string(), "-c", "copy"}, "mp4");
    const Heard movie = exported(compositeOf({cut}, {FootageMaker::make(film(Side::below, 120, {30, 1}))}));
    ASSERT_EQ(movie.flashes.size(), 2u);
    EXPECT_THAT(movie.clicks, testing::Pointwise(testing::DoubleNear(kInStep), movie.flashes));
}

}
