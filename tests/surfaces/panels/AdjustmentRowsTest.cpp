// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/panels/AdjustmentRows.h"

#include "session/StepFour.h"
#include "surfaces/controls/TextFieldFocusTracker.h"

namespace zumeta {
namespace {

using namespace test;

/// The rows over a session in virtual time, as a user has them: by what is typed and pressed.
struct RowsOfASession : SessionTest {
    TextFieldFocusTracker focus;
    std::unique_ptr<AdjustmentRows> rows;

    void makeRows()
    {
        rows = std::make_unique<AdjustmentRows>(*session, ValueRowSurroundings{notifications, focus, time});
    }
    ValueRowModel& waterline() { return *rows->basic()[0]; }
    ValueRowModel& timing() { return *rows->advanced()[1]; }
    ValueRowModel& blur() { return *rows->advanced()[2]; }
    ValueRowModel& trimStart() { return *rows->trim()[0]; }
    ValueRowModel& trimEnd() { return *rows->trim()[1]; }
    static void type(ValueRowModel& row, const char* text)
    {
        const QString typed = QString::fromLatin1(text);
        row.focusChanged(true, Qt::MouseFocusReason);
        row.typed(typed, int(typed.size()), false);
        row.focusChanged(false, Qt::MouseFocusReason);
    }
    static std::string shown(const ValueRowModel& row) { return row.textInput().toStdString(); }
    std::size_t undoCount() const { return session->stepEditHistory().undoCount(); }
};

/// A composite of 30 seconds.
struct RowsOfStepThree : RowsOfASession {
    RowsOfStepThree()
    {
        enterComposite(WorkflowStep::step3, {60, 10}, {30, 4});
        makeRows();
    }
};

struct RowsOfStepFour : RowsOfASession {
    RowsOfStepFour()
    {
        enterComposite(WorkflowStep::step4, {60, 10}, {30, 4});
        makeRows();
    }
};

struct ExpectedRow {
    const char* label;
    double lower;
    double upper;
    double step;
    int labelFontSize;
    const char* unit;
    const char* shownOfOneStep;
};

void expectRow(ValueRowModel& row, const ExpectedRow& expected)
{
    EXPECT_EQ(row.label().toStdString(), expected.label);
    EXPECT_EQ(row.lower(), expected.lower) << expected.label;
    EXPECT_EQ(row.upper(), expected.upper) << expected.label;
    EXPECT_EQ(row.step(), expected.step) << expected.label;
    EXPECT_EQ(row.labelFontSize(), expected.labelFontSize) << expected.label;
    EXPECT_EQ(row.unit().toStdString(), expected.unit) << expected.label;
    row.stepUp();
    EXPECT_EQ(row.textInput().toStdString(), expected.shownOfOneStep) << expected.label;
}

TEST_F(RowsOfStepThree, AreThreeBasicAndThreeAdvancedOnes)
{
    ASSERT_EQ(rows->basic().size(), 3);
    ASSERT_EQ(rows->advanced().size(), 3);
    session->setBlendAmount(0);
    expectRow(*rows->basic()[0], {"Waterline Height", -100, 100, 1, 15, "", "1"});
    expectRow(*rows->basic()[1], {"Person Height", -100, 100, 1, 15, "", "1"});
    expectRow(*rows->basic()[2], {"Horizontal Position", -100, 100, 1, 15, "", "1"});
    expectRow(*rows->advanced()[0], {"Zoom", -100, 100, 1, 15, "", "1"});
    expectRow(*rows->advanced()[1], {"Timing", -500, 500, 1, 15, "seconds", "0.01"});
    expectRow(*rows->advanced()[2], {"Boundary Blur", 0, 50, 1, 15, "", "1"});
}

TEST_F(RowsOfStepThree, SetTheValuesThatTheyAreNamedAfter)
{
    type(*rows->basic()[0], "1");
    type(*rows->basic()[1], "2");
    type(*rows->basic()[2], "-3");
    type(*rows->advanced()[0], "4");
    type(*rows->advanced()[1], "0.05");
    type(*rows->advanced()[2], "6");
    EXPECT_EQ(session->relativeWaterlineHeight(), 1);
    EXPECT_EQ(session->relativeAboveOffset(), 2);
    EXPECT_EQ(session->relativeAboveHorizontalOffset(), -3);
    EXPECT_EQ(session->aboveZoom(), 4);
    EXPECT_EQ(session->timingOffset(), 5);
    EXPECT_EQ(session->blendAmount(), 6);
}

TEST_F(RowsOfStepThree, ShowEachChangeOfTheSession)
{
    session->setRelativeWaterlineHeight(11);
    session->setRelativeAboveOffset(12);
    session->setRelativeAboveHorizontalOffset(13);
    session->setAboveZoom(14);
    session->setTimingOffset(-125);
    session->setBlendAmount(16);
    EXPECT_EQ(shown(*rows->basic()[0]), "11");
    EXPECT_EQ(shown(*rows->basic()[1]), "12");
    EXPECT_EQ(shown(*rows->basic()[2]), "13");
    EXPECT_EQ(shown(*rows->advanced()[0]), "14");
    EXPECT_EQ(shown(*rows->advanced()[1]), "-1.25");
    EXPECT_EQ(shown(*rows->advanced()[2]), "16");
}

TEST_F(RowsOfStepThree, CountTheFirstThreeValuesFromTheirBases)
{
    const double base = session->projectConfig().waterlineHeight;
    ASSERT_EQ(shown(waterline()), "0"); // whatever the pick gave
    waterline().stepUp();
    EXPECT_EQ(session->projectConfig().waterlineHeight, base + 1);
}

TEST_F(RowsOfStepThree, ATypedOneAndAHalfOfTheTimingStoresAHundredAndFifty)
{
    type(timing(), "1.5");
    EXPECT_EQ(session->timingOffset(), 150);
    EXPECT_EQ(shown(timing()), "1.50");
}

TEST_F(RowsOfStepThree, AVisitOfTheTimingChangesNothing)
{
    session->setTimingOffset(-125);
    timing().focusChanged(true, Qt::TabFocusReason);
    timing().submit();
    timing().focusChanged(false, Qt::TabFocusReason);
    EXPECT_EQ(session->timingOffset(), -125);
}

struct RowsOfTwins : RowsOfASession {
    RowsOfTwins()
    {
        enterComposite(WorkflowStep::step3, {30, 4}, {30, 4});
        makeRows();
    }
};

TEST_F(RowsOfTwins, TheTimingMovesTheCompositesLengthAndThatTheRangeOfTheTrims)
{
    ASSERT_EQ(trimEnd().upper(), 30);
    type(timing(), "-5");
    EXPECT_EQ(session->duration(), 25);
    EXPECT_EQ(trimEnd().upper(), 25);
    EXPECT_EQ(shown(trimEnd()), "00:25.00");
}

TEST_F(RowsOfStepThree, UndoComesBackToBeforeAnEditAndTheRowShowsIt)
{
    type(blur(), "30");
    blur().dragTrack(20, 100); // 10
    blur().dragTrack(40, 100); // 20
    blur().endTrackDrag();
    EXPECT_EQ(shown(blur()), "20");
    session->undoLastStepEdit();
    EXPECT_EQ(shown(blur()), "30");
}

TEST_F(RowsOfStepThree, AnyUseIsNotedAndCanBeUndone)
{
    EXPECT_FALSE(session->hasInteractedWithStep3Adjustments());
    ASSERT_EQ(undoCount(), 0);
    blur().focusChanged(true, Qt::MouseFocusReason);
    EXPECT_TRUE(session->hasInteractedWithStep3Adjustments());
    EXPECT_EQ(undoCount(), 1);
}

TEST_F(RowsOfStepThree, APressAtABoundIsAUseToo)
{
    session->setBlendAmount(50);
    blur().pressPlus();
    EXPECT_TRUE(session->hasInteractedWithStep3Adjustments());
    EXPECT_EQ(session->blendAmount(), 50);
}

TEST_F(RowsOfStepThree, OneOfThemTakesTheArrowKeys)
{
    timing().focusChanged(true, Qt::MouseFocusReason);
    post(notifications::kAdjustFocusedNumericField,
         {{QStringLiteral("direction"), 1}, {QStringLiteral("isLargeStep"), true}});
    EXPECT_EQ(session->timingOffset(), 10);
    EXPECT_EQ(session->relativeWaterlineHeight(), 0);
    EXPECT_EQ(session->aboveZoom(), 0);
}

TEST_F(RowsOfStepFour, AreTheTwoPointsOfTheRange)
{
    ASSERT_EQ(rows->trim().size(), 2);
    EXPECT_EQ(shown(trimStart()), "00:00.00");
    EXPECT_EQ(shown(trimEnd()), "00:30.00");
    expectRow(trimStart(), {"Trim Start", 0, 30, 0.01, 13, "", "00:00.01"});
    EXPECT_EQ(trimEnd().label().toStdString(), "Trim End");
    EXPECT_EQ(trimEnd().upper(), 30);
    EXPECT_FALSE(trimEnd().canStepUp());
    EXPECT_EQ(trimStart().fieldWidth(), 92);
}

TEST_F(RowsOfStepFour, ThePointsAreTypedAsTimesOfTheComposite)
{
    type(trimStart(), "0:03.2");
    type(trimEnd(), "21.85");
    EXPECT_DOUBLE_EQ(session->projectConfig().exportTrimStartSeconds, 3.2);
    EXPECT_DOUBLE_EQ(session->projectConfig().exportTrimEndSeconds, 30 - 21.85);
    EXPECT_EQ(shown(trimStart()), "00:03.20");
    EXPECT_EQ(shown(trimEnd()), "00:21.85");
}

TEST_F(RowsOfStepFour, TheHeadGoesToThePointThatIsSet)
{
    type(trimStart(), "3");
    EXPECT_EQ(session->currentTime(), 3);
    type(trimEnd(), "20");
    EXPECT_EQ(session->currentTime(), 20);
}

TEST_F(RowsOfStepFour, AnEndOfZeroLandsHalfASecondAfterTheStart)
{
    type(trimStart(), "4");
    type(trimEnd(), "0");
    EXPECT_DOUBLE_EQ(session->trimEndPosition(), 4.5);
    EXPECT_EQ(shown(trimEnd()), "00:04.50");
}

TEST_F(RowsOfStepFour, AStartPastTheEndLandsHalfASecondBeforeIt)
{
    type(trimEnd(), "20");
    type(trimStart(), "29");
    EXPECT_EQ(session->trimStart(), 19.5);
    EXPECT_EQ(shown(trimStart()), "00:19.50");
}

TEST_F(RowsOfStepFour, AnyUseIsNotedAndCanBeUndone)
{
    EXPECT_FALSE(session->hasInteractedWithStep4ExportControls());
    trimEnd().pressMinus();
    EXPECT_TRUE(session->hasInteractedWithStep4ExportControls());
    EXPECT_EQ(shown(trimEnd()), "00:29.99");
    session->undoLastStepEdit();
    EXPECT_EQ(shown(trimEnd()), "00:30.00");
}

struct RowsOfAShortComposite : RowsOfASession {
    RowsOfAShortComposite()
    {
        enterComposite(WorkflowStep::step4, {0.4, 0}, {0.4, 0});
        makeRows();
    }
};

TEST_F(RowsOfAShortComposite, AStartPastTheEndLandsAtZero)
{
    ASSERT_NEAR(session->duration(), 0.4, 1e-9);
    type(trimStart(), "0.3");
    EXPECT_EQ(session->trimStart(), 0);
}

TEST_F(RowsOfASession, WithoutVideosHoldTheTrimsAtZero)
{
    makeRows();
    EXPECT_EQ(trimEnd().upper(), 0);
    EXPECT_EQ(shown(trimEnd()), "00:00.00");
    EXPECT_EQ(trimEnd().knobFraction(), 0);
}

}
}
