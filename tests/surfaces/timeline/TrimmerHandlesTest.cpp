// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/timeline/TrimmerGesture.h"

#include "surfaces/timeline/PrintIntents.h"

#include <gmock/gmock.h>

namespace zumeta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kMiddle = 22;
constexpr QPointF kOnStart(60, kMiddle);
constexpr QPointF kOnEnd(310, kMiddle);

/// Ten of width are a second, and time 0 stands at 10. The handles stand at 60 and 310.
Trimmer tenASecond()
{
    return {.scale = {420, 40}, .trimStart = 5, .trimEnd = 10, .markers = {}};
}

/// A trimmer whose trims follow what the gesture asks for.
class HandleDrag {
public:
    explicit HandleDrag(Trimmer trimmer)
        : m_trimmer(std::move(trimmer))
    {}

    TimelineIntents press(QPointF place) { return carriedOut(m_gesture.press(place, m_trimmer)); }
    TimelineIntents move(QPointF place) { return carriedOut(m_gesture.move(place, m_trimmer)); }
    TimelineIntents release(QPointF place) { return carriedOut(m_gesture.release(place, m_trimmer)); }
    TimelineIntents cancel() { return carriedOut(m_gesture.cancel()); }
    const TimelineIntents& all() const { return m_all; }
    const Trimmer& trimmer() const { return m_trimmer; }
    const TrimmerGesture& gesture() const { return m_gesture; }

private:
    TimelineIntents carriedOut(TimelineIntents intents)
    {
        for (const TimelineIntent& intent : intents) {
            if (const auto* start = std::get_if<SetTrimStart>(&intent))
                m_trimmer.trimStart = start->seconds;
            if (const auto* end = std::get_if<SetTrimEnd>(&intent))
                m_trimmer.trimEnd = end->seconds;
        }
        m_all.insert(m_all.end(), intents.begin(), intents.end());
        return intents;
    }

    Trimmer m_trimmer;
    TrimmerGesture m_gesture;
    TimelineIntents m_all;
};

template <typename Intent> auto countOf(const TimelineIntents& intents)
{
    return std::ranges::count_if(intents, [](const auto& intent) { return std::holds_alternative<Intent>(intent); });
}

TEST(TrimHandle, APressSeeksAndStartsNoTrimDrag)
{
    HandleDrag drag(tenASecond());
    EXPECT_THAT(drag.press(kOnStart), ElementsAre(DraggingChanged{true}, Seek{5}));
    EXPECT_TRUE(drag.gesture().isDraggingTime());
    EXPECT_FALSE(drag.gesture().isDraggingStart());
}

TEST(TrimHandle, UnderTenOfMovementThePressStaysASeek)
{
    HandleDrag drag(tenASecond());
    drag.press(kOnStart);
    EXPECT_THAT(drag.move(kOnStart + QPointF(9.9, 0)), ElementsAre(Seek{tenASecond().scale.time(69.9)}));
    EXPECT_THAT(drag.release(kOnStart + QPointF(9.9, 0)), ElementsAre(DraggingChanged{false}));
    EXPECT_EQ(drag.trimmer().trimStart, 5);
}

TEST(TrimHandle, AfterTenOfMovementItGoesToThePointer)
{
    HandleDrag drag(tenASecond());
    drag.press(kOnStart + QPointF(5, 0));
    EXPECT_THAT(drag.move(kOnStart + QPointF(15, 0)), ElementsAre(BeginTrimEdit{}, SetTrimStart{6.5}, Seek{6.5}));
    EXPECT_TRUE(drag.gesture().isDraggingStart());
    EXPECT_FALSE(drag.gesture().isDraggingTime());
}

TEST(TrimHandle, TheWayCountsInAnyDirection)
{
    HandleDrag drag(tenASecond());
    drag.press(kOnStart);
    EXPECT_THAT(drag.move(kOnStart + QPointF(0, 10)), ElementsAre(BeginTrimEdit{}, SetTrimStart{5}, Seek{5}));
}

TEST(TrimHandle, ADragOnceBegunGoesOnNearThePress)
{
    HandleDrag drag(tenASecond());
    drag.press(kOnStart);
    drag.move(kOnStart + QPointF(12, 0));
    EXPECT_THAT(drag.move(kOnStart + QPointF(1, 0)), ElementsAre(SetTrimStart{5.1}, Seek{5.1}));
}

TEST(TrimHandle, TheSeekAndTheDragReportOneTrueAndOneFalse)
{
    for (const QPointF handle : {kOnStart, kOnEnd}) {
        HandleDrag drag(tenASecond());
        drag.press(handle);
        drag.move(handle + QPointF(4, 0));
        drag.move(handle + QPointF(14, 0));
        drag.move(handle + QPointF(24, 0));
        EXPECT_EQ(countOf<DraggingChanged>(drag.all()), 1);
        drag.release(handle + QPointF(24, 0));
        EXPECT_EQ(drag.all().front(), TimelineIntent(DraggingChanged{true}));
        EXPECT_EQ(drag.all().back(), TimelineIntent(DraggingChanged{false}));
        EXPECT_EQ(countOf<DraggingChanged>(drag.all()), 2);
        EXPECT_EQ(drag.gesture().activeDragCount(), 0);
    }
}

TEST(TrimHandle, ADragIsOneEditToUndo)
{
    HandleDrag drag(tenASecond());
    drag.press(kOnEnd);
    for (int i = 0; i < 40; ++i)
        drag.move(kOnEnd - QPointF(i, 0));
    drag.release(kOnEnd - QPointF(40, 0));
    EXPECT_EQ(countOf<BeginTrimEdit>(drag.all()), 1);
}

TEST(TrimHandle, AClickIsNoEdit)
{
    HandleDrag drag(tenASecond());
    drag.press(kOnEnd);
    drag.release(kOnEnd);
    EXPECT_EQ(countOf<BeginTrimEdit>(drag.all()), 0);
}

TEST(TrimHandle, TheEndHandleStoresWhatItCutsOff)
{
    HandleDrag drag(tenASecond());
    drag.press(kOnEnd);
    EXPECT_THAT(drag.move({210, kMiddle}), ElementsAre(BeginTrimEdit{}, SetTrimEnd{20}, Seek{20}));
    EXPECT_TRUE(drag.gesture().isDraggingEnd());
    EXPECT_EQ(drag.trimmer().endX(), 210);
}

TEST(TrimHandle, TheStartStopsAHandlesWidthShortOfTheEnd)
{
    HandleDrag drag(tenASecond());
    drag.press(kOnStart);
    EXPECT_THAT(drag.move({400, kMiddle}), ElementsAre(BeginTrimEdit{}, SetTrimStart{28}, Seek{28}));
}

TEST(TrimHandle, TheLeastDistanceIsAPlaceAndNotATime)
{
    for (const double width : {220.0, 420.0, 1020.0, 2020.0}) {
        Trimmer trimmer = tenASecond();
        trimmer.scale.width = width;
        HandleDrag drag(trimmer);
        drag.press({trimmer.startX(), kMiddle});
        drag.move({width, kMiddle});
        EXPECT_NEAR(drag.trimmer().endX() - drag.trimmer().startX(), 20, 1e-9);
        EXPECT_NEAR(drag.trimmer().trimStart, 30 - 20 * 40 / (width - 20), 1e-9);
    }
}

TEST(TrimHandle, TheEndStopsAHandlesWidthAfterTheStart)
{
    HandleDrag drag(tenASecond());
    drag.press(kOnEnd);
    EXPECT_THAT(drag.move({0, kMiddle}), ElementsAre(BeginTrimEdit{}, SetTrimEnd{33}, Seek{7}));
}

TEST(TrimHandle, EachReachesItsEndOfTheTimeline)
{
    HandleDrag start(tenASecond());
    start.press(kOnStart);
    start.move({-300, kMiddle});
    EXPECT_EQ(start.trimmer().trimStart, 0);
    HandleDrag end(tenASecond());
    end.press(kOnEnd);
    end.move({800, kMiddle});
    EXPECT_EQ(end.trimmer().trimEnd, 0);
}

TEST(TrimHandle, TheHandlesNeverComeCloserWhereverTheyAreDragged)
{
    HandleDrag drag(tenASecond());
    for (int i = 0; i < 400; ++i) {
        const double x = (i * 137) % 460 - 20;
        const bool takesStart = i % 3 != 0;
        const double handle = takesStart ? drag.trimmer().startX() - 1 : drag.trimmer().endX() + 1;
        drag.press({handle, kMiddle});
        drag.move({x, kMiddle});
        drag.release({x, kMiddle});
        EXPECT_GE(drag.trimmer().endX() - drag.trimmer().startX(), 20 - 1e-9) << "after drag " << i << " to " << x;
        EXPECT_GE(drag.trimmer().trimStart, 0);
        EXPECT_GE(drag.trimmer().trimEnd, 0);
        EXPECT_EQ(drag.gesture().activeDragCount(), 0);
    }
    EXPECT_GT(countOf<SetTrimStart>(drag.all()), 100);
    EXPECT_GT(countOf<SetTrimEnd>(drag.all()), 50);
}

TEST(TrimHandle, ThePlayheadIsLeftOutDuringItsDrag)
{
    for (const QPointF handle : {kOnStart, kOnEnd}) {
        HandleDrag drag(tenASecond());
        drag.press(handle);
        EXPECT_TRUE(drag.gesture().showsPlayhead());
        drag.move(handle + QPointF(15, 0));
        EXPECT_FALSE(drag.gesture().showsPlayhead());
        drag.release(handle + QPointF(15, 0));
        EXPECT_TRUE(drag.gesture().showsPlayhead());
    }
}

TEST(TrimHandle, CancelLeavesItWhereItIsAndEndsTheDrag)
{
    HandleDrag drag(tenASecond());
    drag.press(kOnStart);
    drag.move({160, kMiddle});
    EXPECT_THAT(drag.cancel(), ElementsAre(DraggingChanged{false}));
    EXPECT_EQ(drag.trimmer().trimStart, 15);
    EXPECT_THAT(drag.release({200, kMiddle}), IsEmpty());
}

TEST(TrimHandle, OfACompositeWithoutLengthWritesUpToATenthOfASecond)
{
    Trimmer trimmer{.scale = {420, 0}, .trimStart = 0, .trimEnd = 0, .markers = {}};
    HandleDrag drag(trimmer);
    drag.press({10, kMiddle});
    EXPECT_THAT(drag.move({210, kMiddle}), ElementsAre(BeginTrimEdit{}, SetTrimStart{0.05}, Seek{0}));
    drag.release({210, kMiddle});
    drag.press({410, kMiddle});
    drag.move({310, kMiddle});
    EXPECT_DOUBLE_EQ(drag.trimmer().trimEnd, 0.025);
}

TEST(TrimHandle, OfTwoThatCoincideTheWayOfTheDragTellsWhichIsMeant)
{
    Trimmer empty = tenASecond();
    empty.trimEnd = 35;
    HandleDrag toTheLeft(empty);
    toTheLeft.press(kOnStart);
    EXPECT_THAT(toTheLeft.move({30, kMiddle}), ElementsAre(BeginTrimEdit{}, SetTrimStart{2}, Seek{2}));
    HandleDrag toTheRight(empty);
    toTheRight.press(kOnStart);
    EXPECT_THAT(toTheRight.move({110, kMiddle}), ElementsAre(BeginTrimEdit{}, SetTrimEnd{30}, Seek{10}));
}

TEST(TrimHandle, AnEmptyRangeAtTheEndCanBeOpenedAgain)
{
    Trimmer empty = tenASecond();
    empty.trimStart = 40;
    empty.trimEnd = 0;
    HandleDrag drag(empty);
    drag.press({405, kMiddle});
    drag.move({210, kMiddle});
    EXPECT_EQ(drag.trimmer().trimStart, 20);
}

}
}
