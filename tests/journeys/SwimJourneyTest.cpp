// SPDX-License-Identifier: GPL-3.0-or-later
// The main job: two recordings of one swim become one movie.
#include "Programs.h"
#include "SampleSwim.h"
#include "support/MovieProbe.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

/// A place in a picture, 0 to 1 from the left and from the bottom.
struct Place {
    double x = 0;
    double height = 0;
};

using Mapping = std::function<Place(Place)>;

/// Where the camera's zoom and the two points put the above recording's picture.
Mapping aboveIn(const SampleSwim& swim)
{
    constexpr double kZoom = 1.22;
    const double shift = swim.surfaceBelow - swim.surfaceAbove;
    return [shift](Place p) { return Place{(p.x - .5) / kZoom + .5, (p.height - shift - .5) / kZoom + .5}; };
}

Place samePlace(Place p)
{
    return p;
}

/// Mean luma of the square of one cell's size around a place.
double lumaAround(const RawPicture& picture, const Mapping& mapping, Place centre, double cell)
{
    constexpr int kPoints = 6; // in each direction
    double sum = 0;
    for (int i = 0; i < kPoints * kPoints; ++i) {
        const Place p = mapping({centre.x + cell * ((i % kPoints + .5) / kPoints - .5),
                                 centre.height + cell * ((i / kPoints + .5) / kPoints - .5)});
        sum += picture.luma(int(p.x * picture.format().width), int((1 - p.height) * picture.format().height));
    }
    return sum / (kPoints * kPoints);
}

/// Mean difference of luma, of 1, between a stripe of the movie's picture and what a recording has there.
double differenceOf(const RawPicture& movie, const RawPicture& recording, const Mapping& mapping, double bottom,
                    double top)
{
    constexpr double kCell = 0.02;
    double sum = 0;
    int cells = 0;
    for (double height = bottom + kCell / 2; height < top; height += kCell) {
        for (double x = .05; x < .95; x += kCell) {
            sum += std::abs(lumaAround(movie, samePlace, {x, height}, kCell) -
                            lumaAround(recording, mapping, {x, height}, kCell));
            ++cells;
        }
    }
    return sum / cells;
}

PictureFormat sized(int width, int height)
{
    PictureFormat format;
    format.width = width;
    format.height = height;
    return format;
}

/// The frames around one of them, of files that lie end to end.
std::vector<RawPicture> framesAround(const std::vector<std::filesystem::path>& files, const PictureFormat& format,
                                     int index, int reach)
{
    std::vector<RawPicture> frames;
    int first = 0;
    for (const auto& file : files) {
        int count = 0;
        MovieProbe::forEachFrame(file, format, {}, [&](int i, const RawPicture& picture) {
            count = i + 1;
            if (std::abs(first + i - index) <= reach)
                frames.push_back(picture);
        });
        first += count;
    }
    return frames;
}

int frameAt(double seconds)
{
    return int(std::lround(seconds * SampleSwim::kRate));
}

/// Says that the movie's frame at the landmark shows both recordings at that instant, each on its side of the
/// surface, and neither a frame earlier nor later.
void expectLandmark(const std::filesystem::path& movie, const PictureFormat& format, const SampleSwim& swim,
                    int movieFrame)
{
    constexpr int kReach = 3;
    constexpr double kMargin = 0.04; // the soft edge and the waves of it
    const PictureFormat source = sized(swim.width, swim.height);
    const RawPicture shown = framesAround({movie}, format, movieFrame, 0).at(0);
    const auto above = framesAround(swim.above, source, frameAt(swim.landmarkAbove), kReach);
    const auto below = framesAround({swim.below}, source, frameAt(swim.landmarkBelow), kReach);
    ASSERT_EQ(above.size(), 2u * kReach + 1);
    ASSERT_EQ(below.size(), 2u * kReach + 1);
    const auto differences = [&](const std::vector<RawPicture>& frames, const Mapping& mapping, double bottom,
                                 double top) {
        std::vector<double> result;
        for (const RawPicture& frame : frames)
            result.push_back(differenceOf(shown, frame, mapping, bottom, top));
        return result;
    };
    const auto air = differences(above, aboveIn(swim), swim.surfaceBelow + kMargin, 1);
    const auto water = differences(below, samePlace, 0, swim.surfaceBelow - kMargin);
    EXPECT_EQ(std::min_element(air.begin(), air.end()) - air.begin(), kReach) << testing::PrintToString(air);
    EXPECT_EQ(std::min_element(water.begin(), water.end()) - water.begin(), kReach) << testing::PrintToString(water);
    EXPECT_LT(air[kReach], .01);
    EXPECT_LT(water[kReach], .01);
    // The other recording has something else there.
    EXPECT_GT(differenceOf(shown, below[kReach], samePlace, swim.surfaceBelow + kMargin, 1), .05);
    EXPECT_GT(differenceOf(shown, above[kReach], aboveIn(swim), 0, swim.surfaceBelow - kMargin), .05);
}

/// Seconds at which the start beep sets in: it is far louder than all before it.
double beepTime(const std::filesystem::path& movie)
{
    constexpr int kRate = 44100;
    constexpr size_t kWindow = 44; // a millisecond
    const std::vector<int16_t> sound = MovieProbe::sound(movie, kRate, 1);
    for (size_t begin = 0; begin + kWindow <= sound.size(); ++begin) {
        double power = 0;
        for (size_t i = begin; i < begin + kWindow; ++i)
            power += double(sound[i]) * sound[i];
        if (power / kWindow > 5000.0 * 5000.0)
            return double(begin + kWindow / 2) / kRate;
    }
    return -1;
}

}

TEST(SwimJourney, ChaptersAboveAndOneFileBelowBecomeOneMovie)
{
    const SampleSwim& swim = SampleSwim::wide();
    const TemporaryFolder folder;
    const ProcessResult result = render(swim.arguments() + std::vector<std::string>{folder.file("swim.mp4")});
    ASSERT_EQ(result.exitCode, 0) << result.err.toStdString();
    EXPECT_EQ(result.err, "");
    EXPECT_THAT(folder.names(), testing::ElementsAre("swim.mp4"));

    const MovieFacts facts = MovieProbe::facts(folder.file("swim.mp4"));
    ASSERT_EQ(facts.streams.size(), 2u);
    const StreamFacts& video = *facts.first("video");
    EXPECT_EQ(video.text("codec_name"), "h264");
    EXPECT_EQ(video.number("width"), 1920); // the size that a small 16:9 recording gets
    EXPECT_EQ(video.number("height"), 1080);
    EXPECT_EQ(video.text("profile"), "High");
    EXPECT_NEAR(video.averageRate(), SampleSwim::kRate, .3); // the last frame is held to the end
    const StreamFacts& audio = *facts.first("audio");
    EXPECT_EQ(audio.text("codec_name"), "aac");
    EXPECT_EQ(audio.number("sample_rate"), 44100);
    EXPECT_EQ(audio.number("channels"), 2);
    // As long as both recordings last together: none of the sample's files is longer than the swim and the lead.
    const double whole = MovieProbe::facts(swim.below).duration() - (swim.landmarkBelow - swim.landmarkAbove);
    const double aboveLength =
        MovieProbe::facts(swim.above[0]).duration() + MovieProbe::facts(swim.above[1]).duration();
    EXPECT_NEAR(facts.duration(), std::min(whole, aboveLength), .05);
    EXPECT_EQ(facts.tag("com.apple.quicktime.make"), "Zumeta");
    EXPECT_EQ(facts.tag("com.apple.quicktime.model"), "Zumeta Export");
    EXPECT_THAT(facts.tag("com.apple.quicktime.comment"),
                testing::MatchesRegex("Created with Zumeta; Export ID: zm_[0-9a-f]{32}"));

    expectLandmark(folder.file("swim.mp4"), sized(1920, 1080), swim, frameAt(swim.landmarkAbove));
    EXPECT_NEAR(beepTime(folder.file("swim.mp4")), swim.beepAbove, .005);
}

TEST(SwimJourney, ATrimmedSwimBeginsLaterInPictureAndSoundAlike)
{
    const SampleSwim& swim = SampleSwim::wide();
    const TemporaryFolder folder;
    constexpr int kFramesCut = 6;
    const double cut = kFramesCut / SampleSwim::kRate;
    const ProcessResult result =
        render(swim.arguments() + std::vector<std::string>{"--trim-start", std::to_string(cut), "--trim-end=1",
                                                           "--resolution=720p", "--quiet", folder.file("swim.mp4")});
    ASSERT_EQ(result.exitCode, 0) << result.err.toStdString();
    expectLandmark(folder.file("swim.mp4"), sized(1280, 720), swim, frameAt(swim.landmarkAbove) - kFramesCut);
    EXPECT_NEAR(beepTime(folder.file("swim.mp4")), swim.beepAbove - cut, .005);
}

TEST(SwimJourney, AFourByThreeSwimBecomesAFourByThreeMovie)
{
    const SampleSwim& swim = SampleSwim::fourByThree();
    const TemporaryFolder folder;
    const ProcessResult result =
        render(swim.arguments() + std::vector<std::string>{"--quiet", folder.file("swim.mp4")});
    ASSERT_EQ(result.exitCode, 0) << result.err.toStdString();
    const MovieFacts facts = MovieProbe::facts(folder.file("swim.mp4"));
    EXPECT_EQ(facts.first("video")->number("width"), 960);
    EXPECT_EQ(facts.first("video")->number("height"), 720);
    expectLandmark(folder.file("swim.mp4"), sized(960, 720), swim, frameAt(swim.landmarkAbove));
    EXPECT_NEAR(beepTime(folder.file("swim.mp4")), swim.beepAbove, .005);
}

TEST(SwimJourney, TheResolutionCanBeChosen)
{
    const SampleSwim& swim = SampleSwim::wide();
    const TemporaryFolder folder;
    const ProcessResult result =
        render(swim.arguments() +
               std::vector<std::string>{"--resolution", "720p", "--trim-end", "3", folder.file("swim.mp4")});
    ASSERT_EQ(result.exitCode, 0) << result.err.toStdString();
    const MovieFacts facts = MovieProbe::facts(folder.file("swim.mp4"));
    EXPECT_EQ(facts.first("video")->number("width"), 1280);
    EXPECT_EQ(facts.first("video")->number("height"), 720);
    EXPECT_EQ(facts.first("video")->text("profile"), "Main");
}

}
