// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/AxisFilter.h"

#include <gtest/gtest.h>
#include <numeric>

namespace zumeta {

namespace {

int sumOfWeights(const AxisFilter& filter, int index)
{
    return std::accumulate(filter.weightsOf(index), filter.weightsOf(index) + filter.taps, 0);
}

}

TEST(AxisFilter, WeightsOfEverySampleAddUpToOneExactly)
{
    for (const double step : {0.01, 0.37, 0.8196721311475409, 1.0, 1.5, 2.0, 3.3, 17.7, 400.0}) {
        const AxisFilter filter = makeAxisFilter({0.31, step}, 0, 200, 300);
        for (int i = 0; i < filter.count; ++i)
            ASSERT_EQ(sumOfWeights(filter, i), kWeightOne) << "step " << step << " sample " << i;
    }
}

TEST(AxisFilter, AGainScalesTheSum)
{
    const AxisFilter filter = makeAxisFilter({0.31, 0.9}, 0, 100, 100, 219.0 / 255);
    for (int i = 0; i < filter.count; ++i)
        ASSERT_EQ(sumOfWeights(filter, i), 14071);
}

TEST(AxisFilter, HalfwayBetweenSamplesItHasTheCubicsWeights)
{
    const AxisFilter filter = makeAxisFilter({10.5, 1}, 0, 1, 100);
    ASSERT_EQ(filter.taps, 4);
    EXPECT_EQ(filter.first[0], 9);
    EXPECT_EQ(std::vector<int16_t>(filter.weightsOf(0), filter.weightsOf(0) + 4),
              (std::vector<int16_t>{-1024, 9216, 9216, -1024}));
}

TEST(AxisFilter, EveryTapLiesInsideTheSource)
{
    for (const int size : {1, 2, 3, 5, 8, 100}) {
        for (const double step : {0.02, 1.0, 2.5, 60.0}) {
            const AxisFilter filter = makeAxisFilter({-7.3, step}, 0, 150, size);
            for (int i = 0; i < filter.count; ++i) {
                ASSERT_GE(filter.first[size_t(i)], 0);
                ASSERT_LE(filter.first[size_t(i)] + filter.taps, size);
            }
        }
    }
}

TEST(AxisFilter, SourceSamplesAreReadInRisingOrder)
{
    // Rows are scaled across once and dropped: a window that went back would ask for one that is gone.
    for (const double step : {0.25, 0.5, 0.9999999, 1.0000001, 1.5, 3.0}) {
        const AxisFilter filter = makeAxisFilter({-3.0, step}, 0, 400, 250);
        for (int i = 1; i < filter.count; ++i)
            ASSERT_GE(filter.first[size_t(i)], filter.first[size_t(i - 1)]);
    }
}

TEST(AxisFilter, BeyondTheSourceItsEdgeIsRepeated)
{
    const AxisFilter filter = makeAxisFilter({-10, 1}, 0, 3, 100);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(filter.first[size_t(i)] == 0 && filter.weightsOf(i)[0] == kWeightOne, true) << i;
}

TEST(AxisFilter, AWholeShiftIsRecognisedAsOne)
{
    EXPECT_EQ(makeAxisFilter({12, 1}, 5, 50, 100).pureShift(), 12);
    EXPECT_EQ(makeAxisFilter({-3.0000000001, 1}, 5, 50, 100).pureShift(), -3);
    EXPECT_FALSE(makeAxisFilter({12.01, 1}, 5, 50, 100).pureShift());
    EXPECT_FALSE(makeAxisFilter({12, 1.001}, 5, 50, 100).pureShift());
    EXPECT_FALSE(makeAxisFilter({12, 1}, 5, 50, 100, 0.8).pureShift()) << "a gain is more than a shift";
    EXPECT_FALSE(makeAxisFilter({80, 1}, 5, 50, 100).pureShift()) << "the edge is repeated";
}

TEST(AxisFilter, AnEndlessStepTakesTheMeanOfTheSource)
{
    for (const double step : {1e6, 1e300}) {
        const AxisFilter filter = makeAxisFilter({50, step}, 0, 1, 100);
        ASSERT_EQ(sumOfWeights(filter, 0), kWeightOne);
        // Samples beyond the edges repeat them, so only those between have equal weights.
        for (int t = 1; t < 99; ++t)
            ASSERT_NEAR(filter.weightsOf(0)[t], kWeightOne / 400, 2);
    }
}

TEST(AxisFilter, ShrinkingWidensTheKernel)
{
    EXPECT_EQ(makeAxisFilter({0.5, 2}, 0, 10, 1000).taps, 8);
    EXPECT_EQ(makeAxisFilter({0.25, 0.5}, 0, 10, 1000).taps, 4);
}

}
