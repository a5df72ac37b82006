// SPDX-License-Identifier: GPL-3.0-or-later
#include "Films.h"
#include "PlayerHarness.h"
#include "platform/Log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>

namespace zumeta::test {

namespace {

const FilmKind& kind(std::string_view name)
{
    for (const FilmKind& one : filmKinds()) {
        if (one.name == name)
            return one;
    }
    throw std::runtime_error("no such film");
}

FileUrl fileOf(const Film& film)
{
    return film.source.video().front().asset.url;
}

/// The same recording, smaller and of key frames alone.
FileUrl proxyOf(const Film& film)
{
    return FileUrl(FootageMaker::derive({"-i", fileOf(film).path().string(), "-vf", "scale=128:72", "-fps_mode",
                                         "passthrough", "-c:v", "libx264", "-g", "1"},
                                        "mp4"));
}

/// What the sound of a player was told last.
struct Followed {
    bool hasItem = false;
    double seconds = -1;
    double rate = -1;
};

class NotedSound final : public PlayerSound {
public:
    explicit NotedSound(Followed& followed)
        : m_followed(followed)
    {}
    void setItem(std::optional<PlayerItem> item) override { m_followed.hasItem = item.has_value(); }
    void follow(double seconds, double, double rate) override
    {
        m_followed.seconds = seconds;
        m_followed.rate = rate;
    }

private:
    Followed& m_followed;
};

}

TEST(MoviePlayer, ShowsTheFirstFrameOfANewItem)
{
    PlayerHarness harness;
    EXPECT_FALSE(harness.shown());
    harness.player.replaceCurrentItem(filmOf(kind("OpenGroups")).source);
    EXPECT_EQ(numberOf(harness.exactPicture()), 0);
    EXPECT_GT(harness.pictureChanges, 0);
}

TEST(MoviePlayer, OpensAFileByItselfAndTellsItsLength)
{
    const Film film = filmOf(kind("Rate23976"));
    PlayerHarness harness;
    harness.player.replaceCurrentItem(fileOf(film));
    EXPECT_EQ(numberOf(harness.exactPicture()), 0);
    harness.seek(1000);
    EXPECT_EQ(harness.player.currentTime(), film.source.duration());
    EXPECT_EQ(numberOf(harness.exactPicture()), film.numbers.back());
}

TEST(MoviePlayer, NeverShowsTheOldItemsPictureAsThatOfAnItemThatStartsOver)
{
    PlayerHarness harness;
    harness.player.replaceCurrentItem(filmOf(kind("OpenGroups")).source);
    harness.seek(1);
    ASSERT_TRUE(harness.exactPicture());
    harness.player.replaceCurrentItem(filmOf(kind("KeyFramesOnly")).source);
    const auto picture = harness.shown();
    EXPECT_TRUE(!picture || numberOf(picture) == 0);
    EXPECT_EQ(numberOf(harness.exactPicture()), 0);
    EXPECT_EQ(harness.player.currentTime(), MediaTime{});
}

TEST(MoviePlayer, ShowsNothingWithoutAnItem)
{
    PlayerHarness harness;
    harness.player.replaceCurrentItem(filmOf(kind("OpenGroups")).source);
    ASSERT_TRUE(harness.exactPicture());
    harness.player.replaceCurrentItem(std::nullopt);
    EXPECT_FALSE(harness.shown());
    harness.seek(1);
    EXPECT_EQ(harness.player.currentTime(), MediaTime{});
}

TEST(MoviePlayer, SwitchesBetweenSourceAndProxyOnTheSameFrame)
{
    const Film film = filmOf(kind("Rate23976"));
    PlayerHarness harness;
    harness.player.replaceCurrentItem(film.source);
    harness.seek(1.3);
    const auto before = numberOf(harness.exactPicture());
    for (const FileUrl& file : {proxyOf(film), fileOf(film)}) {
        harness.player.replaceCurrentItem(file, ItemChange::keepsTime);
        bool alwaysTheSame = true;
        harness.waitUntil([&] {
            const auto picture = harness.shown();
            alwaysTheSame = alwaysTheSame && numberOf(picture) == before;
            return picture && picture->isExact;
        });
        EXPECT_TRUE(alwaysTheSame);
        EXPECT_EQ(harness.shown()->picture.format.width, file == fileOf(film) ? 192 : 128);
        EXPECT_EQ(harness.player.currentTime(), (MediaTime{13, 10}));
    }
}

TEST(MoviePlayer, ASwitchWhilePlayingKeepsTimeAndRate)
{
    const Film film = filmOf(kind("LongGroupsWithBFrames"));
    PlayerHarness harness;
    harness.player.replaceCurrentItem(film.source);
    ASSERT_TRUE(harness.exactPicture());
    harness.player.setRate(0.5);
    harness.time.advance(2);
    harness.player.replaceCurrentItem(proxyOf(film), ItemChange::keepsTime);
    EXPECT_TRUE(harness.shown());
    harness.time.advance(1);
    EXPECT_EQ(harness.player.rate(), 0.5);
    EXPECT_EQ(numberOf(harness.exactPictureWhilePlaying()), film.numberAt(1.5));
}

TEST(MoviePlayer, AProxyThatCannotBeReadLeavesPictureAndTime)
{
    const Film film = filmOf(kind("Rate23976"));
    PlayerHarness harness;
    harness.player.replaceCurrentItem(film.source);
    harness.seek(1.3);
    const auto before = numberOf(harness.exactPicture());
    std::atomic<int> lines = 0;
    const LogCapture capture([&lines](const QString&) { ++lines; });
    harness.player.replaceCurrentItem(FileUrl(std::filesystem::path("/nowhere/proxy.mp4")), ItemChange::keepsTime);
    EXPECT_TRUE(harness.waitUntil([&lines] { return lines > 0; }));
    EXPECT_EQ(numberOf(harness.shown()), before);
    EXPECT_EQ(harness.player.currentTime(), (MediaTime{13, 10}));
}

TEST(MoviePlayer, AnImpreciseSeekShowsTheKeyFrameAtOrBeforeTheTarget)
{
    FootageSpec spec;
    spec.frames = 60;
    spec.encoder = {"-c:v", "libx264", "-x264-params", "keyint=12:min-keyint=12:scenecut=0:bframes=2"};
    PlayerHarness harness;
    harness.player.replaceCurrentItem(MediaComposition(MediaAsset::load(FileUrl(FootageMaker::make(spec)))));
    ASSERT_TRUE(harness.exactPicture());
    for (const int frame : {32, 12, 59, 7, 36}) {
        harness.seek(frame / 30.0, SeekTolerance::infinite);
        EXPECT_EQ(numberOf(harness.exactPicture()), frame / 12 * 12) << frame;
        EXPECT_EQ(harness.player.currentTime(), MediaTime::nearest(frame / 30.0, kSeekTimescale));
    }
    harness.seek(32 / 30.0);
    EXPECT_EQ(numberOf(harness.exactPicture()), 32);
}

TEST(MoviePlayer, TheNewestSeekWins)
{
    const Film film = filmOf(kind("LongGroupsWithBFrames"));
    PlayerHarness harness;
    harness.player.replaceCurrentItem(film.source);
    for (int i = 0; i < 40; ++i)
        harness.seek(0.1 * (i * 37 % 50));
    harness.seek(2.21);
    EXPECT_EQ(numberOf(harness.exactPicture()), film.numberAt(2.21));
}

TEST(MoviePlayer, ASeekInsideTheCacheShowsAtOnce)
{
    const Film film = filmOf(kind("OpenGroups"));
    PlayerHarness harness;
    harness.player.replaceCurrentItem(film.source);
    harness.seek(1);
    ASSERT_TRUE(harness.exactPicture());
    harness.seek(1 - 1.0 / 30);
    ASSERT_TRUE(harness.exactPicture());
    const int changes = harness.pictureChanges;
    harness.seek(1);
    ASSERT_TRUE(harness.shown() && harness.shown()->isExact);
    EXPECT_EQ(numberOf(harness.shown()), film.numberAt(1));
    EXPECT_EQ(harness.pictureChanges, changes); // on a turn of its own
    harness.time.runDueWork();
    EXPECT_EQ(harness.pictureChanges, changes + 1);
}

TEST(MoviePlayer, APlayerThatStandsHasNothingNewToShow)
{
    PlayerHarness harness;
    harness.player.replaceCurrentItem(filmOf(kind("OpenGroups")).source);
    harness.seek(1);
    ASSERT_TRUE(harness.exactPicture());
    harness.time.runDueWork();
    const int changes = harness.pictureChanges;
    harness.letPass(std::chrono::milliseconds(200)); // it reads ahead
    harness.time.advance(10);
    EXPECT_EQ(harness.pictureChanges, changes);
}

TEST(MoviePlayer, ASeekOfAPlayerInASlowPlaceShowsTheNearestFrameMeanwhile)
{
    const Film film = filmOf(kind("LongGroupsWithBFrames"));
    PlayerHarness harness;
    harness.player.replaceCurrentItem(film.source);
    ASSERT_TRUE(harness.exactPicture());
    harness.seek(4.5);
    const auto meanwhile = harness.shown();
    ASSERT_TRUE(meanwhile);
    EXPECT_FALSE(meanwhile->isExact);
    EXPECT_EQ(numberOf(harness.exactPicture()), film.numberAt(4.5));
}

TEST(MoviePlayer, StopsAtTheEndsAndShowsTheLastAndTheFirstFrame)
{
    const Film film = filmOf(kind("Chapters"));
    PlayerHarness harness;
    harness.player.replaceCurrentItem(film.source);
    harness.player.setRate(4);
    harness.time.advance(5);
    EXPECT_EQ(harness.player.rate(), 0);
    EXPECT_EQ(numberOf(harness.exactPicture()), film.numbers.back());
    harness.player.setRate(-2);
    harness.time.advance(5);
    EXPECT_EQ(harness.player.rate(), 0);
    EXPECT_EQ(numberOf(harness.exactPicture()), film.numbers.front());
}

TEST(MoviePlayer, ItsSoundFollowsWhatItDoes)
{
    const Film film = filmOf(kind("Chapters"));
    Followed followed;
    PlayerHarness harness({}, std::make_unique<NotedSound>(followed));
    harness.player.replaceCurrentItem(film.source);
    EXPECT_TRUE(followed.hasItem);
    EXPECT_EQ(followed.rate, 0);
    harness.seek(1);
    EXPECT_EQ(followed.seconds, 1);
    harness.player.play();
    EXPECT_EQ(followed.rate, 1);
    harness.time.advance(10);
    EXPECT_EQ(followed.rate, 0); // at the end
    EXPECT_EQ(followed.seconds, film.length());
    harness.player.replaceCurrentItem(std::nullopt);
    EXPECT_FALSE(followed.hasItem);
}

namespace {

struct Run {
    const char* film;
    double rate;
};

std::ostream& operator<<(std::ostream& out, const Run& run)
{
    return out << run.film << " at " << run.rate;
}

class PlayingThrough : public testing::TestWithParam<Run> {};

}

TEST_P(PlayingThrough, ShowsEveryFrameInItsTurn)
{
    const auto& [name, rate] = GetParam();
    const Film film = filmOf(kind(name));
    MoviePlayerOptions options;
    options.cacheBytes = 192 * 108 * 3 / 2 * 20; // twenty frames
    PlayerHarness harness(options);
    harness.player.replaceCurrentItem(film.source);
    harness.seek(rate < 0 ? film.length() : 0);
    ASSERT_TRUE(harness.exactPicture());
    harness.player.setRate(rate);
    std::vector<int> shown;
    const double step = film.length() / double(film.numbers.size()) / std::abs(rate) / 2;
    while (harness.player.rate() != 0) {
        harness.time.advance(step);
        const auto number = numberOf(harness.exactPictureWhilePlaying());
        ASSERT_TRUE(number);
        if (shown.empty() || shown.back() != *number)
            shown.push_back(*number);
    }
    std::vector<int> expected = film.numbers;
    if (rate < 0)
        std::reverse(expected.begin(), expected.end());
    EXPECT_EQ(shown, expected);
}

INSTANTIATE_TEST_SUITE_P(MoviePlayer, PlayingThrough,
                         testing::Values(Run{"Chapters", 1}, Run{"Chapters", -1}, Run{"LongGroupsWithBFrames", 1},
                                         Run{"LongGroupsWithBFrames", -1}, Run{"KeyFramesOnly", -1},
                                         Run{"OpenGroups", 0.5}, Run{"OpenGroups", -0.5}, Run{"Hevc", -1},
                                         Run{"IntraRefresh", -1}),
                         [](const auto& run) {
                             return std::string(run.param.film) + (run.param.rate < 0 ? "Backward" : "Forward");
                         });

}
