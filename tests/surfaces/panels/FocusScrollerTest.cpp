// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/panels/FocusScroller.h"

#include <gmock/gmock.h>

namespace zumeta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A view of 600 over content of 1000, with a button at 700.
struct FocusScrolling : testing::Test {
    FocusScroller scroller;
    QQuickItem content;
    QQuickItem button;
    QQuickItem other;
    std::vector<double> wanted;

    FocusScrolling()
    {
        scroller.setHeight(600);
        content.setHeight(1000);
        button.setParentItem(&content);
        button.setY(700);
        button.setHeight(48);
        scroller.setContent(&content);
        QObject::connect(&scroller, &FocusScroller::scrollWanted, [this](double top) { wanted.push_back(top); });
    }
};

TEST_F(FocusScrolling, AsksForWhatIsOutOfSight)
{
    scroller.show(&button);
    EXPECT_THAT(wanted, ElementsAre(192));
}

TEST_F(FocusScrolling, AsksForNothingOnceItIsSeen)
{
    content.setY(-200);
    scroller.show(&button);
    EXPECT_THAT(wanted, IsEmpty());
}

TEST_F(FocusScrolling, BringsTheWholeOfARowAlong)
{
    QQuickItem row;
    row.setParentItem(&content);
    row.setY(650);
    row.setHeight(120);
    row.setProperty("isSeenWhole", true);
    button.setParentItem(&row);
    button.setY(0);
    scroller.show(&button);
    EXPECT_THAT(wanted, ElementsAre(650 + 120 + 44 - 600));
}

TEST_F(FocusScrolling, BringsAPartOfTheWindowIntoSight)
{
    content.setY(-100); // scrolled: a place in the window is not one in the content
    scroller.showPart({0, 500, 350, 100});
    EXPECT_THAT(wanted, ElementsAre(100 + 600 + 44 - 600));
}

TEST_F(FocusScrolling, LeavesAloneWhatIsElsewhere)
{
    other.setY(5000);
    scroller.show(&other);
    scroller.show(nullptr);
    EXPECT_THAT(wanted, IsEmpty());
}

}
}
