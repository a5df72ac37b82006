// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/playback/PictureStore.h"

#include <gtest/gtest.h>

#include <limits>

namespace zumeta::test {

namespace {

constexpr double kKeepAll = -std::numeric_limits<double>::infinity();

/// The width says of which item a picture is.
FrameNews frame(int index, int width, bool isComplete = true)
{
    VideoPicture picture;
    picture.format.width = width;
    picture.format.height = 10;
    picture.planes = {PlaneView{nullptr, width}, PlaneView{nullptr, width / 2}, PlaneView{nullptr, width / 2}};
    const MediaTime begin{index, 30};
    return {FrameNews::Kind::picture, begin, isComplete ? std::optional(MediaTime{index + 1, 30}) : std::nullopt, begin,
            picture};
}

PictureDemand at(int index, double rate = 0, SeekTolerance tolerance = SeekTolerance::zero, uint64_t seek = 1)
{
    return {index / 30.0, rate, tolerance, seek};
}

/// Nothing: the index of the shown frame, negative while it is not exact, and the width of its item.
std::optional<std::pair<int, int>> shown(PictureStore& store)
{
    PictureStore::Dropped dropped;
    const auto picture = store.pictureAt(store.demand().seconds, dropped);
    if (!picture)
        return std::nullopt;
    const int index = int(picture->presentationTime.value);
    return std::pair(picture->isExact ? index : -index, picture->picture.format.width);
}

PictureStore storeWith(std::initializer_list<int> frames, const PictureDemand& demand)
{
    PictureStore store(10000);
    store.setDemand(demand);
    for (const int index : frames)
        store.accept(frame(index, 20), kKeepAll);
    return store;
}

void change(PictureStore& store, ItemChange how)
{
    PictureStore::Dropped dropped;
    store.changeItem(how, store.demand(), dropped);
}

}

TEST(PictureStore, ShowsNothingOfTheItemBeforeOnceANewOneStartsOver)
{
    PictureStore store = storeWith({4, 5, 6}, at(5));
    EXPECT_EQ(shown(store), std::pair(5, 20));
    change(store, ItemChange::startsOver);
    EXPECT_FALSE(shown(store));
}

TEST(PictureStore, KeepsTheOldFilesPictureUntilTheNewFilesIsThere)
{
    PictureStore store = storeWith({4, 5, 6}, at(5));
    change(store, ItemChange::keepsTime);
    EXPECT_EQ(shown(store), std::pair(-5, 20));
    store.accept(frame(1, 40), kKeepAll); // on the way to the frame
    EXPECT_EQ(shown(store), std::pair(-5, 20));
    store.accept(frame(5, 40), kKeepAll);
    EXPECT_EQ(shown(store), std::pair(5, 40));
    store.setDemand(at(4, 0, SeekTolerance::zero, 2));
    EXPECT_EQ(shown(store), std::pair(-5, 40)); // the old file's is gone
}

TEST(PictureStore, GoesOnWithTheOldFilesPicturesWhileTheNewOneOpens)
{
    PictureStore store = storeWith({4, 5, 6, 7}, at(5, 1));
    change(store, ItemChange::keepsTime);
    store.setDemand(at(7, 1));
    EXPECT_EQ(shown(store), std::pair(-7, 20));
    change(store, ItemChange::keepsTime); // once more, before anything of the second was there
    EXPECT_EQ(shown(store), std::pair(-7, 20));
}

TEST(PictureStore, AStandingPlayerHasAChangeOnceForEachPictureAndWhenItBecomesExact)
{
    PictureStore store = storeWith({}, at(5));
    EXPECT_FALSE(store.takeChange());
    store.accept(frame(3, 20), kKeepAll);
    EXPECT_TRUE(store.takeChange());
    EXPECT_FALSE(store.takeChange());
    store.accept(frame(2, 20), kKeepAll); // farther away
    EXPECT_FALSE(store.takeChange());
    store.accept(frame(5, 20, false), kKeepAll);
    EXPECT_TRUE(store.takeChange());
    store.accept({FrameNews::Kind::end, {5, 30}, MediaTime{6, 30}, {}}, kKeepAll);
    EXPECT_TRUE(store.takeChange());
}

TEST(PictureStore, ARunningPlayerHasAChangeOnlyWithItsFirstPicture)
{
    PictureStore store = storeWith({}, at(5, 1));
    store.accept(frame(5, 20), kKeepAll);
    EXPECT_TRUE(store.takeChange());
    store.accept(frame(6, 20), kKeepAll);
    store.setDemand(at(6, 1));
    EXPECT_FALSE(store.takeChange());
    store.setDemand(at(6, 0));
    EXPECT_TRUE(store.takeChange());
}

TEST(PictureStore, AnImpreciseSeekIsExactOnItsKeyFrameAlone)
{
    PictureStore store = storeWith({4, 5, 6}, at(5, 0, SeekTolerance::infinite));
    EXPECT_TRUE(store.awaitsLanding());
    EXPECT_EQ(shown(store), std::pair(-5, 20));
    store.land(4 / 30.0);
    EXPECT_FALSE(store.awaitsLanding());
    EXPECT_EQ(shown(store), std::pair(4, 20));
    store.setDemand(at(5, 0, SeekTolerance::zero, 2));
    EXPECT_EQ(shown(store), std::pair(5, 20));
}

TEST(PictureStore, LeavesOutFramesThatAreOnlyPassedThrough)
{
    PictureStore store = storeWith({}, at(9));
    store.accept(frame(3, 20), 5 / 30.0);
    EXPECT_FALSE(shown(store));
    store.accept(frame(8, 20), 5 / 30.0);
    EXPECT_TRUE(shown(store));
}

TEST(PictureStore, WhatCannotBeHadStaysAsItIs)
{
    PictureStore store = storeWith({4, 5}, at(6));
    EXPECT_EQ(shown(store), std::pair(-5, 20));
    store.giveUp(6 / 30.0);
    EXPECT_EQ(shown(store), std::pair(5, 20));
}

TEST(PictureStore, LargePicturesGetRoomForAGroup)
{
    PictureStore store(10000);
    store.setDemand(at(0));
    store.accept(frame(0, 100), kKeepAll); // 1500 bytes
    EXPECT_EQ(store.situation(1.0 / 30, 100).framesInBudget, 16);
    store.accept(frame(0, 20), kKeepAll); // 300
    EXPECT_EQ(store.situation(1.0 / 30, 100).framesInBudget, 33);
}

}
