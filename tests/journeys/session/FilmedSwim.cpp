// SPDX-License-Identifier: GPL-3.0-or-later
#include "FilmedSwim.h"

#include "support/ChildProcess.h"
#include "support/MovieProbe.h"

#include <QJsonDocument>
#include <array>
#include <cmath>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace zumeta::test {

namespace {

using WorkflowStep = CompositorViewModel::WorkflowStep;

constexpr double kUnits = 600;     ///< reference units of the picture's height
constexpr double kCameraZoom = 22; ///< percent, of the camera that is the session's first choice
constexpr double kWithinAFrame = 0.4;
constexpr double kSamePicture = 36;   ///< dB, of one picture that was coded twice
constexpr double kLeastLikeness = 37; ///< dB; the right values give 38 to 45, a shift by a unit and a half 35

void lockAndPick(LiveSession& live, Side side, double seconds, double height)
{
    CompositorViewModel& session = live.session();
    session.seek(seconds, true);
    if (side == Side::above)
        session.toggleAboveLock();
    else
        session.toggleBelowLock();
    session.onPickWaterline(height);
    ASSERT_TRUE(live.waitFor([&] {
        return side == Side::above ? session.alignmentPointAbove().has_value()
                                   : session.alignmentPointBelow().has_value();
    }));
}

void adjust(CompositorViewModel& session, const FilmedSwim& swim)
{
    session.beginStep3Adjustment();
    session.setRelativeWaterlineHeight(swim.relativeWaterlineHeight);
    session.beginStep3Adjustment();
    session.setRelativeAboveOffset(swim.relativeAboveOffset);
    session.beginStep3Adjustment();
    session.setRelativeAboveHorizontalOffset(swim.aboveHorizontalOffset);
    session.beginStep3Adjustment();
    session.setAboveZoom(swim.aboveZoom);
    session.beginStep3Adjustment();
    session.setTimingOffset(swim.timingOffset);
    session.beginStep3Adjustment();
    session.setBlendAmount(swim.blendAmount);
}

/// By two markers, in which the playhead is caught.
void trim(CompositorViewModel& session, const FilmedSwim& swim)
{
    for (const double frame : {double(swim.firstFrame), swim.endFrame + kWithinAFrame}) {
        session.seek(swim.seconds(frame), true);
        session.addTrimMarkerAtCurrentTime();
    }
    session.navigateTrimMarker(-1);
    session.pressTrimStartToPlayhead();
    session.navigateTrimMarker(1);
    session.pressTrimEndToPlayhead();
    const VideoCompositionConfig trimmed = session.projectConfig();
    session.resetTrimRange();
    session.undoLastStepEdit();
    EXPECT_EQ(session.projectConfig(), trimmed);
    session.redoLastStepEdit();
    EXPECT_EQ(session.projectConfig().exportTrimStartSeconds, 0);
    session.undoLastStepEdit();
    EXPECT_EQ(session.projectConfig(), trimmed);
}

void expectConfig(VideoCompositionConfig config, const VideoCompositionConfig& expected)
{
    // These were computed, on other ways than here.
    using Field = double VideoCompositionConfig::*;
    for (const Field field : {&VideoCompositionConfig::waterlineHeight, &VideoCompositionConfig::aboveOffset,
                              &VideoCompositionConfig::exportTrimEndSeconds}) {
        EXPECT_NEAR(config.*field, expected.*field, 1e-9);
        config.*field = expected.*field;
    }
    EXPECT_EQ(config, expected);
}

/// What the file says of itself, without the export's ID and date, and without what follows from the coded sizes.
QByteArray factsOf(const std::filesystem::path& movie)
{
    const MovieFacts facts = MovieProbe::facts(movie);
    QJsonObject format = facts.format;
    for (const char* const ofTheFile : {"filename", "size", "bit_rate"})
        format.remove(QLatin1String(ofTheFile));
    QJsonObject tags = format[QStringLiteral("tags")].toObject();
    for (const char* const own : {"com.apple.quicktime.comment", "com.apple.quicktime.creationdate"})
        EXPECT_FALSE(tags.take(QLatin1String(own)).toString().isEmpty()) << own;
    format[QStringLiteral("tags")] = tags;
    QByteArray text = QJsonDocument(format).toJson();
    for (const StreamFacts& stream : facts.streams) {
        QJsonObject json = stream.json;
        json.remove(QStringLiteral("bit_rate"));
        text += QJsonDocument(json).toJson();
    }
    return text;
}

QByteArray packetsOf(const std::filesystem::path& movie, const char* track)
{
    return runOrThrow({"ffmpeg",
                       {"-v", "error", "-i", movie, "-map", track, "-c", "copy", "-f", "framemd5", "-"},
                       std::chrono::seconds(60),
                       {},
                       {}});
}

}

FilmedSwim FilmedSwim::numbered(int index)
{
    // None of them puts a shift of five hundredths on a whole frame.
    static constexpr std::array<Rate, 5> kRates = {Rate{30, 1}, Rate{30000, 1001}, Rate{25, 1}, Rate{50, 1},
                                                   Rate{24000, 1001}};
    FilmedSwim swim;
    swim.above.rate = kRates[size_t(index / 2) % kRates.size()];
    swim.above.frames = 90;
    swim.above.firstNumber = 500 * index;
    swim.above.sound.emplace();
    swim.below = swim.above;
    swim.below.side = Side::below;
    swim.below.frames = 84;
    swim.below.firstNumber = 500 * index + 250;
    if (index % 2 == 1) {
        swim.above.width = swim.below.width = 320;
        swim.above.height = swim.below.height = 240;
        swim.resolution = ExportResolutionType::hd960;
    }
    // In turn the one and the other camera was switched on first.
    swim.aboveLock = index % 4 < 2 ? 30 + index : 20;
    swim.belowLock = index % 4 < 2 ? 22 : 27 + index;
    swim.abovePick = 0.5 - 0.004 * index;
    swim.belowPick = 0.51;
    swim.relativeWaterlineHeight = 2 + index;
    swim.relativeAboveOffset = 3 - 0.5 * index;
    swim.aboveHorizontalOffset = 1.5 * index - 9;
    swim.aboveZoom = 0.5 * index - 2;
    swim.timingOffset = index % 3 == 0 ? -5 : 5;
    swim.blendAmount = 10 + 2 * index;
    swim.firstFrame = 7 + index;
    swim.endFrame = 27 + index + index % 5;
    return swim;
}

FilmedSwim FilmedSwim::copiedTo(const std::filesystem::path& folder) const
{
    FilmedSwim copy = *this;
    copy.aboveFile = folder / "above.mp4";
    copy.belowFile = folder / "below.mp4";
    std::filesystem::create_directories(folder);
    std::filesystem::copy_file(file(Side::above), copy.aboveFile);
    std::filesystem::copy_file(file(Side::below), copy.belowFile);
    return copy;
}

std::filesystem::path FilmedSwim::file(Side side) const
{
    const std::filesystem::path& place = side == Side::above ? aboveFile : belowFile;
    return place.empty() ? FootageMaker::make(side == Side::above ? above : below) : place;
}

double FilmedSwim::seconds(double frames) const
{
    return frames * double(above.rate.denominator) / double(above.rate.numerator);
}

VideoCompositionConfig FilmedSwim::expectedConfig(double compositeDuration) const
{
    VideoCompositionConfig config;
    config.waterlineHeight = belowPick * kUnits / (1 + kCameraZoom / 100) + relativeWaterlineHeight;
    config.aboveOffset = (belowPick - abovePick) * kUnits + relativeAboveOffset;
    config.aboveHorizontalOffset = aboveHorizontalOffset;
    config.aboveZoom = aboveZoom;
    config.timingOffset = timingOffset;
    config.blendAmount = blendAmount;
    config.aboveStartTime = seconds(aboveLock);
    config.belowStartTime = seconds(belowLock);
    config.isSynced = true;
    config.exportTrimStartSeconds = seconds(firstFrame);
    config.exportTrimEndSeconds = compositeDuration - seconds(endFrame + kWithinAFrame);
    return config;
}

ExportParameters FilmedSwim::expectedExport() const
{
    const VideoCompositionConfig config = expectedConfig(0);
    ExportParameters params;
    params.waterlineHeight = config.waterlineHeight;
    params.aboveZoom = aboveZoom + kCameraZoom;
    params.aboveOffset = config.aboveOffset;
    params.aboveHorizontalOffset = aboveHorizontalOffset;
    params.blendAmount = blendAmount;
    params.resolution = resolution;
    if (above.width * 3 == above.height * 4)
        params.projectAspectRatio = {4, 3};
    return params;
}

ShownFrames FilmedSwim::expectedFrames() const
{
    // How many frames the below recording is ahead at one instant of the swim.
    const double ahead = belowLock - aboveLock - timingOffset * 0.01 * above.rate.value();
    ShownFrames expected;
    for (int frame = firstFrame; frame < endFrame; ++frame) {
        expected.above.push_back(above.firstNumber + frame + int(std::floor(std::max(-ahead, 0.0))));
        expected.below.push_back(below.firstNumber + frame + int(std::floor(std::max(ahead, 0.0))));
    }
    return expected;
}

void makeComposition(LiveSession& live, const FilmedSwim& swim)
{
    CompositorViewModel& session = live.session();
    ASSERT_TRUE(live.load(Side::above, {swim.file(Side::above)}));
    ASSERT_NO_FATAL_FAILURE(lockAndPick(live, Side::above, swim.seconds(swim.aboveLock), swim.abovePick));
    session.setCurrentStep(WorkflowStep::step2);
    ASSERT_TRUE(live.load(Side::below, {swim.file(Side::below)}));
    ASSERT_NO_FATAL_FAILURE(lockAndPick(live, Side::below, swim.seconds(swim.belowLock), swim.belowPick));
    session.setCurrentStep(WorkflowStep::step3);
    adjust(session, swim);
    session.pressGoToStep4();
    trim(session, swim);
    expectConfig(session.projectConfig(), swim.expectedConfig(session.duration()));
    session.setSelectedResolution(swim.resolution);
}

void expectMovieOf(const FilmedSwim& swim, const std::filesystem::path& movie)
{
    const ExportParameters params = swim.expectedExport();
    const PictureFormat aboveFormat = pictureFormat(swim.above);
    const PictureFormat belowFormat = pictureFormat(swim.below);
    const ShownFrames expected = swim.expectedFrames();
    const ReferenceSettings settings = referenceOf(params);
    const std::vector<RawPicture> exported = MovieProbe::frames(movie, exportedFormat(params));
    ShownFrames shown;
    for (const RawPicture& picture : exported) {
        const auto above = readBarCode(picture, CodeStrip::upper, abovePlacement(settings, aboveFormat));
        const auto below = readBarCode(picture, CodeStrip::lower, belowPlacement(settings, belowFormat));
        shown.above.push_back(above && above->side == Side::above ? above->number : -1);
        shown.below.push_back(below && below->side == Side::below ? below->number : -1);
    }
    EXPECT_EQ(shown.above, expected.above);
    EXPECT_EQ(shown.below, expected.below);
    ASSERT_EQ(exported.size(), expected.above.size());

    // Numbers alone would not tell a value that moves the picture a little.
    const size_t middle = expected.above.size() / 2;
    const auto frameOf = [&](const FootageSpec& spec, int number) {
        return MovieProbe::frames(FootageMaker::make(spec), pictureFormat(spec))[size_t(number - spec.firstNumber)];
    };
    const RawPicture above = frameOf(swim.above, expected.above[middle]);
    const RawPicture below = frameOf(swim.below, expected.below[middle]);
    EXPECT_GE(worstPsnr(exported[middle], referenceComposite(settings, &above, below)), kLeastLikeness);

    const MovieFacts facts = MovieProbe::facts(movie);
    ASSERT_EQ(facts.count("audio"), 1);
    EXPECT_NEAR(facts.first("audio")->number("duration"), swim.seconds(int(expected.above.size())), 0.05);
}

std::string contentWithoutIdAndDate(const std::filesystem::path& movie)
{
    std::ifstream file(movie, std::ios::binary);
    std::string bytes(std::istreambuf_iterator<char>(file), {});
    const MovieFacts facts = MovieProbe::facts(movie);
    for (const char* const name : {"com.apple.quicktime.comment", "com.apple.quicktime.creationdate"}) {
        const std::string text = facts.tag(name);
        const size_t place = text.empty() ? std::string::npos : bytes.rfind(text);
        EXPECT_NE(place, std::string::npos) << name;
        if (place != std::string::npos)
            bytes.replace(place, text.size(), text.size(), '-');
    }
    return bytes;
}

void expectEqualMovies(const FilmedSwim& swim, const std::filesystem::path& movie, const std::filesystem::path& other)
{
    // At the 4:3 sizes, x264's macroblock tree takes memory that nobody has written into its decisions (with AVX-512):
    // bits move from picture to picture, and the movie is coded differently each time.
    if (swim.resolution != ExportResolutionType::hd960) {
        EXPECT_TRUE(contentWithoutIdAndDate(movie) == contentWithoutIdAndDate(other)) << movie << ' ' << other;
        return;
    }
    EXPECT_EQ(factsOf(movie), factsOf(other));
    EXPECT_EQ(packetsOf(movie, "0:a"), packetsOf(other, "0:a"));
    EXPECT_EQ(MovieProbe::frameTimes(movie), MovieProbe::frameTimes(other));
    const PictureFormat format = exportedFormat(swim.expectedExport());
    const std::vector<RawPicture> pictures = MovieProbe::frames(movie, format);
    const std::vector<RawPicture> others = MovieProbe::frames(other, format);
    ASSERT_EQ(pictures.size(), others.size());
    for (size_t i = 0; i < pictures.size(); ++i)
        EXPECT_GE(worstPsnr(pictures[i], others[i]), kSamePicture) << "frame " << i;
}

}
