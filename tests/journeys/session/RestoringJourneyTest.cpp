// SPDX-License-Identifier: GPL-3.0-or-later
// A composition is kept, the program ends, and another run takes it up again, wherever its recordings went meanwhile.
#include "FilmedSwim.h"

#include "platform/Log.h"

#include <QElapsedTimer>
#include <QTimer>
#include <fstream>
#include <gmock/gmock.h>
#include <sys/stat.h>

namespace zumeta::test {
namespace {

namespace fs = std::filesystem;
using WorkflowStep = CompositorViewModel::WorkflowStep;
using testing::Contains;
using testing::ElementsAre;
using testing::Gt;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::Pair;

constexpr const char* kStaleAbove = "⚠️ Stale bookmark for: above.mp4 — will refresh on next save";
constexpr const char* kStale = "⚠️ Stale bookmark for: ";

struct RestoringJourney : testing::Test {
    TemporaryFolder proxies;
    TemporaryFolder output;
    TemporaryFolder disk;
    TemporaryFolder elsewhere; ///< no search comes here
    const fs::path swims = disk.file("swims");
    const fs::path recordings = swims / "recordings";
    const fs::path project = swims / "swim.zumetaproj";
    const FilmedSwim swim = FilmedSwim::numbered(4).copiedTo(recordings);
    VideoCompositionConfig kept;
    double duration = 0;
    std::vector<std::pair<int, int>> pictures; ///< above and below, at some times of the composite
    std::vector<std::string> log;
    const LogCapture capture{[this](const QString& line) { log.push_back(line.toStdString()); }};

    void SetUp() override
    {
        LiveSession live(proxies.path());
        ASSERT_NO_FATAL_FAILURE(makeComposition(live, swim));
        kept = live.session().projectConfig();
        duration = live.session().duration();
        pictures = picturesIn(live);
        ASSERT_THAT(pictures, Not(Contains(Pair(-1, testing::_))));
        ASSERT_TRUE(live.keep(project));
    }

    static std::vector<std::pair<int, int>> picturesIn(LiveSession& live)
    {
        std::vector<std::pair<int, int>> numbers;
        for (const double time : {0.0, 0.31, 0.9, 1.42}) {
            live.session().seek(time, true);
            numbers.push_back(live.shownNumbers());
        }
        return numbers;
    }

    void expectTheComposition(LiveSession& live) const
    {
        CompositorViewModel& session = live.session();
        EXPECT_EQ(session.currentStep(), WorkflowStep::step3);
        EXPECT_EQ(session.projectConfig(), kept);
        EXPECT_EQ(session.manualSyncTimeAbove(), kept.aboveStartTime);
        EXPECT_EQ(session.manualSyncTimeBelow(), kept.belowStartTime);
        EXPECT_NEAR(session.relativeWaterlineHeight(), swim.relativeWaterlineHeight, 1e-9);
        EXPECT_NEAR(session.relativeAboveOffset(), swim.relativeAboveOffset, 1e-9);
        EXPECT_EQ(session.duration(), duration);
        EXPECT_FALSE(session.isAboveMissing());
        EXPECT_FALSE(session.isBelowMissing());
        EXPECT_FALSE(session.showMissingFileAlert());
        EXPECT_THAT(live.dialogs().shown, IsEmpty());
        EXPECT_EQ(picturesIn(live), pictures);
    }

    /// The movie that the session makes now, as what it holds.
    std::string movieOf(LiveSession& live, const char* name) const
    {
        live.session().setSelectedResolution(swim.resolution);
        EXPECT_TRUE(live.exportTo(output.file(name)));
        return contentWithoutIdAndDate(output.file(name));
    }
    /// What a run that found everything would make.
    std::string movieOfTheKept() const
    {
        LiveSession live(proxies.path());
        EXPECT_TRUE(live.restore(project));
        fs::remove(output.file("kept.mp4"));
        return movieOf(live, "kept.mp4");
    }
};

TEST_F(RestoringJourney, AnotherRunBringsBackValuesLocksVideosStepAndPictures)
{
    log.clear();
    LiveSession next(proxies.path());
    ASSERT_TRUE(next.restore(project));
    expectTheComposition(next);
    EXPECT_EQ(next.session().aboveVideoURL(), FileUrl(swim.aboveFile));
    EXPECT_EQ(next.session().belowVideoURL(), FileUrl(swim.belowFile));
    EXPECT_THAT(log, Contains("Project loaded from " + project.string()));
    EXPECT_THAT(log, Not(Contains(HasSubstr(kStale))));
}

TEST_F(RestoringJourney, TheMovieOfAnotherRunIsTheSame)
{
    const std::string movie = movieOfTheKept();
    expectMovieOf(swim, output.file("kept.mp4"));
    EXPECT_EQ(movieOfTheKept(), movie);
}

/// Where the recordings and the project lie after a move.
struct Move {
    const char* name;
    void (*move)(const fs::path& swims, const fs::path& project, const fs::path& otherDisk);
    const char* newProject; ///< below "swims", or below the other disk when it begins with "/"
};

std::ostream& operator<<(std::ostream& out, const Move& move)
{
    return out << move.name;
}

/// As one moves from disk to disk: everything is a new file there, of its old time, and the old one goes.
void moveToAnotherDisk(const fs::path& from, const fs::path& to)
{
    fs::copy(from, to, fs::copy_options::recursive);
    for (const auto& entry : fs::recursive_directory_iterator(from)) {
        if (entry.is_regular_file())
            fs::last_write_time(to / fs::relative(entry.path(), from), entry.last_write_time());
    }
    fs::remove_all(from);
}

const Move kMoves[] = {
    {"RenamedInTheirFolder",
     [](const fs::path& swims, const fs::path&, const fs::path&) {
         fs::rename(swims / "recordings/above.mp4", swims / "recordings/GX010042.mp4");
         fs::rename(swims / "recordings/below.mp4", swims / "recordings/GX010043.mp4");
     },
     "swim.zumetaproj"},
    {"NamesExchanged",
     [](const fs::path& swims, const fs::path&, const fs::path&) {
         fs::rename(swims / "recordings/above.mp4", swims / "recordings/x");
         fs::rename(swims / "recordings/below.mp4", swims / "recordings/above.mp4");
         fs::rename(swims / "recordings/x", swims / "recordings/below.mp4");
     },
     "swim.zumetaproj"},
    {"InAFolderBelowTheProject",
     [](const fs::path& swims, const fs::path&, const fs::path&) {
         fs::create_directories(swims / "sorted/by day");
         fs::rename(swims / "recordings", swims / "sorted/by day/saturday");
     },
     "swim.zumetaproj"},
    {"InANeighbouringFolder",
     [](const fs::path& swims, const fs::path& project, const fs::path& otherDisk) {
         fs::rename(swims / "recordings", swims / "neighbours");
         // Not found from the project, which is away.
         fs::copy_file(project, otherDisk / "swim.zumetaproj");
     },
     "/swim.zumetaproj"},
    {"WithTheProjectOnAnotherDisk",
     [](const fs::path& swims, const fs::path&, const fs::path& otherDisk) {
         moveToAnotherDisk(swims, otherDisk / "swims");
     },
     "/swims/swim.zumetaproj"},
};

struct EveryMove : RestoringJourney, testing::WithParamInterface<Move> {
    TemporaryFolder otherDisk{"/dev/shm"};
};

TEST_P(EveryMove, IsFoundShownAndKeptAnew)
{
    struct stat here {};
    struct stat there {};
    ASSERT_EQ(::stat(disk.path().c_str(), &here), 0);
    ASSERT_EQ(::stat(otherDisk.path().c_str(), &there), 0);
    ASSERT_NE(here.st_dev, there.st_dev) << "both are one disk here";
    GetParam().move(swims, project, otherDisk.path());
    const std::string place = GetParam().newProject;
    const fs::path moved = place.front() == '/' ? otherDisk.path() / place.substr(1) : swims / place;
    {
        log.clear();
        LiveSession next(proxies.path());
        ASSERT_TRUE(next.restore(moved));
        expectTheComposition(next);
        EXPECT_THAT(log, Contains(HasSubstr(kStale)).Times(2));
        ASSERT_TRUE(next.keep(moved));
    }
    log.clear();
    LiveSession last(proxies.path());
    ASSERT_TRUE(last.restore(moved));
    expectTheComposition(last);
    EXPECT_THAT(log, Not(Contains(HasSubstr(kStale))));
}

INSTANTIATE_TEST_SUITE_P(Recordings, EveryMove, testing::ValuesIn(kMoves),
                         [](const auto& move) { return std::string(move.param.name); });

TEST_F(RestoringJourney, AnotherVideoAtTheSamePathIsNotMistaken)
{
    const fs::path other = FilmedSwim::numbered(6).file(Side::below);
    for (const bool inPlace : {false, true}) {
        if (!inPlace)
            fs::remove(swim.belowFile);
        fs::copy_file(other, swim.belowFile, fs::copy_options::overwrite_existing);
        LiveSession next(proxies.path());
        ASSERT_TRUE(next.restore(project));
        EXPECT_TRUE(next.session().isBelowMissing());
        EXPECT_TRUE(next.session().showMissingFileAlert());
        EXPECT_FALSE(next.session().belowVideoURL());
        EXPECT_EQ(next.session().aboveVideoURL(), FileUrl(swim.aboveFile));
        EXPECT_EQ(next.session().currentStep(), WorkflowStep::step1);
    }
}

TEST_F(RestoringJourney, AMissingSideComesBackWithAllWork)
{
    const std::string movie = movieOfTheKept();
    fs::rename(swim.belowFile, elsewhere.file("found.mp4"));
    LiveSession next(proxies.path());
    CompositorViewModel& session = next.session();
    ASSERT_TRUE(next.restore(project));
    ASSERT_TRUE(session.isBelowMissing());
    ASSERT_TRUE(session.showMissingFileAlert());
    session.reconnectBelowVideo({elsewhere.url("found.mp4")});
    ASSERT_TRUE(next.waitFor([&] { return !session.isBelowMissing(); }));
    EXPECT_GT(session.projectConfig().exportTrimEndSeconds, 0);
    expectTheComposition(next);
    EXPECT_TRUE(movieOf(next, "reconnected.mp4") == movie);
    // And with its new place it is kept.
    ASSERT_TRUE(next.keep(project));
    next.endSession();
    LiveSession last(proxies.path());
    ASSERT_TRUE(last.restore(project));
    expectTheComposition(last);
}

TEST_F(RestoringJourney, BothSidesComeBackOneAfterTheOther)
{
    fs::rename(recordings, elsewhere.file("recordings"));
    LiveSession next(proxies.path());
    CompositorViewModel& session = next.session();
    ASSERT_TRUE(next.restore(project));
    ASSERT_TRUE(session.isAboveMissing());
    ASSERT_TRUE(session.isBelowMissing());
    session.reconnectAboveVideo({elsewhere.url("recordings/above.mp4")});
    ASSERT_TRUE(next.waitFor([&] { return !session.isAboveMissing(); }));
    EXPECT_TRUE(session.showMissingFileAlert());
    session.reconnectBelowVideo({elsewhere.url("recordings/below.mp4")});
    ASSERT_TRUE(next.waitFor([&] { return !session.isBelowMissing(); }));
    expectTheComposition(next);
}

TEST_F(RestoringJourney, TheMovieIsMadeOfTheVideosThatAreShown)
{
    const std::string movie = movieOfTheKept();
    fs::rename(recordings, swims / "moved");
    FilmedSwim::numbered(6).copiedTo(recordings); // other videos where these were
    LiveSession next(proxies.path());
    ASSERT_TRUE(next.restore(project));
    expectTheComposition(next);
    EXPECT_TRUE(movieOf(next, "moved.mp4") == movie);
    expectMovieOf(swim, output.file("moved.mp4"));
}

TEST_F(RestoringJourney, OpensOverAnotherCompositionOfAnotherShape)
{
    LiveSession next(proxies.path());
    const FilmedSwim other = FilmedSwim::numbered(5);
    ASSERT_NE(other.above.height, swim.above.height);
    ASSERT_NO_FATAL_FAILURE(makeComposition(next, other));
    ASSERT_TRUE(next.keep(output.file("other.zumetaproj")));
    const auto otherPictures = picturesIn(next);
    next.session().play();
    next.run(0.2);
    ASSERT_TRUE(next.restore(project));
    expectTheComposition(next);
    ASSERT_TRUE(next.restore(output.file("other.zumetaproj")));
    EXPECT_EQ(picturesIn(next), otherPictures);
    EXPECT_EQ(next.session().projectState().projectAspectRatio, (AspectRatio{4, 3}));
    EXPECT_THAT(next.dialogs().shown, IsEmpty());
}

TEST_F(RestoringJourney, ADiskThatTakesTwoSecondsToAnswerLosesNeitherLocksNorTrims)
{
    const std::string movie = movieOfTheKept();
    LiveSession next(proxies.path());
    next.setDiskDelay(2);
    QElapsedTimer clock;
    clock.start();
    ASSERT_TRUE(next.restore(project));
    EXPECT_GE(clock.elapsed(), 2000);
    expectTheComposition(next);
    EXPECT_TRUE(movieOf(next, "slow.mp4") == movie);
}

TEST_F(RestoringJourney, AReconnectFromASlowDiskLosesNothingEither)
{
    fs::rename(swim.aboveFile, elsewhere.file("above.mp4"));
    LiveSession next(proxies.path());
    CompositorViewModel& session = next.session();
    ASSERT_TRUE(next.restore(project));
    ASSERT_TRUE(session.isAboveMissing());
    next.setDiskDelay(2);
    session.reconnectAboveVideo({elsewhere.url("above.mp4")});
    ASSERT_TRUE(next.waitFor([&] { return !session.isAboveMissing(); }));
    expectTheComposition(next);
}

TEST_F(RestoringJourney, ProxiesAreFoundAgain)
{
    const auto proxiesOf = [](LiveSession& live) {
        EXPECT_TRUE(live.waitForProxy(Side::above) && live.waitForProxy(Side::below));
        const ProjectState& state = live.session().projectState();
        return std::pair{state.aboveVideo->proxyURL->path(), state.belowVideo->proxyURL->path()};
    };
    std::pair<fs::path, fs::path> made;
    {
        LiveSession next(proxies.path());
        ASSERT_TRUE(next.restore(project));
        made = proxiesOf(next);
        expectTheComposition(next);
    }
    const auto whenMade = fs::last_write_time(made.first);
    // Moved files are still the same films.
    fs::rename(recordings, swims / "moved");
    LiveSession last(proxies.path());
    ASSERT_TRUE(last.restore(project));
    EXPECT_EQ(proxiesOf(last), made);
    EXPECT_EQ(fs::last_write_time(made.first), whenMade);
    expectTheComposition(last);
}

TEST_F(RestoringJourney, MediaThatAreUnpluggedWhenItIsKeptAgainAreFoundWhenTheyAreBack)
{
    {
        LiveSession next(proxies.path());
        ASSERT_TRUE(next.restore(project));
        fs::rename(recordings, elsewhere.file("recordings"));
        ASSERT_TRUE(next.keep(project));
    }
    {
        LiveSession without(proxies.path());
        ASSERT_TRUE(without.restore(project));
        EXPECT_TRUE(without.session().isAboveMissing());
        EXPECT_TRUE(without.session().isBelowMissing());
    }
    fs::rename(elsewhere.file("recordings"), recordings);
    LiveSession last(proxies.path());
    ASSERT_TRUE(last.restore(project));
    expectTheComposition(last);
}

TEST_F(RestoringJourney, AProjectThatIsOpenedRightAfterAnotherIsTheOneThatStays)
{
    LiveSession next(proxies.path());
    {
        LiveSession maker(proxies.path());
        ASSERT_NO_FATAL_FAILURE(makeComposition(maker, FilmedSwim::numbered(5)));
        ASSERT_TRUE(maker.keep(output.file("other.zumetaproj")));
    }
    next.session().importProject({output.url("other.zumetaproj")});
    next.run(0.25); // its videos are being loaded
    ASSERT_TRUE(next.restore(project));
    next.run(0.5);
    expectTheComposition(next);
}

/// Makes a tree of so many files of one size; sparse, so that they take no room.
void fillWithFiles(const fs::path& folder, int count, uintmax_t size)
{
    constexpr int kPerFolder = 500;
    for (int i = 0; i < count; ++i) {
        const fs::path place = folder / ("day" + std::to_string(i / kPerFolder));
        fs::create_directories(place);
        const fs::path file = place / ("clip" + std::to_string(i) + ".mp4");
        std::ofstream(file).put(char(i));
        fs::resize_file(file, size);
    }
}

TEST_F(RestoringJourney, ASearchAmongThousandsOfFilesEndsInTimeAndHoldsNobodyUp)
{
    // Each has the size of one of those that are missing, so that a look at its name does not rule it out.
    const uintmax_t size = fs::file_size(swim.aboveFile);
    fs::rename(recordings, elsewhere.file("recordings"));
    fillWithFiles(swims, 25'000, size);
    LiveSession next(proxies.path());
    QElapsedTimer sinceTurn;
    qint64 longestGap = 0;
    QTimer turns;
    QObject::connect(&turns, &QTimer::timeout, &turns, [&] { longestGap = std::max(longestGap, sinceTurn.restart()); });
    turns.start(1);
    sinceTurn.start();
    QElapsedTimer clock;
    clock.start();
    ASSERT_TRUE(next.restore(project));
    const qint64 elapsed = clock.elapsed();
    RecordProperty("milliseconds", int(elapsed));
    RecordProperty("longest gap", int(longestGap));
    EXPECT_TRUE(next.session().isAboveMissing());
    EXPECT_TRUE(next.session().isBelowMissing());
    EXPECT_LT(elapsed, 4000); // two seconds of search, half a one of waiting, and what a busy machine adds
    EXPECT_LT(longestGap, 250);
}

}
}
