// SPDX-License-Identifier: GPL-3.0-or-later
// A user's whole afternoon in one process: one swim after the other is made, kept, and later taken up again.
#include "FilmedSwim.h"

#include "support/LongRun.h"

#include <fstream>
#include <gmock/gmock.h>
#include <iostream>
#include <malloc.h>
#include <unistd.h>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
// GCC comes without the header that declares it.
extern "C" size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace zumeta::test {
namespace {

using WorkflowStep = CompositorViewModel::WorkflowStep;

int entriesOf(const char* folder)
{
    return int(std::distance(std::filesystem::directory_iterator(folder), std::filesystem::directory_iterator()));
}

/// What the process holds at one moment.
struct Holdings {
    int threads = 0;
    int descriptors = 0;
    double heap = 0;     ///< MiB that were asked for and not given back
    double resident = 0; ///< MiB; with what the allocator keeps in store for each of many threads

    static Holdings now()
    {
        Holdings holdings;
        holdings.threads = entriesOf("/proc/self/task");
        holdings.descriptors = entriesOf("/proc/self/fd");
        constexpr double kMebibyte = 1024 * 1024;
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
        holdings.heap = double(__sanitizer_get_current_allocated_bytes()) / kMebibyte;
#else
        ::malloc_trim(0);
        const struct mallinfo2 info = ::mallinfo2();
        holdings.heap = double(info.uordblks + info.hblkhd) / kMebibyte;
        std::ifstream file("/proc/self/statm");
        double total = 0;
        file >> total >> holdings.resident;
        holdings.resident *= double(::sysconf(_SC_PAGESIZE)) / kMebibyte;
#endif
        return holdings;
    }

    bool isWithin(const Holdings& earlier) const
    {
        constexpr double kGrowth = 1.1;
        // The allocator keeps stores for each of many threads, which fill up slowly (20 to 30 MiB): the heap tells of
        // leaks, this of what is taken past it.
        constexpr double kStores = 64;
        return threads <= earlier.threads && descriptors <= earlier.descriptors && heap <= kGrowth * earlier.heap &&
               resident <= earlier.resident + kStores;
    }
    friend std::ostream& operator<<(std::ostream& out, const Holdings& holdings)
    {
        return out << holdings.threads << " threads, " << holdings.descriptors << " descriptors, " << holdings.heap
                   << " MiB on the heap, " << holdings.resident << " MiB resident";
    }
};

struct AnAfternoon : testing::Test {
    static constexpr int kSwims = 12;
    static constexpr int kWarmUp = 2; ///< swims after which nothing may grow any more

    TemporaryFolder folder;
    LiveSession live{folder.path()};
    CompositorViewModel& session = live.session();

    std::filesystem::path place(const char* kind, int swim, const char* extension) const
    {
        return folder.file(kind + std::to_string(swim) + extension);
    }
    std::filesystem::path project(int swim) const { return place("swim", swim, ".zumetaproj"); }
    std::filesystem::path firstMovie(int swim) const { return place("first", swim, ".mp4"); }
    std::filesystem::path secondMovie(int swim) const { return place("second", swim, ".mp4"); }

    /// One swim from its recordings to its movie, and kept.
    void make(int swim);
    /// Another movie of what was kept, which has to be the same.
    void makeAgain(int swim);

    /// What is held while the first of the swims is open and nothing is under way: at every time the same work.
    Holdings atRest()
    {
        session.pressStartOver();
        EXPECT_TRUE(live.restore(project(0)));
        EXPECT_TRUE(live.waitForProxy(Side::above) && live.waitForProxy(Side::below));
        session.dismissExportNotification();
        // The players go on decoding for a while after the last thing that they were asked for.
        double before = 0;
        const auto isStill = [&] {
            before = Holdings::now().heap;
            live.run(0.1);
            return std::abs(Holdings::now().heap - before) < 0.01;
        };
        EXPECT_TRUE(live.waitFor(isStill));
        return Holdings::now();
    }

    /// Threads of pools go half a minute after their last work, and take a descriptor along.
    void expectNoMoreThan(const Holdings& earlier, const char* what)
    {
        Holdings held = atRest();
        live.waitFor(
            [&] {
                held = Holdings::now();
                return held.isWithin(earlier);
            },
            45);
        EXPECT_TRUE(held.isWithin(earlier))
            << "after the second: " << earlier << "\nwhen all were " << what << ": " << held;
        std::cout << "Two swims made: " << earlier << "\nTwelve swims " << what << ": " << held << '\n';
    }
};

void AnAfternoon::makeAgain(int i)
{
    SCOPED_TRACE("swim " + std::to_string(i) + ", restored");
    const FilmedSwim swim = FilmedSwim::numbered(i);
    ASSERT_TRUE(live.restore(project(i)));
    EXPECT_EQ(session.currentStep(), WorkflowStep::step3);
    session.setSelectedResolution(swim.resolution);
    std::filesystem::remove(secondMovie(i));
    ASSERT_TRUE(live.exportTo(secondMovie(i)));
    expectEqualMovies(swim, secondMovie(i), firstMovie(i));
    if (HasFailure())
        expectMovieOf(swim, secondMovie(i)); // tells what is wrong with it
}

void AnAfternoon::make(int i)
{
    SCOPED_TRACE("swim " + std::to_string(i));
    const FilmedSwim swim = FilmedSwim::numbered(i);
    session.pressStartOver();
    ASSERT_NO_FATAL_FAILURE(makeComposition(live, swim));
    ASSERT_TRUE(live.exportTo(firstMovie(i)));
    ASSERT_TRUE(live.keep(project(i)));
    expectMovieOf(swim, firstMovie(i));
}

TEST_F(AnAfternoon, OfTwelveSwimsLeavesTwelveMoviesThatCanBeMadeAgainAndNothingElse)
{
    Holdings afterTheSecond;
    for (int i = 0; i < kSwims; ++i) {
        ASSERT_NO_FATAL_FAILURE(make(i));
        if (i + 1 == kWarmUp)
            afterTheSecond = atRest();
    }
    expectNoMoreThan(afterTheSecond, "made");

    const int times = longRun() ? 4 : 1;
    for (int i = 0; i < times * kSwims; ++i)
        ASSERT_NO_FATAL_FAILURE(makeAgain(i % kSwims));
    expectNoMoreThan(afterTheSecond, "restored");
}

}
}
