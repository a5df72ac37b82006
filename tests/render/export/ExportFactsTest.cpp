// SPDX-License-Identifier: GPL-3.0-or-later
#include "Exporting.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <regex>

namespace zumeta::test {

namespace {

FootageSpec film(Side side, int frames, Rate rate = {30, 1})
{
    FootageSpec spec;
    spec.side = side;
    spec.frames = frames;
    spec.rate = rate;
    return spec;
}

struct Size {
    const char* name;
    ExportResolutionType resolution;
    int width;
    int height;
    const char* profile;
    int frames;
};

std::ostream& operator<<(std::ostream& out, const Size& size)
{
    return out << size.name;
}

class EverySizeOfMovie : public testing::TestWithParam<Size> {};

class FixedClock final : public WallClock {
public:
    std::chrono::sys_seconds now() const override
    {
        return std::chrono::sys_days{std::chrono::year{2026} / 11 / 15} + std::chrono::hours(18) +
               std::chrono::minutes(52) + std::chrono::seconds(35);
    }
};

/// Frames between one key frame and the next, in order of showing, both ends of the movie included.
int longestGroup(const std::filesystem::path& movie)
{
    std::vector<PacketFacts> packets = MovieProbe::packets(movie, "v:0");
    std::sort(packets.begin(), packets.end(), [](const auto& a, const auto& b) { return a.pts < b.pts; });
    int longest = 0;
    int group = 0;
    for (const PacketFacts& packet : packets) {
        group = packet.key ? 1 : group + 1;
        longest = std::max(longest, group);
    }
    return longest;
}

}

TEST_P(EverySizeOfMovie, HasItsSizeProfileGroupsAndTags)
{
    const TemporaryFolder folder;
    ExportParameters params = compositeOf({FootageMaker::make(film(Side::above, GetParam().frames))},
                                          {FootageMaker::make(film(Side::below, GetParam().frames))});
    params.resolution = GetParam().resolution;
    ASSERT_EQ(runExport(params, folder.file("movie.mp4")).error(), "");
    const MovieFacts facts = MovieProbe::facts(folder.file("movie.mp4"));
    const StreamFacts& video = *facts.first("video");
    EXPECT_EQ(facts.streams.size(), 1u);
    EXPECT_EQ(video.number("width"), GetParam().width);
    EXPECT_EQ(video.number("height"), GetParam().height);
    EXPECT_EQ(video.text("codec_name"), "h264");
    EXPECT_EQ(video.text("codec_tag_string"), "avc1");
    EXPECT_EQ(video.text("profile"), GetParam().profile);
    EXPECT_EQ(video.text("pix_fmt"), "yuv420p");
    EXPECT_EQ(video.text("color_range"), "tv");
    EXPECT_EQ(video.text("color_space"), "bt709");
    EXPECT_EQ(video.text("color_transfer"), "bt709");
    EXPECT_EQ(video.text("color_primaries"), "bt709");
    EXPECT_EQ(video.averageRate(), 30);
    EXPECT_LE(longestGroup(folder.file("movie.mp4")), 30);
    EXPECT_THAT(MovieProbe::frameKinds(folder.file("movie.mp4")), testing::HasSubstr("B"));
    EXPECT_EQ(MovieProbe::packets(folder.file("movie.mp4"), "v:0").size(), size_t(GetParam().frames));
}

INSTANTIATE_TEST_SUITE_P(, EverySizeOfMovie,
                         testing::Values(Size{"Hd720", ExportResolutionType::hd720, 1280, 720, "Main", 70},
                                         Size{"Hd960", ExportResolutionType::hd960, 960, 720, "Main", 40},
                                         Size{"Hd1080", ExportResolutionType::hd1080, 1920, 1080, "High", 40},
                                         Size{"Hd1440", ExportResolutionType::hd1440, 1440, 1080, "High", 40},
                                         Size{"Uhd4k", ExportResolutionType::uhd4k, 3840, 2160, "High", 34}),
                         [](const auto& size) { return std::string(size.param.name); });

TEST(ExportFacts, ProducesTheStatedRateOnMaterialThatNeedsIt)
{
    // Moving grain over the whole picture: no encoder saves on it. Twelve seconds: the rate control takes a few to
    // settle.
    const auto grain = FootageMaker::derive({"-f", "lavfi", "-i",
                                             "nullsrc=s=640x360:r=30:d=12,geq=lum='128+90*sin(X*Y/200+"
                                             "N*X/9)+random(1)*60':cb='128+60*sin(N+Y/9)':cr=128",
                                             "-c:v", "libx264", "-preset", "ultrafast", "-crf", "12"},
                                            "mp4");
    for (const ExportResolutionType resolution : {ExportResolutionType::hd720, ExportResolutionType::hd960}) {
        const TemporaryFolder folder;
        ExportParameters params = compositeOf({grain}, {grain});
        params.resolution = resolution;
        ASSERT_EQ(runExport(params, folder.file("movie.mp4")).error(), "");
        double bytes = 0;
        for (const PacketFacts& packet : MovieProbe::packets(folder.file("movie.mp4"), "v:0"))
            bytes += packet.size;
        const double wanted = resolution == ExportResolutionType::hd720 ? 8'000'000 : 6'000'000;
        EXPECT_NEAR(bytes * 8 / 12, wanted, 0.1 * wanted);
    }
}

TEST(ExportFacts, TheRateIsTheBelowVideos)
{
    struct Case {
        Rate above;
        Rate below;
        double frameTime;
    };
    for (const Case& rates : {Case{{30, 1}, {25, 1}, 2400.0 / 60000}, Case{{25, 1}, {30000, 1001}, 2002.0 / 60000},
                              Case{{60, 1}, {60000, 1001}, 1001.0 / 60000}, Case{{30, 1}, {120, 1}, 500.0 / 60000},
                              Case{{30, 1}, {50, 1}, 1200.0 / 60000}}) {
        const TemporaryFolder folder;
        const ExportParameters params = compositeOf({FootageMaker::make(film(Side::above, 30, rates.above))},
                                                    {FootageMaker::make(film(Side::below, 24, rates.below))});
        ASSERT_EQ(runExport(params, folder.file("movie.mp4")).error(), "");
        const std::vector<double> times = MovieProbe::frameTimes(folder.file("movie.mp4"));
        ASSERT_GE(times.size(), 20u);
        for (size_t i = 0; i < times.size(); ++i)
            EXPECT_NEAR(times[i], double(i) * rates.frameTime, 2e-6);
    }
}

TEST(ExportFacts, CarriesTheFiveMetadataItems)
{
    const TemporaryFolder folder;
    ExportEnvironment environment;
    environment.bundle = BundleInfo::fromValues(QStringLiteral("1.4.2"), QStringLiteral("77"));
    environment.clock = std::make_shared<FixedClock>();
    const ExportParameters params =
        compositeOf({FootageMaker::make(film(Side::above, 6))}, {FootageMaker::make(film(Side::below, 6))});
    std::vector<std::string> comments;
    for (const char* const name : {"one.mp4", "two.mp4"}) {
        ASSERT_EQ(runExport(params, folder.file(name), {}, environment).error(), "");
        const MovieFacts facts = MovieProbe::facts(folder.file(name));
        EXPECT_EQ(facts.tag("com.apple.quicktime.software"), "Zumeta 1.4.2 (77)");
        EXPECT_EQ(facts.tag("com.apple.quicktime.make"), "Zumeta");
        EXPECT_EQ(facts.tag("com.apple.quicktime.model"), "Zumeta Export");
        EXPECT_EQ(facts.tag("com.apple.quicktime.creationdate"), "2026-11-15T18:52:35Z");
        comments.push_back(facts.tag("com.apple.quicktime.comment"));
        EXPECT_TRUE(std::regex_match(comments.back(), std::regex("Created with Zumeta; Export ID: zm_[0-9a-f]{32}")))
            << comments.back();
    }
    EXPECT_NE(comments[0], comments[1]);
}

TEST(ExportFacts, CallsAMissingVersionUnknown)
{
    const TemporaryFolder folder;
    ExportEnvironment environment;
    environment.bundle = {};
    const ExportParameters params =
        compositeOf({FootageMaker::make(film(Side::above, 6))}, {FootageMaker::make(film(Side::below, 6))});
    ASSERT_EQ(runExport(params, folder.file("movie.mp4"), {}, environment).error(), "");
    EXPECT_EQ(MovieProbe::facts(folder.file("movie.mp4")).tag("com.apple.quicktime.software"),
              "Zumeta unknown (unknown)");
}

TEST(ExportFacts, BearsTheMarkWhereItIsWished)
{
    ExportEnvironment environment;
    environment.drawMark = [](int width, int height) {
        auto mark = std::make_shared<MarkImage>();
        mark->width = width;
        mark->height = height;
        mark->rgba.assign(4 * size_t(width) * size_t(height), 0);
        for (int y = height - 64; y < height; ++y) {
            const auto row = mark->rgba.begin() + 4 * (ptrdiff_t(y) * width + width - 64);
            std::fill(row, row + ptrdiff_t(4) * 64, uint8_t(255));
        }
        return mark;
    };
    FootageSpec below = film(Side::below, 6);
    below.scene = Scene::plain;
    ExportParameters params = compositeOf({FootageMaker::make(film(Side::above, 6))}, {FootageMaker::make(below)});
    for (const bool isWished : {true, false}) {
        const TemporaryFolder folder;
        params.showWatermark = isWished;
        ASSERT_EQ(runExport(params, folder.file("movie.mp4"), {}, environment).error(), "");
        const RawPicture last = MovieProbe::frames(folder.file("movie.mp4"), exportedFormat(params)).back();
        EXPECT_EQ(last.luma(1280 - 32, 720 - 32) > 0.9, isWished);
        EXPECT_LT(last.luma(1280 - 100, 720 - 100), 0.9);
    }
}

TEST(ExportFacts, ExportsWithoutAMarkThatCannotBeDrawn)
{
    const TemporaryFolder folder;
    ExportEnvironment environment;
    environment.drawMark = [](int, int) { return nullptr; };
    ExportParameters params =
        compositeOf({FootageMaker::make(film(Side::above, 6))}, {FootageMaker::make(film(Side::below, 6))});
    params.showWatermark = true;
    EXPECT_EQ(runExport(params, folder.file("movie.mp4"), {}, environment).error(), "");
}

TEST(ExportFacts, HasNoChaptersOfItsOwn)
{
    const TemporaryFolder folder;
    const auto chapter = FootageMaker::make(film(Side::above, 10));
    ASSERT_EQ(runExport(compositeOf({chapter, chapter}, {FootageMaker::make(film(Side::below, 20))}),
                        folder.file("movie.mp4"))
                  .error(),
              "");
    const MovieFacts facts = MovieProbe::facts(folder.file("movie.mp4"));
    EXPECT_EQ(facts.count("data"), 0);
    EXPECT_EQ(facts.count("subtitle"), 0);
}

TEST(ExportFacts, ReportsEachWholePercentOnceAndTheEndOnceMore)
{
    const TemporaryFolder folder;
    FootageSpec above = film(Side::above, 250);
    above.scene = Scene::plain;
    FootageSpec below = film(Side::below, 250);
    below.scene = Scene::plain;
    const ExportReport report =
        runExport(compositeOf({FootageMaker::make(above)}, {FootageMaker::make(below)}), folder.file("movie.mp4"));
    ASSERT_EQ(report.error(), "");
    std::vector<double> expected;
    for (int frame = 1; frame <= 250; ++frame) {
        const double fraction = frame / 250.0;
        const double last = expected.empty() ? 0 : expected.back();
        if (fraction >= 1 || std::trunc(last * 100) < std::trunc(fraction * 100))
            expected.push_back(fraction);
    }
    ASSERT_LE(expected.size(), 100u);
    expected.push_back(1); // and the end once more
    EXPECT_EQ(report.progress, expected);
}

TEST(ExportFacts, LeavesTheEventLoopTurning)
{
    const TemporaryFolder folder;
    FootageSpec above = film(Side::above, 200);
    above.scene = Scene::plain;
    FootageSpec below = film(Side::below, 200);
    below.scene = Scene::plain;
    const ExportReport report =
        runExport(compositeOf({FootageMaker::make(above)}, {FootageMaker::make(below)}), folder.file("movie.mp4"));
    ASSERT_EQ(report.error(), "");
    EXPECT_GT(report.turnsOfTheEventLoop, 20);
}

}
